#pragma once

#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

/// A company provision fund of the catalogue BMVG_Kassen in the
/// reference store, a read-only view of one row. clsMandant_BMVG_Kasse owns one; a
/// caller can make its own, hand it both stores and pass it to
/// clsMandant_BMVG_Kasse::Update.
class clsBMVG_Kasse {
 public:
  /// The key of the catalogue row.
  const std::string& ID() const { return id_; }
  /// The number that identifies the fund (a text column).
  const std::string& Leitzahl() const { return leitzahl_; }
  /// \name The fund's data (columns of BMVG_Kassen of their own name)
  ///@{

  /// The fund's data, read-only.
  ///
  /// Name, clerk, address, telephone, institute, whether it is the construction
  /// workers' fund, and a remark; read-only.
  const std::string& Name() const { return name_; }
  const std::string& Sachbearbeiter() const { return sachbearbeiter_; }
  const std::string& Strasse() const { return strasse_; }
  const std::string& PLZ() const { return plz_; }
  const std::string& Ort() const { return ort_; }
  const std::string& Telefon() const { return telefon_; }
  const std::string& Institut() const { return institut_; }
  bool Bauarbeiter_Kasse() const { return bauarbeiter_kasse_; }
  const std::string& Anmerkung() const { return anmerkung_; }
  ///@}

  /// \name The stores
  ///@{

  /// The payroll store (whose presence Load checks) and the reference store (which
  /// Load reads). clsMandant_BMVG_Kasse hands both to the fund it owns; a caller
  /// that makes its own fund hands them itself.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  void InitImportDB(const StoreConnectionPtr& pDatabase) { import_db_ = pDatabase; }
  ///@}

  /// Reads the fund whose Leitzahl is pID from BMVG_Kassen of the reference store. pID goes
  /// through ToLong on its way into the statement, so leading zeros are lost ("07100" looks
  /// for "7100"), and a text that is no number is a ConversionError. No such fund clears
  /// the object and gives False.
  ///
  /// The one check is on the pay store: without it the result is False. With a pay
  /// store and without a reference store the read itself fails (an Error).
  bool Load(const std::string& pID);

 private:
  void Clear();

  std::string id_;
  std::string leitzahl_;
  std::string name_;
  std::string sachbearbeiter_;
  std::string strasse_;
  std::string plz_;
  std::string ort_;
  std::string telefon_;
  std::string institut_;
  bool bauarbeiter_kasse_ = false;
  std::string anmerkung_;
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
