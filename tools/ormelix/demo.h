// The demo store and the walk through one employee's month.
#pragma once

#include <memory>
#include <ostream>

#include "ormelix/session/manager.h"

namespace ormelix {
class clsBasisordner;
}

namespace cli {

// The Standard folder with the dated tables of 2024 and 2025 and a restore folder.
std::shared_ptr<ormelix::clsBasisordner> BuildBaseValues(ormelix::clsManager& manager, std::ostream& out);
// The employees (five named ones and `extra` generated ones) with their pay months.
void BuildEmployees(ormelix::clsManager& manager, const std::shared_ptr<ormelix::clsBasisordner>& folder, int extra,
                    std::ostream& out);
// Fills the open stores of the session: base values, employer, employees.
void BuildDemo(ormelix::clsManager& manager, int extra_employees, std::ostream& out);
// Walks one employee's month the way a payroll host does, and prints it.
void WalkDemoMonth(ormelix::clsManager& manager, std::ostream& out);

}  // namespace cli
