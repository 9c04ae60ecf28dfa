// The parts of ormelix show.
#pragma once

#include <optional>
#include <string>

#include "cli.h"
#include "json.h"
#include "ormelix/session/manager.h"

namespace ormelix {
class clsMandant;
}

namespace cli {

int ShowEmployees(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowBase(ormelix::clsManager& manager, Arguments& args, bool as_json);
int ShowMonth(ormelix::clsManager& manager, Arguments& args, bool as_json);

json::Value EmployerJson(const ormelix::clsMandant& employer);
// Selects the employer with that ID (UsageError for one the store does not hold),
// or the first by name when none is wanted; gives its ID.
std::string SelectEmployer(ormelix::clsManager& manager, const std::optional<std::string>& wanted);

}  // namespace cli
