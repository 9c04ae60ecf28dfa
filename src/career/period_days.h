// Library-internal: the first and last day of a period, as the career queries make
// them from the period's digits (year: characters 1 to 4, month: 5 and 6 of its
// decimal text). A period whose text does not have them is an Error naming it.
#pragma once

#include <cstdint>

#include "ormelix/store/variant.h"

namespace ormelix::detail {

Date PeriodFirstDay(std::int32_t zeitraum);
Date PeriodLastDay(std::int32_t zeitraum);

}  // namespace ormelix::detail
