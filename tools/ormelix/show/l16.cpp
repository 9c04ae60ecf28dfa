// ormelix show l16: the per-child fields of the wage slip L16 for a year.
#include <iostream>

#include "common/table.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/children_view.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;

namespace {

const char* YesNo(bool value) { return value ? "ja" : "nein"; }

std::string Month(std::int16_t month) { return month == 0 ? "" : std::to_string(month); }

// A bonus period of a kind: "ganzer FABO 1 bis 2"; "" when it has no first month.
std::string BonusPeriod(const char* kind, std::int16_t first, std::int16_t last) {
  if (first == 0) return "";
  return std::string(kind) + " " + std::to_string(first) + " bis " + (last == 0 ? "offen" : std::to_string(last));
}

json::Value L16Json(const LLohn_Kind& child, const L16& f) {
  json::Value j = json::Value::MakeObject();
  j.Set("ID", child.ID);
  j.Set("Name", child.Name());
  j.Set("Geburtsdatum", DateHelpers::FormatDate(child.Geburtsdatum));
  j.Set("GetL16Daten", f.result);
  j.Set("KSTAAT", f.KSTAAT);
  j.Set("KSTWE", f.KSTWE);
  j.Set("KAFBZ", f.KAFBZ);
  j.Set("KAPFB", f.KAPFB);
  j.Set("KAUHZ", f.KAUHZ);
  j.Set("KBGFP", static_cast<int>(f.KBGFP));
  j.Set("KEGFP", static_cast<int>(f.KEGFP));
  j.Set("KBHFP", static_cast<int>(f.KBHFP));
  j.Set("KEHFP", static_cast<int>(f.KEHFP));
  return j;
}

}  // namespace

L16 L16Of(const LLohn_Kind& child, std::int32_t von, std::int32_t bis) {
  L16 f;
  f.result = child.GetL16Daten(von, bis, f.KSTAAT, f.KSTWE, f.KAFBZ, f.KAPFB, f.KAUHZ, f.KBGFP, f.KEGFP, f.KBHFP,
                               f.KEHFP);
  return f;
}

std::string L16Summary(const L16& f) {
  if (!f.result) return "kein Anspruch";
  std::string text;
  for (const std::string& part : {BonusPeriod("ganzer FABO", f.KBGFP, f.KEGFP),
                                  BonusPeriod("halber FABO", f.KBHFP, f.KEHFP), f.KSTAAT + (f.KSTWE ? " (gewechselt)" : ""),
                                  std::string(f.KAFBZ   ? "Familienbeihilfenbezieher"
                                              : f.KAPFB ? "Partner Familienbeihilfenbezieher"
                                              : f.KAUHZ ? "Unterhaltszahler"
                                                        : "")})
    if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
  return text;
}

int ShowL16(clsManager& manager, Arguments& args, bool as_json) {
  const EmployeeOfYear e = LoadEmployeeOfYear(manager, args, "l16", 12);
  const std::int32_t von = ValueHelpers::MakeZeitraum(1, e.year);
  const std::int32_t bis = ValueHelpers::MakeZeitraum(12, e.year);
  const LLohn_Kinder& kinder = *e.lohn->Kinder();
  if (as_json) {
    json::Value doc = json::Value::MakeObject();
    doc.Set("employee", EmployeeBrief(*e.lohn));
    doc.Set("year", static_cast<int>(e.year));
    doc.Set("pVonZeitraum", static_cast<long>(von));
    doc.Set("pBisZeitraum", static_cast<long>(bis));
    json::Value& children = doc.Set("Kinder", json::Value::MakeArray());
    for (const auto& child : kinder) children.Push(L16Json(*child, L16Of(*child, von, bis)));
    std::cout << doc.Dump();
    return 0;
  }
  std::cout << EmployeeHeading(*e.lohn) << "\n";
  std::cout << manager.AktMandant()->Name << ", L16-Daten " << e.year << " (GetL16Daten " << von << " bis " << bis
            << ")\n\n";
  if (kinder.Count() == 0) {
    std::cout << "  keine Kinder\n";
    return 0;
  }
  TextTable table;
  for (const char* header : {"Kind", "Geburtsdatum", "GetL16Daten", "KSTAAT", "KSTWE", "KAFBZ", "KAPFB", "KAUHZ"})
    table.Column(header);
  for (const char* header : {"KBGFP", "KEGFP", "KBHFP", "KEHFP"}) table.Column(header, TextTable::Right);
  for (const auto& child : kinder) {
    const L16 f = L16Of(*child, von, bis);
    table.Row({child->Name(), DateHelpers::FormatDate(child->Geburtsdatum), f.result ? "True" : "False", f.KSTAAT,
               YesNo(f.KSTWE), YesNo(f.KAFBZ), YesNo(f.KAPFB), YesNo(f.KAUHZ), Month(f.KBGFP), Month(f.KEGFP),
               Month(f.KBHFP), Month(f.KEHFP)});
  }
  table.Print(std::cout, "  ");
  std::cout << "\n  KBGFP/KEGFP: erster/letzter Monat des ganzen, KBHFP/KEHFP des halben Familienbonus;\n"
               "  KAFBZ/KAPFB/KAUHZ: Familienbeihilfe bezieht der Dienstnehmer/der Partner, oder er zahlt Unterhalt\n";
  return 0;
}

}  // namespace cli
