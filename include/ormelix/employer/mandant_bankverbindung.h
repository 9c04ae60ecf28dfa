#pragma once

#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// \brief The employer's bank details: read from Mandanten_Bankverbindung, saved into
/// Mandanten_BMVG_Kasse (clsMandant::Bankverbindung).
///
/// The employer's bank connection.
///
/// The record is read from Mandanten_Bankverbindung but saved into
/// Mandanten_BMVG_Kasse, the table of the provision fund, which therefore carries the
/// bank columns too. The crossing is long-standing behaviour and stays: a save is
/// not seen by the next load, and a host that wants the bank connection shown writes
/// the row of Mandanten_Bankverbindung itself.
class clsMandant_Bankverbindung {
 public:
  /// The key of the row, kept in its literal form (SqlID).
  std::string ID;
  /// \name Bank details (columns of their own name)
  ///@{

  /// The bank's name, a remark, the identifiers for payment files, BIC and IBAN.
  ///
  /// The bank's name, a remark, the identifiers for payment files, BIC and IBAN:
  /// columns of their own name, texts as they stand.
  std::string Bank;
  std::string Kommentar;
  /// Recipient and sender identifiers for payment files.
  std::string EmpfKennung;
  std::string AbsKennung;
  std::string BIC;
  std::string IBAN;
  ///@}

  /// \cond INTERNAL
  // Library-internal: clsMandant hands over the pay store and loads the record.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  // Reads the employer's row; no row (or no store) changes nothing and gives False.
  bool LoadMandantBankverbindung(const std::string& pID);
  /// \endcond

  /// Writes the record for the employer pMandant (into Mandanten_BMVG_Kasse, see
  /// above). False, touching nothing, without an employer, without a key on either
  /// side, or without a store. A record without a key selects the whole table: a
  /// row is added only to an empty table, and otherwise the first row is
  /// overwritten. Afterwards ID is the key of the row written.
  bool Update(const clsMandant* pMandant = nullptr);

 private:
  StoreConnectionPtr lohn_db_;
};

}  // namespace ormelix
