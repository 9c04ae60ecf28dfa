#include "read_ahead.h"

#include "load_statements.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::detail {

namespace {

using Statement = StoreReadAhead::Statement;

// A statement made by a function of the key alone.
Statement By(std::string (*text)(const std::string&), const char* key_column, std::vector<std::string> keys,
             bool few_rows_per_key = false) {
  return Statement{text, key_column, std::move(keys), few_rows_per_key};
}

// The keys the pay record's load hands on: the IDs of the pay rows in SqlID form.
std::vector<std::string> PayRowKeys(std::vector<std::string> ids) {
  for (std::string& id : ids) id = ValueHelpers::SqlID(id);
  return ids;
}

}  // namespace

std::size_t ReadAheadEmployees(StoreReadAhead& ahead, const clsManager& manager, const std::vector<std::string>& ids,
                               std::size_t row, std::size_t count) {
  std::vector<std::string> keys;
  for (; row < ids.size() && keys.size() < count; ++row)
    if (!ids[row].empty()) keys.push_back(ids[row]);
  const std::int16_t year = manager.AktJahr;
  enum { kChildren, kPay };  // the first two statements, whose rows give the keys of the next three
  ahead.Read({
      By(ChildrenLoadSql, "MitarbeiterID", keys),
      By(PayLoadSql, "MitarbeiterID", keys),
      By(CareerLoadSql, "MitarbeiterID", keys),
      By(MasterLoadSql, "ID", keys),
      By(BankLoadSql, "MitarbeiterID", keys),
      By(LinesLoadSql, "MitarbeiterID", keys),
      By(TransfersLoadSql, "MitarbeiterID", keys),
      Statement{[year](const std::string& key) { return YearDataLoadSql(key, year); }, "MitarbeiterID", keys},
      By(PasswordLoadSql, "MitarbeiterID", keys),
  });
  const std::string months = "[Zeitraum]>=" + std::to_string(ValueHelpers::MakeZeitraum(1, year)) +
                             " AND [Zeitraum]<=" + std::to_string(ValueHelpers::MakeZeitraum(12, year));
  std::vector<std::string> children = ahead.Values(kChildren, "ID");
  std::vector<std::string> pay_rows = PayRowKeys(ahead.Values(kPay, "ID", months));
  // A child has a few entitlements, a pay row a short-time row at most and
  // replacement benefits rarely.
  ahead.Read({
      By(ChildEntriesLoadSql, "KID", std::move(children), true),
      By(BenefitsLoadSql, "LohnzettelID", pay_rows, true),
      By(ShortTimeLoadSql, "LohnzettelID", std::move(pay_rows), true),
  });
  return row;
}

}  // namespace ormelix::detail
