#include "side_record.h"

#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"

namespace ormelix::detail {

std::unique_ptr<Recordset> OpenSideRecord(const StoreConnectionPtr& db, const std::string& sql) {
  if (DateHelpers::IsNothingObject(db)) return nullptr;
  auto rs = db->Session().OpenRecordset(sql, adOpenForwardOnly, adLockReadOnly);
  if (rs->Eof()) {
    rs->Close();
    return nullptr;
  }
  return rs;
}

std::optional<std::string> SideRecordEmployerKey(const StoreConnectionPtr& db, const std::string& own_id,
                                                 const clsMandant* pMandant) {
  if (!pMandant) return std::nullopt;
  std::string key = pMandant->ID();
  if (!DateHelpers::IsID(Variant(own_id)) && !DateHelpers::IsID(Variant(key))) return std::nullopt;
  if (DateHelpers::IsNothingObject(db)) return std::nullopt;
  return key;
}

std::string SideRecordSaveSql(const std::string& base, const std::string& own_id) {
  return DateHelpers::IsID(Variant(own_id)) ? base + " WHERE [ID]=" + own_id : base;
}

std::unique_ptr<Recordset> OpenSideRecordForSave(const StoreConnectionPtr& db, const std::string& sql,
                                                 const std::string& employer_key, bool* added) {
  auto rs = db->Session().OpenRecordset(sql, adOpenDynamic, adLockOptimistic);
  bool at_end = rs->Eof();
  if (at_end) {
    rs->AddNew();
    rs->Collect("MandantenID", Variant(employer_key));
  }
  if (added) *added = at_end;
  return rs;
}

std::string StoreSideRecord(Recordset& recordset) {
  recordset.Update();
  std::string id = DateHelpers::GetNewRowID(recordset);
  recordset.Close();
  return id;
}

}  // namespace ormelix::detail
