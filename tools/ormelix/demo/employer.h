// The demo's reference catalogues and the employer's side records.
#pragma once

#include <ostream>

#include "ormelix/session/manager.h"

namespace ormelix {
class clsMandant;
}

namespace cli {

// Writes the catalogues of the reference store (municipalities, provision funds,
// exit reasons, countries with indicators) the way a host does: row by row
// through the store, since the library only reads them.
void BuildReference(ormelix::clsManager& manager, std::ostream& out);
// Gives the saved employer its bank, tax office, municipal office, provision fund,
// year data of 2024 and 2025, contribution accounts and document protection.
void BuildEmployerRecords(ormelix::clsManager& manager, ormelix::clsMandant& employer, std::ostream& out);
// A document password of the employee with this Personalnummer.
void SetEmployeePassword(ormelix::clsManager& manager, int personalnummer, const std::string& password,
                         std::ostream& out);

}  // namespace cli
