// ormelix show month: the wage-type lines, the transfer and the year data beside
// the pay month.
#pragma once

#include <ostream>

#include "common/json.h"
#include "ormelix/employee/lohn.h"

namespace cli {

// Adds "Lohnarten" (the lines of the month that hold anything, each with its group
// and line), "Uebertritt" and "Jahresdaten" to the month document.
void AddLinesTransferYear(json::Value& document, ormelix::LLohn& lohn, int month);
// Prints them as a table of lines and two lists of values.
void PrintLinesTransferYear(std::ostream& out, ormelix::LLohn& lohn, int year, int month);

}  // namespace cli
