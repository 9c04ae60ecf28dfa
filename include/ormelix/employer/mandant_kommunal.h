#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/employer/gemeinde.h"
#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// The employer's municipal office, a row of Mandanten_Kommunal:
/// the place of business for municipal tax, its levy accounts, and the municipality
/// from the catalogue Gemeinden.
///
/// The column Gemeinde is written with the catalogue row's ID (from the pGemeinde of
/// Update) but read as a municipality number (clsGemeinde::Load looks up by
/// Gemeindenummer). Nothing converts between the two, so a municipality saved
/// through Update is not found by the next load, which then leaves Gemeinde as it
/// stood. A host that wants the municipality found writes its number into the column.
class clsMandant_Kommunal {
 public:
  std::string ID;  ///< the key of the row, in its SqlID form
  /// A number the library only keeps.
  std::int16_t Kommunal = 0;
  /// \name The office (columns of Mandanten_Kommunal of their own name)
  ///@{

  /// The office's name and address.
  ///
  /// Name, addition, street, postcode, place, telephone and DVR number of the
  /// office, texts as they stand.
  std::string Name;
  std::string Zusatz;
  std::string Strasse;
  std::string PLZ;
  std::string Ort;
  std::string Telefon;
  std::string DVR;
  ///@}
  /// \name Municipal tax (columns of their own name)
  ///@{

  /// Municipal tax number and the levy accounts of municipal tax and underground
  /// levy.
  std::string KommStNr;
  std::string Abgabenkonto_KommSt;
  std::string Abgabenkonto_UBahn;
  ///@}
  /// The place of business for municipal tax.
  std::string Betriebsort;
  /// \name The office's bank (columns of their own name)
  ///@{

  /// Bank name, IBAN and BIC.
  std::string Bank;
  std::string IBAN;
  std::string BIC;
  ///@}

  /// The municipality, created with the record.
  const std::shared_ptr<clsGemeinde>& Gemeinde() const { return gemeinde_; }

  /// \cond INTERNAL
  // Library-internal: the stores, handed on to Gemeinde too.
  void InitLohnDB(const StoreConnectionPtr& pDatabase);
  void InitImportDB(const StoreConnectionPtr& pDatabase);
  // Reads the employer's row, then the municipality named by its column Gemeinde.
  // No row (or no store) changes nothing and gives False.
  bool LoadMandantKommunal(const std::string& pID);
  /// \endcond

  /// Writes the record for the employer pMandant into Mandanten_Kommunal, and with
  /// pGemeinde the column
  /// Gemeinde (pGemeinde's ID); without it the column stays as it is. The result is
  /// the text "True" after a save and "False" when there was none (no employer, no
  /// key on either side, no store). A record without a key selects the whole table:
  /// a row is added only to an empty table, and otherwise the first row is
  /// overwritten. Afterwards ID is the key of the row written.
  std::string Update(const clsMandant* pMandant = nullptr, const clsGemeinde* pGemeinde = nullptr);

 private:
  std::shared_ptr<clsGemeinde> gemeinde_ = std::make_shared<clsGemeinde>();
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
