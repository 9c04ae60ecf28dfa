// What the demo host enters for short-time work, benefits in kind and a
// replacement benefit, and how the walk shows them.
#pragma once

#include <ostream>

#include "demo/people.h"
#include "ormelix/basevalues/basis.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/session/manager.h"

namespace cli::demo {

// The demo's short-time month (the cook, from 17 March 2025), the replacement
// benefit of the marginally employed waitress's last month (December 2024, sick
// from the 16th) and the managing director's company car and flat (January to
// March 2025), where the person's month is one of them: fills the short-time
// record or the list of benefits of the month and works the month's pay and
// contributions out again, or saves the benefits in kind through
// clsMitarbeiter_Sachbezüge and puts their value into the month's Sachbezug.
// Called after the month's wage-type lines are in; the pay month is saved after.
void AddShortTimeAndBenefits(ormelix::clsManager& manager, ormelix::LLohn& lohn, const Person& person, int year,
                             int month, const ormelix::LBasis& table);

// The walk's lines: the short-time figures of the short-time month, and the
// benefits in kind of the walk's month as a host loads them.
void WalkShortTimeAndBenefits(ormelix::clsManager& manager, std::ostream& out, int year, int month);

}  // namespace cli::demo
