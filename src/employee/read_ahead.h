// The employee list's read-ahead: the statements LLohn.LoadMitarbeiter runs per
// employee, child and pay row, read for many employees at once.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ormelix/store/store.h"

namespace ormelix {
class clsManager;
}

namespace ormelix::detail {

// Reads ahead, into ahead, what the load of the employees of ids (by row, ""
// for a row that is not loaded) from row on reads, for up to count of them:
// their careers, children and the children's entitlements, master and bank
// rows, wage-type lines, pay rows with the replacement benefits and short-time
// rows of the year's months, transfers, year data of AktJahr and passwords. Two
// reads (the second for the keys the first gives), each of one statement per
// table. Gives the row after the last one read ahead for.
std::size_t ReadAheadEmployees(StoreReadAhead& ahead, const clsManager& manager, const std::vector<std::string>& ids,
                               std::size_t row, std::size_t count);

}  // namespace ormelix::detail
