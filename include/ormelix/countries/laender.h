#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/countries/land.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The countries of the session with their dated indicators, read from
/// the reference store (ImportDB) and never written. The session makes it; it stays
/// empty until Load.
class clsLänder {
 public:
  /// \cond INTERNAL
  // Library-internal: the session gives its back reference once, at creation.
  void SetManager(const std::shared_ptr<clsManager>& manager) { manager_.Set(manager); }
  /// \endcond

  /// Reads all countries in ascending HVB with their indicators in ascending
  /// Zeitraum, after emptying the list (so it may be repeated). Without a
  /// reference store it is an Error; a country whose EULand is Null is a
  /// ConversionError that ends the load. Reads Länder and Länder_Indikatoren of
  /// ImportDB.
  void Load();
  /// Empties the list in memory.
  void Clear() { laender_.Clear(); }
  /// By position (a number, from 1) or key (the text of Code), in memory.
  void Remove(const Variant& pIndex) { laender_.Remove(pIndex); }
  /// By position (a number, from 1) or key (the text of Code); KeyNotFound otherwise.
  const std::shared_ptr<clsLand>& Item(const Variant& pIndex) const { return laender_.Item(pIndex); }
  /// The number of countries loaded.
  long Count() const { return laender_.Count(); }

  /// The last period of the indicator series, fixed in code: 202208.
  std::int32_t IndikationEndPeriod() const;
  /// True from the end period on, the end period included.
  bool IsEndIndikator(std::int32_t pZeitraum) const;
  /// The latest indicator, not later than pZeitraum, of the country with this
  /// vehicle code (in any letter case). Null for an unknown code and for a period
  /// before the country's first indicator. The store is asked, but the objects come
  /// from the loaded list: before Load this is a KeyNotFound. The code goes into
  /// the statement as it stands, so an apostrophe in it breaks the statement. Reads
  /// Länder and Länder_Indikatoren of the reference store.
  std::shared_ptr<clsLand_Indikator> GetIndikator(const std::string& pKFZ, std::int32_t pZeitraum) const;

  /// \name Iteration
  ///@{

  /// The countries in ascending Code (HVB).
  auto begin() const { return laender_.begin(); }
  auto end() const { return laender_.end(); }
  ///@}

 private:
  StoreSession& ReferenceStore() const;

  ManagerRef manager_;
  Collection<clsLand> laender_{"Länder"};
};

}  // namespace ormelix
