#pragma once

#include <memory>

#include "ormelix/collection.h"
#include "ormelix/countries/land_indikator.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The dated indicators of one country, keyed by the text of
/// their ID, in the order of adding (which the load makes ascending Zeitraum).
class clsLand_Indikatoren {
 public:
  /// An indicator, shared.
  using Ptr = std::shared_ptr<clsLand_Indikator>;

  /// Adds under the text of the indicator's ID (a key in use is an Error).
  void Add(const Ptr& pIndikator);
  /// By position (from 1) or key; one that is not there is a KeyNotFound.
  void Remove(const Variant& pIndex) { items_.Remove(pIndex); }
  /// By position (from 1) or key (the text of ID); KeyNotFound otherwise.
  const Ptr& Item(const Variant& pIndex) const { return items_.Item(pIndex); }
  /// True if the indicator found under pIndex has pIndex as its ID; a failed
  /// lookup gives False.
  bool Exist(const Variant& pIndex) const;
  /// The number of indicators.
  long Count() const { return items_.Count(); }

  /// \name Iteration
  ///@{

  /// The indicators in the order of adding (ascending Zeitraum after a load).
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }
  ///@}

 private:
  Collection<clsLand_Indikator> items_{"Indikatoren"};
};

}  // namespace ormelix
