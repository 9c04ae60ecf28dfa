// LLohn_Ersatzleistung and LLohn_Ersatzleistungen: the replacement benefits of one
// month of an employee, rows of Mitarbeiter_Lohnzettel_EL below the monthly pay row.
//
// So far only what the employee list needs of them: an entry with its period and
// its BV base, and the keyed list of a month (Add, Item, Count, Clear), which the
// sum of marginal bases reads. The other columns, the sums and the load and save of
// the table come with the replacement-benefits work.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

class LLohn_Ersatzleistung {
 public:
  std::int32_t Zeitraum = 0;
  double BV_Basis = 0;
};

class LLohn_Ersatzleistungen {
 public:
  LLohn_Ersatzleistungen() : col_("the replacement benefits of a month") {}

  // Adds the entry under its period as text; a second entry of one period fails.
  void Add(const std::shared_ptr<LLohn_Ersatzleistung>& pEL) { col_.Add(pEL, ValueHelpers::ToText(Variant(pEL->Zeitraum))); }
  // By position (from 1) or by key (the period as text); KeyNotFound otherwise.
  const std::shared_ptr<LLohn_Ersatzleistung>& Item(const Variant& pIndex) const { return col_.Item(pIndex); }
  long Count() const { return col_.Count(); }
  void Clear() { col_.Clear(); }

 private:
  Collection<LLohn_Ersatzleistung> col_;
};

}  // namespace ormelix
