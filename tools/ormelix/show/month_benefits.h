// ormelix show month: the month's short-time record with its figures, its
// replacement benefits with their sums, and the employee's benefits in kind of the
// period.
#pragma once

#include <cstdint>
#include <ostream>

#include "common/json.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/session/manager.h"

namespace cli {

// Adds "Kurzarbeit" (the stored values and the computed figures, each under its
// property's name), "SV_EL_Laufend" (Count, the sums, and the entries under Col) and
// "Sachbezüge" (ID and the values of clsMitarbeiter_Sachbezüge.Load: the row of the
// period, or the defaults; null where the employee is not in the year's list, which
// the defaults need) to the month document.
void AddShortTimeAndBenefits(json::Value& document, ormelix::clsManager& manager, ormelix::LLohn& lohn, int month,
                             std::int32_t period);
// Prints them as lists of values (blank ones left out).
void PrintShortTimeAndBenefits(std::ostream& out, ormelix::clsManager& manager, ormelix::LLohn& lohn, int month,
                               std::int32_t period);

}  // namespace cli
