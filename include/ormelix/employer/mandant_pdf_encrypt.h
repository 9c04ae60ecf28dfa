#pragma once

#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// Which password protects an employee's pay documents: the column
/// VSPasswordOption of Mandanten_PDFEncrypt.
enum eVSPasswordOption {
  eVSPOSVNummer = 0,               ///< the employee's social insurance number
  eVSPOSIndividual = 1,            ///< one password of the employer
  eVSPOSIndividualMitarbeiter = 2  // a password of each employee's own
};

/// Whether and how the employer's pay documents are
/// protected with a password, a row of Mandanten_PDFEncrypt. The library only keeps
/// the setting; which password applies to a document is the host's to decide.
///
/// The password is plain in the object and transformed in the store (see
/// encrypt.h): a character outside Windows-1252 comes back as '?'.
class clsMandant_PDFEncrypt {
 public:
  std::string ID;  ///< the key of the row, in its SqlID form
  /// Protect the documents.
  bool EncryptVS = false;
  eVSPasswordOption VSPasswordOption = eVSPOSVNummer;  ///< which password applies
  /// The employer's password (eVSPOSIndividual): plain here, stored through
  /// EncryptPassword in the column VSPassword.
  std::string VSPassword;

  /// \cond INTERNAL
  // Library-internal: clsMandant hands over the pay store and loads the record.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  // Reads the employer's row; no row (or no store) changes nothing and gives False.
  bool LoadMandantPDFEncrypt(const std::string& pID);
  /// \endcond

  /// Writes the record for the employer pMandant into Mandanten_PDFEncrypt; VSPassword in the object stays
  /// plain. False, touching nothing, without an employer, without a key on either
  /// side, or without a store. A record without a key selects the whole table: a
  /// row is added only to an empty table, and otherwise the first row is
  /// overwritten. Afterwards ID is the key of the row written.
  bool Update(const clsMandant* pMandant = nullptr);

 private:
  StoreConnectionPtr lohn_db_;
};

}  // namespace ormelix
