// The employee's document password: Mitarbeiter_PDFEncrypt, one row per employee.
#include "../employee/load_statements.h"
#include "ormelix/employer/lohn_pdf_encrypt.h"

#include "../session/store_access.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/encrypt.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modDatabase {

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

// The key goes in as it stands here and through SqlID in the save. For an ID both
// are the same literal; any other key would be no literal at all (a name reads as
// a column), so it takes the SqlID form here too, as the year data do.
std::string PasswordLoadSql(const std::string& employee_id) {
  std::string key = DateHelpers::IsID(Variant(employee_id)) ? employee_id : ValueHelpers::SqlID(employee_id);
  return "SELECT * FROM [Mitarbeiter_PDFEncrypt] WHERE [MitarbeiterID]=" + key;
}

}  // namespace ormelix::detail

namespace ormelix::modDatabase {

void LoadPDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = detail::OpenRead(pManager, detail::PasswordLoadSql(pMitarbeiterID));
  if (!rs->Eof()) pLohn.PDFEncrypt()->VSPassword = EncryptPassword(ValueHelpers::ToText(rs->Fields("VSPassword")));
  rs->Close();
}

void SavePDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = detail::OpenWrite(pManager, "SELECT * FROM [Mitarbeiter_PDFEncrypt] WHERE [MitarbeiterID]=" +
                                            ValueHelpers::SqlID(pMitarbeiterID));
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
  }
  rs->Collect("VSPassword", Variant(EncryptPassword(pLohn.PDFEncrypt()->VSPassword)));
  rs->Update();
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase
