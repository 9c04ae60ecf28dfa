#include "ormelix/employee/mitarbeiter_list.h"

#include "ormelix/store/date_helpers.h"

namespace ormelix {

std::shared_ptr<LLohn> clsMitarbeiter::Item(const Variant& pIndex) const {
  double number = 0;
  bool numeric = pIndex.IsNumber() || (pIndex.IsText() && ParseNumber(pIndex.AsText(), number));
  if (DateHelpers::IsID(pIndex) || numeric) return entries_.Item(pIndex);
  return empty_employee_;
}

}  // namespace ormelix
