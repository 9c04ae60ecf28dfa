// What the demo host enters beside the pay record: wage-type lines, a transfer
// between contribution groups, the year data; and how the walk shows them.
#pragma once

#include <ostream>

#include "demo/people.h"
#include "ormelix/basevalues/basis.h"
#include "ormelix/employee/lohn.h"

namespace cli::demo {

// The wage-type lines and the transfer of a person's month, if the month has any:
// writes them into the employee object and works the month's pay and contributions
// out again with them (the lines of group 1 and 5 are pay on which contributions
// are due). The salary stays in Gehalt. A month without lines is left as it is.
void AddLinesAndTransfer(ormelix::LLohn& lohn, const Person& person, int year, int month,
                         const ormelix::LBasis& table);
// The Update flags of a month: the pay record, and the wage-type lines and the
// transfer where the month has them (both are saved for AktMonat).
int MonthTables(const Person& person, int year, int month);
// The year data the host settles for a person for a year.
void FillYearData(ormelix::LLohn_Jahresdaten& jahresdaten, const Person& person, int year);

// The walk's lines: the month's wage-type lines with GetDBDZKST_frei, and the year data.
void WalkLinesAndYear(std::ostream& out, const ormelix::LLohn& lohn, int year, int month);

}  // namespace cli::demo
