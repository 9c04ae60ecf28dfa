#pragma once

#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/store.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// One contribution account of the employer with a social-insurance carrier: a row
/// of Mandanten_Beitragskonten joined with its row of Versicherungsträger; read-only.
class clsMandant_Beitragskonto {
 public:
  /// The key of the account's row.
  const std::string& ID() const { return id_; }
  /// \name The carrier
  ///@{

  /// The carrier of the account.
  ///
  /// The carrier: its key (column VTID) and its data from Versicherungsträger
  /// (Code, Bezeichnung, Kurzbezeichnung, Straße, PLZ, Ort, Bank, IBAN, BIC).
  const std::string& VTID() const { return vtid_; }
  const std::string& VT_Code() const { return vt_code_; }
  const std::string& VT_Bezeichnung() const { return vt_bezeichnung_; }
  const std::string& VT_KurzBezeichnung() const { return vt_kurzbezeichnung_; }
  const std::string& VT_Straße() const { return vt_strasse_; }
  const std::string& VT_PLZ() const { return vt_plz_; }
  const std::string& VT_Ort() const { return vt_ort_; }
  const std::string& VT_Bank() const { return vt_bank_; }
  const std::string& VT_IBAN() const { return vt_iban_; }
  const std::string& VT_BIC() const { return vt_bic_; }
  ///@}
  /// \name The account
  ///@{

  /// The account itself.
  ///
  /// The account number, a remark, and the mark of the employer's standard account
  /// (only handed out: two accounts may both carry it, or none).
  const std::string& BKNR() const { return bknr_; }
  const std::string& Anmerkung() const { return anmerkung_; }
  bool Standard() const { return standard_; }
  ///@}

 private:
  friend class clsMandant_Beitragskonten;
  void LoadFrom(const Recordset& recordset);

  std::string id_;
  std::string vtid_;
  std::string vt_code_;
  std::string vt_bezeichnung_;
  std::string vt_kurzbezeichnung_;
  std::string vt_strasse_;
  std::string vt_plz_;
  std::string vt_ort_;
  std::string vt_bank_;
  std::string vt_iban_;
  std::string vt_bic_;
  std::string bknr_;
  std::string anmerkung_;
  bool standard_ = false;
};

/// The employer's contribution accounts with the social
/// insurance carriers, read-only; clsMandant_Beitragskonto: one account, joined
/// with the data of its carrier. The host writes Mandanten_Beitragskonten and
/// Versicherungsträger; the library only reads them.
class clsMandant_Beitragskonten {
 public:
  /// An account, shared.
  using Ptr = std::shared_ptr<clsMandant_Beitragskonto>;

  /// With a position (from 1) or key, the account there; one that is not there is
  /// a KeyNotFound. With an empty index, or on an empty list, a new empty account
  /// that belongs to no list.
  Ptr Item(const Variant& pIndex) const;
  /// The number of accounts loaded.
  long Count() const { return accounts_.Count(); }
  /// True if the account found under pIndex has pIndex as its ID, so meant for
  /// keys: a position, an unknown key and a key in other letter case give False.
  /// Never fails. An empty pIndex gives True, as Item("") hands out an empty
  /// account whose ID is empty too.
  bool Exist(const Variant& pIndex) const;
  /// Loads again for the employer of the last load; False before any load. Reads
  /// tables Mandanten_Beitragskonten and Versicherungsträger.
  bool Refresh();
  /// True if the accounts belong to more than one carrier: some account has a
  /// carrier code other than the non-empty code of the account before it.
  bool IsMoreSVTraeger() const;

  /// \cond INTERNAL
  // Library-internal: the pay store, and the load that clsMandant calls. The load
  // empties the list first, so no account of the previous employer stays; an
  // account whose carrier is missing is not listed. False without a store.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  bool LoadMandantBeitragskonten(const std::string& pID);
  /// \endcond

  /// \name Iteration
  ///@{

  /// The accounts in the order they were entered (NewEnum).
  auto begin() const { return accounts_.begin(); }
  auto end() const { return accounts_.end(); }
  ///@}

 private:
  StoreConnectionPtr lohn_db_;
  Collection<clsMandant_Beitragskonto> accounts_{"Beitragskonten"};
  std::string mandanten_id_;
};

}  // namespace ormelix
