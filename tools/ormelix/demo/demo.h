// The demo store and the walk through one employee's month.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "ormelix/session/manager.h"

namespace ormelix {
class clsBasisordner;
class LLohn;
}  // namespace ormelix

namespace cli::demo {
struct Person;
}

namespace cli {

// The Standard folder with the dated tables of 2024 and 2025 and a restore folder.
std::shared_ptr<ormelix::clsBasisordner> BuildBaseValues(ormelix::clsManager& manager, std::ostream& out);
// The employees (five named ones and `extra` generated ones) with their pay months.
void BuildEmployees(ormelix::clsManager& manager, const std::shared_ptr<ormelix::clsBasisordner>& folder, int extra,
                    std::ostream& out);
// Fills the open stores of the session: base values, employer, employees.
void BuildDemo(ormelix::clsManager& manager, int extra_employees, std::ostream& out);
// An employee's career rows, written the way a host writes them.
void AddCareer(ormelix::clsManager& manager, const std::string& employee, const demo::Person& person);
// What the career answers for the walk's month.
void WalkCareer(const ormelix::LLohn& lohn, std::int32_t period, std::ostream& out);
// An employee's children and their entitlements, written the way a host writes them.
void AddChildren(ormelix::clsManager& manager, const std::string& employee, const demo::Person& person);
// What the children answer for the walk's month, and their L16 data of its year.
void WalkChildren(const ormelix::LLohn& lohn, std::int32_t period, std::ostream& out);
// Walks one employee's month the way a payroll host does, and prints it.
void WalkDemoMonth(ormelix::clsManager& manager, std::ostream& out);

}  // namespace cli
