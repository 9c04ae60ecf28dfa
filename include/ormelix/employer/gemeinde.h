#pragma once

#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

/// A municipality of the catalogue Gemeinden in the reference store, a
/// read-only view of one row. clsMandant_Kommunal owns one; a caller can make its
/// own, hand it the reference store and pass it to clsMandant_Kommunal::Update.
class clsGemeinde {
 public:
  /// The key of the catalogue row.
  const std::string& ID() const { return id_; }
  /// \name The municipality's data (columns of Gemeinden of their own name)
  ///@{

  /// The municipality's name and clerk; read-only.
  const std::string& Gemeinde() const { return gemeinde_; }
  const std::string& Sachbearbeiter() const { return sachbearbeiter_; }
  ///@}
  /// The municipality number, from the column Gemeindenummer.
  const std::string& Kennziffer() const { return kennziffer_; }
  /// \name The office's address (columns of their own name)
  ///@{

  /// Street, postcode, place and telephone; read-only.
  const std::string& Strasse() const { return strasse_; }
  const std::string& PLZ() const { return plz_; }
  const std::string& Ort() const { return ort_; }
  const std::string& Telefon() const { return telefon_; }
  ///@}

  /// \cond INTERNAL
  // Library-internal: the two stores; the catalogue is read from the reference store.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  void InitImportDB(const StoreConnectionPtr& pDatabase) { import_db_ = pDatabase; }
  /// \endcond

  /// Reads the first municipality with this number (column Gemeindenummer of
  /// Gemeinden in the reference store). False when there is no
  /// reference store or no such number; the object then keeps what it held. The
  /// number goes into the statement as it stands, so a single quote in it breaks
  /// the statement (a StoreError).
  bool Load(const std::string& pGemeindenummer);

 private:
  std::string id_;
  std::string gemeinde_;
  std::string sachbearbeiter_;
  std::string kennziffer_;
  std::string strasse_;
  std::string plz_;
  std::string ort_;
  std::string telefon_;
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
