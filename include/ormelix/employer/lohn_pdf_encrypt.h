#pragma once

#include <string>

namespace ormelix {

/// The password of an employee's PDF documents, a row of
/// Mitarbeiter_PDFEncrypt. LLohn owns one; it loads with the employee and is saved
/// by LLohn::Update (ucTablePDFEncrypt), also when the password is empty.
///
/// The password is plain in the object and transformed in the store (see
/// encrypt.h): a character outside Windows-1252 comes back as '?'.
class LLohn_PDFEncrypt {
 public:
  /// A plain property: no load or save reads or writes it.
  std::string ID;
  /// The password, plain; the column VSPassword of the employee's row holds it
  /// through EncryptPassword.
  std::string VSPassword;
};

}  // namespace ormelix
