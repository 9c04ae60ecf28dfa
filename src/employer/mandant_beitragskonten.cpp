#include "ormelix/employer/mandant_beitragskonten.h"

#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

using ValueHelpers::ToText;

void clsMandant_Beitragskonto::LoadFrom(const Recordset& rs) {
  vt_code_ = ToText(rs.Fields("Code"));
  vt_bezeichnung_ = ToText(rs.Fields("Bezeichnung"));
  vt_kurzbezeichnung_ = ToText(rs.Fields("Kurzbezeichnung"));
  vt_strasse_ = ToText(rs.Fields("Straße"));
  vt_plz_ = ToText(rs.Fields("PLZ"));
  vt_ort_ = ToText(rs.Fields("Ort"));
  vt_bank_ = ToText(rs.Fields("Bank"));
  vt_iban_ = ToText(rs.Fields("IBAN"));
  vt_bic_ = ToText(rs.Fields("BIC"));
  // Both tables have an ID: the account's is asked for by its qualified name.
  id_ = ToText(rs.Fields("Mandanten_Beitragskonten.ID"));
  vtid_ = ToText(rs.Fields("VTID"));
  bknr_ = ToText(rs.Fields("BKNR"));
  anmerkung_ = ToText(rs.Fields("Anmerkung"));
  standard_ = ValueHelpers::ToFlag(rs.Fields("StandardBKNR"));
}

clsMandant_Beitragskonten::Ptr clsMandant_Beitragskonten::Item(const Variant& pIndex) const {
  if (!DateHelpers::IsEmptyText(pIndex) && Count() >= 1) return accounts_.Item(pIndex);
  return std::make_shared<clsMandant_Beitragskonto>();
}

bool clsMandant_Beitragskonten::Exist(const Variant& pIndex) const {
  try {
    return pIndex.IsText() && Item(pIndex)->ID() == pIndex.AsText();
  } catch (const Error&) {
    return false;
  }
}

bool clsMandant_Beitragskonten::Refresh() {
  if (mandanten_id_.empty()) return false;
  return LoadMandantBeitragskonten(mandanten_id_);
}

bool clsMandant_Beitragskonten::IsMoreSVTraeger() const {
  std::string previous;
  for (const Ptr& account : accounts_) {
    if (!previous.empty() && previous != account->VT_Code()) return true;
    previous = account->VT_Code();
  }
  return false;
}

bool clsMandant_Beitragskonten::LoadMandantBeitragskonten(const std::string& pID) {
  mandanten_id_ = pID;
  for (long n = accounts_.Count(); n > 0; --n) accounts_.Remove(Variant(1));
  if (DateHelpers::IsNothingObject(lohn_db_)) return false;
  auto rs = lohn_db_->Session().OpenRecordset(
      "SELECT * FROM [Mandanten_Beitragskonten] INNER JOIN [Versicherungsträger] ON "
      "[Mandanten_Beitragskonten].[VTID]=[Versicherungsträger].[ID] WHERE [Mandanten_Beitragskonten].[MandantenID]=" +
          ValueHelpers::SqlID(pID) + " ORDER BY [Mandanten_Beitragskonten].[Nr] ASC",
      adOpenForwardOnly, adLockReadOnly);
  for (; !rs->Eof(); rs->MoveNext()) {
    auto account = std::make_shared<clsMandant_Beitragskonto>();
    account->LoadFrom(*rs);
    accounts_.Add(account, account->ID());
  }
  rs->Close();
  return true;
}

}  // namespace ormelix
