// LLohn_Jahresdaten: what is settled for one employee for the current year, a row of
// Mitarbeiter_Jahresdaten.
//
// An empty shell so far: the employee object owns one, and its load and save stand
// at their place in LoadMitarbeiter, Update, Refresh and clsMitarbeiter.Add; the
// properties come with the year-data work.
#pragma once

namespace ormelix {

class LLohn_Jahresdaten {};

}  // namespace ormelix
