/// \file
/// The value columns of Mitarbeiter_Sachbezüge, after the keys ID, MitarbeiterID and
/// Zeitraum, in table order: each read into and written from the property of its
/// name, booleans by ToFlag, 16-bit integers by ToInteger, doubles by ToAmount. The
/// one list drives load, save and the reset to defaults.
#pragma once

#include "ormelix/benefits/sachbezuege.h"
#include "ormelix/store/columns.h"

namespace ormelix {

/// The value columns of Mitarbeiter_Sachbezüge, in table order (see the file).
const ColumnSet<clsMitarbeiter_Sachbezüge>& SachbezuegeColumns();

}  // namespace ormelix
