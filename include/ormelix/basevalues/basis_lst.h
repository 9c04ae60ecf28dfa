#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// One wage-tax band: a row of Basiswerte_Zeittabelle_LST_Werte.
class LBasis_LST_Werte {
 public:
  double Von = 0;            ///< lower bound (column Von, 2 decimals on load)
  double Bis = 0;            ///< upper bound (column Bis, 2 decimals on load)
  double steuersatz = 0;     ///< the tax rate (column steuersatz, 4 decimals on load)
  double unbeschraenkt = 0;  ///< column Unbeschränkt (2 decimals on load)
  double beschraenkt = 0;    ///< column Beschränkt (2 decimals on load)

  /// \cond INTERNAL
  // Library-internal: the ID of the row the band was loaded from. A save stores
  // every band under a new ID, so this is stale after any Update.
  const std::string& ID() const { return id_; }
  void SetID(std::string pID) { id_ = std::move(pID); }
  /// \endcond

 private:
  std::string id_;
};

/// The wage-tax bands of a dated table (a list of any length, without
/// keys) and four statutory amounts. The bands are stored anew on every save; the
/// order in memory is that of Add, and only a load sorts them by Von. A load
/// appends to the list, so a Refresh without a Clear before it doubles the bands.
///
/// Tables: Basiswerte_Zeittabelle_LST (the four amounts) and
/// Basiswerte_Zeittabelle_LST_Werte (the bands, deleted and inserted anew at every
/// save). Read with the dated table and written by LBasis::Update.
class LBasis_LST {
 public:
  /// A band, shared.
  using Wert = std::shared_ptr<LBasis_LST_Werte>;

  /// No bands, amounts 0.
  LBasis_LST() : werte_("the wage-tax bands") {}

  /// Appends the band (no key) and hands the same object back in the argument.
  /// An unset object is refused (Error).
  void Add(Wert& pLSTWert);
  /// Removes the band at that position, from 1; KeyNotFound for a bad position.
  void Remove(std::int16_t pIndex) { werte_.Remove(Variant(pIndex)); }
  /// The band at a position, from 1; KeyNotFound for a bad position.
  const Wert& Item(std::int16_t pIndex) const { return werte_.Item(Variant(pIndex)); }
  /// \name Iteration
  ///@{

  /// The bands in list order.
  Collection<LBasis_LST_Werte>::const_iterator begin() const { return werte_.begin(); }
  Collection<LBasis_LST_Werte>::const_iterator end() const { return werte_.end(); }
  ///@}
  /// The number of bands.
  long Count() const { return werte_.Count(); }
  /// Empties the list in memory only; the result is always empty.
  Variant Clear() {
    werte_.Clear();
    return {};
  }

  /// \name Statutory amounts (Basiswerte_Zeittabelle_LST)
  ///@{

  /// The allowances of § 68 (1) and (6) EStG, the tax-free overtime pay of § 68 (2) and its upper limit.
  ///
  /// The allowances of § 68 (1) and (6) EStG, the tax-free overtime pay of § 68 (2)
  /// and its upper limit: columns of their own name, 2 decimals on load.
  double FreibetragGemäß68Abs1EStG = 0;
  double FreibetragGemäß68Abs6EStG = 0;
  double LStFreieÜberstundenGemäß68Abs2EStG = 0;
  double ObergrenzeFürLStFeieÜberstundenGemäß68Abs2EStG = 0;
  ///@}

 private:
  Collection<LBasis_LST_Werte> werte_;
};

}  // namespace ormelix
