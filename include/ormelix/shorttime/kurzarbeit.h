// LLohn_Kurzarbeit: the short-time work record of one employee and month, a row of
// Mitarbeiter_Lohnzettel_Kurzarbeit beside the monthly pay row.
//
// An empty shell so far: the employee object holds one per month (1 to 12) and the
// pay record calls its load and save at their place; the stored and computed
// properties come with the short-time work.
#pragma once

namespace ormelix {

class LLohn_Kurzarbeit {};

}  // namespace ormelix
