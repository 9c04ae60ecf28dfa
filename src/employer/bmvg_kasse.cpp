#include "ormelix/employer/bmvg_kasse.h"

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

bool clsBMVG_Kasse::Load(const std::string& pID) {
  using ValueHelpers::ToText;
  if (DateHelpers::IsNothingObject(lohn_db_)) return false;
  std::string sql = "SELECT * FROM [BMVG_Kassen] WHERE [Leitzahl]='" +
                    std::to_string(ValueHelpers::ToLong(Variant(pID))) + "'";
  if (DateHelpers::IsNothingObject(import_db_))
    throw Error("clsBMVG_Kasse.Load: no reference store (ImportDB) to run " + sql);
  auto rs = import_db_->Session().OpenRecordset(sql, adOpenForwardOnly, adLockReadOnly);
  bool found = !rs->Eof();
  if (found) {
    id_ = ToText(rs->Fields("ID"));
    leitzahl_ = ToText(rs->Fields("Leitzahl"));
    name_ = ToText(rs->Fields("Name"));
    sachbearbeiter_ = ToText(rs->Fields("Sachbearbeiter"));
    strasse_ = ToText(rs->Fields("Strasse"));
    plz_ = ToText(rs->Fields("PLZ"));
    ort_ = ToText(rs->Fields("Ort"));
    telefon_ = ToText(rs->Fields("Telefon"));
    institut_ = ToText(rs->Fields("Institut"));
    bauarbeiter_kasse_ = ValueHelpers::ToFlag(rs->Fields("Bauarbeiter_Kasse"));
    anmerkung_ = ToText(rs->Fields("Anmerkung"));
  } else {
    Clear();
  }
  rs->Close();
  return found;
}

void clsBMVG_Kasse::Clear() {
  StoreConnectionPtr lohn_db = std::move(lohn_db_);
  StoreConnectionPtr import_db = std::move(import_db_);
  *this = clsBMVG_Kasse{};
  lohn_db_ = std::move(lohn_db);
  import_db_ = std::move(import_db);
}

}  // namespace ormelix
