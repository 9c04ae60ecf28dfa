#pragma once

#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// The employer's tax office, a row of Mandanten_Finanzamt.
class clsMandant_Finanzamt {
 public:
  std::string ID;  ///< the key of the row, in its SqlID form
  /// \name The tax office
  ///@{

  /// The tax office's name and number (columns of their own name).
  std::string Finanzamt;
  std::string FinanzamtNr;
  ///@}
  /// The employer's tax number.
  std::string SteuerNr;
  /// The tax office's bank connection.
  std::string Bank;
  /// \name The tax office's bank (columns of their own name)
  ///@{

  /// IBAN and BIC of the tax office's bank.
  std::string IBAN;
  std::string BIC;
  ///@}

  /// \cond INTERNAL
  // Library-internal: clsMandant hands over the pay store and loads the record.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  // Reads the employer's row; no row (or no store) changes nothing and gives False.
  bool LoadMandantFinanzamt(const std::string& pID);
  /// \endcond

  /// Writes the record for the employer pMandant into Mandanten_Finanzamt. False, touching nothing, without
  /// an employer, without a key on either side, or without a store. A record
  /// without a key selects the whole table: a row is added only to an empty table,
  /// and otherwise the first row is overwritten. Afterwards ID is the key of the
  /// row written.
  bool Update(const clsMandant* pMandant = nullptr);

 private:
  StoreConnectionPtr lohn_db_;
};

}  // namespace ormelix
