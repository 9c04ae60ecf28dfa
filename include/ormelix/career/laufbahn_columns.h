/// \file
/// The columns of Mitarbeiter_Laufbahn that a career load reads as they stand, after
/// ID, Schritt, Datum and Grund (which the load reads itself: Datum must be a date,
/// and Grund is looked up in the catalogue of exit reasons), in the order of reading.
/// The Bef_ columns are also the ones UpdateBef writes back, with the crossings the
/// payroll program relies on: the column Bef_Tage2 is read into and written from the
/// property Bef_Tage, and both Bef_EL_Kalendertage columns are written from their
/// getters, which give ELKalendertage.
#pragma once

#include "ormelix/career/laufbahn.h"
#include "ormelix/store/columns.h"

namespace ormelix {

/// The columns of Mitarbeiter_Laufbahn after ID, Schritt, Datum and Grund, in the
/// order of reading (see the file).
const ColumnSet<LLohn_Laufbahn>& LaufbahnColumns();

}  // namespace ormelix
