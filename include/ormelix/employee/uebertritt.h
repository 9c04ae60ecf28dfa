// LLohn_Übertritt: a change of contribution group within one month, a row of
// Mitarbeiter_Übertritte.
//
// An empty shell so far: the employee object holds one per month (1 to 12), and the
// load and save of the table stand at their place in LoadMitarbeiter, Update and
// Refresh; the properties come with the transfers work.
#pragma once

namespace ormelix {

class LLohn_Übertritt {};

}  // namespace ormelix
