#include "ormelix/employer/gemeinde.h"

#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

bool clsGemeinde::Load(const std::string& pGemeindenummer) {
  using ValueHelpers::ToText;
  if (DateHelpers::IsNothingObject(import_db_)) return false;
  auto rs = import_db_->Session().OpenRecordset(
      "SELECT DISTINCT([Gemeindenummer]) AS[Gemeindenummer], * FROM [Gemeinden] WHERE [Gemeindenummer]='" +
          ToText(Variant(pGemeindenummer)) + "'",
      adOpenForwardOnly, adLockReadOnly);
  bool found = !rs->Eof();
  if (found) {
    // Several rows may carry one number: the first counts.
    id_ = ToText(rs->Fields("ID"));
    gemeinde_ = ToText(rs->Fields("Gemeinde"));
    sachbearbeiter_ = ToText(rs->Fields("Sachbearbeiter"));
    // The statement names the number twice; the name gives the first of the two.
    kennziffer_ = ToText(rs->Fields("Gemeindenummer"));
    strasse_ = ToText(rs->Fields("Strasse"));
    plz_ = ToText(rs->Fields("PLZ"));
    ort_ = ToText(rs->Fields("Ort"));
    telefon_ = ToText(rs->Fields("Telefon"));
  }
  rs->Close();
  return found;
}

}  // namespace ormelix
