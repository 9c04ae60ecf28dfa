#include "ormelix/employer/mandant_pdf_encrypt.h"

#include "ormelix/employer/encrypt.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

namespace {

using P = clsMandant_PDFEncrypt;

void LoadOption(P& record, const Field& field) {
  record.VSPasswordOption = static_cast<eVSPasswordOption>(ValueHelpers::ToInteger(field));
}
Variant SaveOption(P& record) { return Variant(static_cast<std::int32_t>(record.VSPasswordOption)); }
void LoadPassword(P& record, const Field& field) { record.VSPassword = EncryptPassword(ValueHelpers::ToText(field)); }
Variant SavePassword(P& record) { return Variant(EncryptPassword(record.VSPassword)); }

const ColumnSet<P>& PDFEncryptColumns() {
  static const ColumnSet<P> columns{
      {"EncryptVS", Member<&P::EncryptVS>, LoadAs::Flag, SaveAs::Direct},
      ColumnSet<P>::Custom("VSPasswordOption", LoadOption, SaveOption),
      ColumnSet<P>::Custom("VSPassword", LoadPassword, SavePassword),
  };
  return columns;
}

}  // namespace

bool clsMandant_PDFEncrypt::LoadMandantPDFEncrypt(const std::string& pID) {
  return detail::LoadSideRecord(lohn_db_, "SELECT * FROM [Mandanten_PDFEncrypt] WHERE [MandantenID]=", pID, *this,
                                PDFEncryptColumns());
}

bool clsMandant_PDFEncrypt::Update(const clsMandant* pMandant) {
  return detail::SaveSideRecord(lohn_db_, "SELECT * FROM [Mandanten_PDFEncrypt]", *this, PDFEncryptColumns(),
                                pMandant);
}

}  // namespace ormelix
