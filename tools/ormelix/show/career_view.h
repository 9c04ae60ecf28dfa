// The career as ormelix shows it: show career, the career part of show month, and
// the words for steps that the demo uses too.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "cli.h"
#include "common/json.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/session/manager.h"

namespace cli {

int ShowCareer(ormelix::clsManager& manager, Arguments& args, bool as_json);

// "Eintritt", "DV ruht", "Austritt", "BKZ-Eintritt", "BKZ-Austritt", "kein Schritt".
std::string StepName(ormelix::eLaufbahnschritte schritt);
// "Eintritt 2022-09-01" with the reason's short form if any; "kein Schritt" for a blank step.
std::string StepSummary(const ormelix::LLohn_Laufbahn& step);
// The summaries of a list joined by ", "; "keine" for none or an unset list.
std::string StepsSummary(const ormelix::LLohn_Laufbahnen* steps);

// Every property of a step, each key once.
json::Value StepJson(ormelix::LLohn_Laufbahn& step);

// show month: the step in force for the period, whether an entry or a suspension
// decides the month, and the steps of the period's year.
json::Value MonthCareerJson(const ormelix::LLohn_Laufbahnen& career, std::int32_t period);
void PrintMonthCareer(std::ostream& out, const ormelix::LLohn_Laufbahnen& career, std::int32_t period);

}  // namespace cli
