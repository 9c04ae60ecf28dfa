// The children part of ormelix show month: each child with its entries and its
// answers for the month, and which children the month's questions select.
#include "common/table.h"
#include "common/values.h"
#include "ormelix/children/kinder_columns.h"
#include "ormelix/store/date_helpers.h"
#include "show/children_view.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using Auswahl = LLohn_Kinder::Auswahl;

namespace {

// The questions of a month, by name, in the order of the class.
struct Question {
  const char* name;
  Auswahl (LLohn_Kinder::*ask)(std::int32_t) const;
};
const Question kQuestions[] = {
    {"GetFABOKinderOhneUnterhaltszahler", &LLohn_Kinder::GetFABOKinderOhneUnterhaltszahler},
    {"GetFABOKinderUnterhaltszahler", &LLohn_Kinder::GetFABOKinderUnterhaltszahler},
    {"GetFABOKinder", &LLohn_Kinder::GetFABOKinder},
    {"GetFABOKinderWegfall", &LLohn_Kinder::GetFABOKinderWegfall},
    {"GetFABOKinderAenderung", &LLohn_Kinder::GetFABOKinderAenderung},
    {"GetAVAEKinder", &LLohn_Kinder::GetAVAEKinder},
    {"GetAVAEKinderWegfall", &LLohn_Kinder::GetAVAEKinderWegfall},
    {"GetAVAEKinderAenderung", &LLohn_Kinder::GetAVAEKinderAenderung},
};

// The few properties that tell children apart, for the selections.
json::Value ChildBrief(const LLohn_Kind& child) {
  json::Value j = json::Value::MakeObject();
  j.Set("ID", child.ID);
  j.Set("Name", child.Name());
  return j;
}

json::Value ChildJson(LLohn_Kind& child) {
  json::Value j = ColumnsJson(KindColumns(), child);
  j.Set("Name", child.Name());
  json::Value& entries = j.Set("Zeitbezuege", json::Value::MakeArray());
  for (const auto& entry : *child.Zeitbezuege()) entries.Push(ColumnsJson(ZeitbezugColumns(), *entry));
  return j;
}

// The child's answers for the session's period.
void AddAnswers(json::Value& j, const LLohn_Kind& child, std::int32_t period) {
  const auto in_force = child.Zeitbezuege()->GetZB(period);
  j.Set("GetZB", in_force ? json::Value(in_force->ID) : json::Value(nullptr));
  bool avae = false;
  j.Set("Eingang", static_cast<long>(child.Eingang(avae)));
  j.Set("retIsAVAE", avae);
  j.Set("ZUab", static_cast<long>(child.ZUab()));
  j.Set("Abgang", static_cast<long>(child.Abgang()));
}

std::string Period(std::int32_t period) { return period == 0 ? "" : std::to_string(period); }

void PrintChildren(std::ostream& out, const LLohn_Kinder& kinder, std::int32_t period) {
  TextTable table;
  for (const char* header : {"Kind", "Geburtsdatum", "VersNr", "GetZB", "Eingang", "retIsAVAE", "ZUab", "Abgang"})
    table.Column(header);
  for (const auto& child : kinder) {
    const auto in_force = child->Zeitbezuege()->GetZB(period);
    bool avae = false;
    const std::int32_t eingang = child->Eingang(avae);
    table.Row({child->Name(), DateHelpers::FormatDate(child->Geburtsdatum), child->VersNr,
               in_force ? std::to_string(in_force->Zeitraum) : "keiner", Period(eingang), avae ? "ja" : "nein",
               Period(child->ZUab()), Period(child->Abgang())});
  }
  table.Print(out, "  ");
}

void PrintEntries(std::ostream& out, const LLohn_Kinder& kinder) {
  TextTable table;
  for (const char* header : {"Kind", "Zeitraum", "KFZ", "FB_Bezieher", "FABO", "FABO18", "AVAB", "Kinderzuschlag_ab"})
    table.Column(header);
  for (const auto& child : kinder)
    for (const auto& e : *child->Zeitbezuege())
      table.Row({child->Name(), std::to_string(e->Zeitraum), e->KFZ, FBName(e->FB_Bezieher), FABOName(e->FABO),
                 e->FABO18 ? "ja" : "nein", e->AVAB ? "ja" : "nein", Period(e->Kinderzuschlag_ab)});
  table.Print(out, "  ");
}

}  // namespace

std::string FBName(eFB_Bezieher value) {
  switch (value) {
    case eFBB_Wegfall: return "0 Wegfall";
    case eFBB_Familienbeihilfenbezieher: return "1 Familienbeihilfenbezieher";
    case eFBB_Partner_Familienbeihilfenbezieher: return "2 Partner Familienbeihilfenbezieher";
    case eFBB_Unterhaltszahler: return "3 Unterhaltszahler";
  }
  return std::to_string(value);
}

std::string FABOName(eFABO value) {
  switch (value) {
    case eFABO_kein_FABO: return "kein FABO";
    case eFABO_ganzer_FABO: return "ganzer FABO";
    case eFABO_halber_FABO: return "halber FABO";
  }
  return "FABO " + std::to_string(value);
}

std::string ChildrenSummary(const Auswahl& children) {
  std::string text;
  for (const auto& child : children) text += (text.empty() ? "" : ", ") + child->Name();
  return text.empty() ? "keine" : text;
}

json::Value MonthChildrenJson(const LLohn_Kinder& kinder, std::int32_t period) {
  json::Value j = json::Value::MakeObject();
  j.Set("Count", kinder.Count());
  json::Value& items = j.Set("Item", json::Value::MakeArray());
  for (const auto& child : kinder) {
    json::Value& c = items.Push(ChildJson(*child));
    AddAnswers(c, *child, period);
  }
  for (const Question& q : kQuestions) {
    json::Value& list = j.Set(q.name, json::Value::MakeArray());
    for (const auto& child : (kinder.*q.ask)(period)) list.Push(ChildBrief(*child));
  }
  return j;
}

void PrintMonthChildren(std::ostream& out, const LLohn_Kinder& kinder, std::int32_t period) {
  out << "\nKinder " << period << " (L16-Daten: ormelix show l16)\n";
  if (kinder.Count() == 0) {
    out << "  keine Kinder\n";
    return;
  }
  PrintChildren(out, kinder, period);
  out << "\n  Zeitbezuege\n";
  PrintEntries(out, kinder);
  std::vector<ColumnValue> selections;
  for (const Question& q : kQuestions)
    selections.push_back({q.name, std::nullopt, Variant(ChildrenSummary((kinder.*q.ask)(period)))});
  PrintPairs(out, "Kinder: Auswahl " + std::to_string(period), selections);
}

}  // namespace cli
