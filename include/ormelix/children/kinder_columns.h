/// \file
/// The columns of Mitarbeiter_Kinder and Mitarbeiter_Kinder_ZB as a load reads them,
/// in order, each with the property it fills (GebDatum fills Geburtsdatum). The
/// library never writes these tables, so no column is written.
#pragma once

#include "ormelix/children/kind.h"
#include "ormelix/children/kind_zeitbezug.h"
#include "ormelix/store/columns.h"

namespace ormelix {

/// The columns of Mitarbeiter_Kinder as a load reads them.
const ColumnSet<LLohn_Kind>& KindColumns();
/// The columns of Mitarbeiter_Kinder_ZB as a load reads them.
const ColumnSet<LLohn_Kind_Zeitbezug>& ZeitbezugColumns();

}  // namespace ormelix
