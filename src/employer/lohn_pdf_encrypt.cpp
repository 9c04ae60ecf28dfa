// The employee's document password: Mitarbeiter_PDFEncrypt, one row per employee.
#include "ormelix/employer/lohn_pdf_encrypt.h"

#include "../session/store_access.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/encrypt.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modDatabase {

void LoadPDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  // The employee's key goes in as it stands here, and through SqlID in the save.
  auto rs =
      detail::OpenRead(pManager, "SELECT * FROM [Mitarbeiter_PDFEncrypt] WHERE [MitarbeiterID]=" + pMitarbeiterID);
  if (!rs->Eof()) pLohn.PDFEncrypt()->VSPassword = EncryptPassword(ValueHelpers::ToText(rs->Fields("VSPassword")));
  rs->Close();
}

void SavePDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = detail::OpenWrite(pManager, "SELECT * FROM [Mitarbeiter_PDFEncrypt] WHERE [MitarbeiterID]=" +
                                            ValueHelpers::SqlID(pMitarbeiterID));
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
  }
  rs->Collect("VSPassword", Variant(EncryptPassword(pLohn.PDFEncrypt()->VSPassword)));
  rs->Update();
  rs->Close();
}

}  // namespace ormelix::modDatabase
