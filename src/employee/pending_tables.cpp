// The table routines of the employee's children that come with later work. Each
// stands at its place in the load and save order of LLohn and the pay record, and
// does nothing yet.
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"

namespace ormelix::modDatabase {

// Mitarbeiter_Lohnzettel_EL of one pay row into SV_EL_Laufend(m): comes with the replacement benefits.
void LoadErsatzleistungen(clsManager&, LLohn_Ersatzleistungen&, const std::string&) {}
// Delete and insert the replacement-benefit rows of one pay row: comes with the replacement benefits.
void SaveErsatzleistungen(clsManager&, LLohn&, const std::string&, std::int16_t) {}
// Mitarbeiter_Lohnzettel_Kurzarbeit of one pay row into Kurzarbeit(m): comes with the short-time work.
void LoadKurzarbeit(clsManager&, LLohn_Kurzarbeit&, const std::string&) {}
// The short-time row of one pay row: comes with the short-time work.
void SaveKurzarbeit(clsManager&, LLohn_Kurzarbeit&, const std::string&) {}

}  // namespace ormelix::modDatabase
