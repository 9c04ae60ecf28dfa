// The demo store and the walk through one employee's month.
#pragma once

#include <ostream>

#include "ormelix/session/manager.h"

namespace cli {

// Fills the open stores of the session: base values, employer, employees.
void BuildDemo(ormelix::clsManager& manager, std::ostream& out);
// Walks one employee's month the way a payroll host does, and prints it.
void WalkDemoMonth(ormelix::clsManager& manager, std::ostream& out);

}  // namespace cli
