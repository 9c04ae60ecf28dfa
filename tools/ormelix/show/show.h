// The views of ormelix show (one per file in this folder) and what they share:
// choosing the employer, the employee and the base values they look at.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <vector>
#include <string>

#include "cli.h"
#include "common/json.h"
#include "common/values.h"
#include "ormelix/session/manager.h"

namespace ormelix {
class LLohn;
class clsMandant;
class clsBasisordner;
class LBasis;
}  // namespace ormelix

namespace cli {

int ShowEmployers(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowEmployees(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowBase(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowMonth(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowCountries(ormelix::clsManager& manager, Arguments& args, bool as_json);
// The side records of AktMandant: into its JSON object, and as text.
void AddSideRecords(ormelix::clsManager& manager, json::Value& employer, std::ostream& text);

// The dated table in force for a period, in the Standard folder or a named one.
struct BaseSelection {
  std::int32_t period = 0;
  std::shared_ptr<ormelix::clsBasisordner> folder;
  std::shared_ptr<ormelix::LBasis> table;
  bool fallback = false;  // the period lies before the folder's first table
};
// Loads the base values and selects; UsageError for an unknown folder, a store
// without a Standard folder, or a folder without tables.
BaseSelection SelectBase(ormelix::clsManager& manager, std::int32_t period, const std::optional<std::string>& folder);

json::Value EmployerJson(const ormelix::clsMandant& employer);
// Selects the employer with that ID (UsageError for one the store does not hold),
// or the first by name when none is wanted; gives its ID.
std::string SelectEmployer(ormelix::clsManager& manager, const std::optional<std::string>& wanted);
// The ID of the current employer's employee named by ID or by Personalnummer;
// UsageError for one the employer does not have.
std::string FindEmployee(ormelix::clsManager& manager, const std::string& wanted);

// The employee of a year that show career and show l16 look at: --employee, --year
// and --employer taken from the arguments (UsageError for one missing or unknown),
// the employer selected, AktJahr the year and AktMonat `month`, and the employee
// loaded for that year.
struct EmployeeOfYear {
  std::int16_t year = 0;
  std::shared_ptr<ormelix::LLohn> lohn;
};
EmployeeOfYear LoadEmployeeOfYear(ormelix::clsManager& manager, Arguments& args, const std::string& what,
                                  std::int16_t month);
// An employee (LLohn) keyed by property names: its own, those of its personal data
// under Mitarbeiter, and the bank details, which are properties of LLohn too.
json::Value EmployeeJson(ormelix::LLohn& lohn);
// Who the employee is: ID, Personalnummer, Familienname, VorName.
json::Value EmployeeBrief(const ormelix::LLohn& lohn);
// "Huber Anna (Personalnummer 1001, {...})"
std::string EmployeeHeading(const ormelix::LLohn& lohn);

}  // namespace cli
