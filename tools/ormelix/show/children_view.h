// The children as ormelix shows them: show l16, the children part of show month,
// and the words for entitlements that the demo uses too.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "cli.h"
#include "common/json.h"
#include "ormelix/children/kinder.h"
#include "ormelix/session/manager.h"

namespace cli {

int ShowL16(ormelix::clsManager& manager, Arguments& args, bool as_json);

// "Wegfall", "Familienbeihilfenbezieher", ...; a value outside the enumeration as its number.
std::string FBName(ormelix::eFB_Bezieher value);
// "kein FABO", "ganzer FABO", "halber FABO"; a value outside the enumeration as its number.
std::string FABOName(ormelix::eFABO value);
// The names of the children of a selection joined by ", "; "keine" for none.
std::string ChildrenSummary(const ormelix::LLohn_Kinder::Auswahl& children);

// The L16 fields of a child for a span, as the library gives them.
struct L16 {
  bool result = false;
  std::string KSTAAT;
  bool KSTWE = false, KAFBZ = false, KAPFB = false, KAUHZ = false;
  std::int16_t KBGFP = 0, KEGFP = 0, KBHFP = 0, KEHFP = 0;
};
L16 L16Of(const ormelix::LLohn_Kind& child, std::int32_t von, std::int32_t bis);
// "ganzer FABO 1 bis 2, halber FABO 3 bis 8, A, Familienbeihilfenbezieher"; "kein Anspruch" for none.
std::string L16Summary(const L16& fields);

// show month: the children with their entries and their answers for the period
// (the session's AktJahr and AktMonat), and the selections of the period.
json::Value MonthChildrenJson(const ormelix::LLohn_Kinder& kinder, std::int32_t period);
void PrintMonthChildren(std::ostream& out, const ormelix::LLohn_Kinder& kinder, std::int32_t period);

}  // namespace cli
