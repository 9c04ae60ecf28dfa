// The demo's children: the rows of Mitarbeiter_Kinder and Mitarbeiter_Kinder_ZB of
// some employees, written the way a host writes them (row by row through a
// recordset; the library only reads these tables), with family-bonus and
// sole-earner entitlements over 2024 and 2025. Then the children part of the walk
// through a month.
#include <iomanip>
#include <vector>

#include "demo/demo.h"
#include "demo/people.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/children_view.h"

namespace cli {

using namespace ormelix;
using DateHelpers::DateSerial;

namespace {

// One row of Mitarbeiter_Kinder_ZB as the host fills it.
struct EntryRow {
  std::int32_t zeitraum;
  eFB_Bezieher fb;
  eFABO fabo;
  bool avab;
  const char* kfz = "A";
  bool fabo18 = false;
};

// One child with its entries. The names and insurance numbers are made up.
struct ChildRow {
  std::string vorname, nachname, versnr;
  Date geburtsdatum;
  std::vector<EntryRow> entries;
};

std::vector<ChildRow> ChildrenOf(const demo::Person& p) {
  switch (p.personalnummer) {
    case 1001:  // two children: Lukas turns 18 in August 2025, Marie 6 in May 2025
      return {{"Lukas", "Huber", "1238 210807", DateSerial(2007, 8, 21),
               {{202401, eFBB_Familienbeihilfenbezieher, eFABO_ganzer_FABO, true},
                // from March 2025 the partner claims half of the bonus
                {202503, eFBB_Familienbeihilfenbezieher, eFABO_halber_FABO, true}}},
              {"Marie", "Huber", "1239 100519", DateSerial(2019, 5, 10),
               {{202401, eFBB_Familienbeihilfenbezieher, eFABO_ganzer_FABO, true}}}};
    case 1002:  // a daughter born on 29 February, living in Croatia; he pays maintenance
      return {{"Sofia", "Berger", "", DateSerial(2012, 2, 29),
               {{202401, eFBB_Unterhaltszahler, eFABO_ganzer_FABO, false, "HR"}}}};
    case 1004:  // a son past 18 in education, then the allowance ends in October 2024
      return {{"Paul", "Wagner", "4565 301105", DateSerial(2005, 11, 30),
               {{202401, eFBB_Partner_Familienbeihilfenbezieher, eFABO_halber_FABO, false, "A", true},
                {202410, eFBB_Wegfall, eFABO_kein_FABO, false}}}};
    default:
      return {};
  }
}

void Line(std::ostream& out, const std::string& what, const std::string& detail) {
  out << "  " << std::left << std::setw(14) << what << detail << "\n";
}

std::string Ask(const LLohn_Kinder& kinder, const char* name, LLohn_Kinder::Auswahl (LLohn_Kinder::*ask)(std::int32_t) const,
                std::int32_t period) {
  return std::string(name) + "(" + std::to_string(period) + ") = " + ChildrenSummary((kinder.*ask)(period));
}

// The share of the bonus in force for a month, as the history has it.
std::string ShareIn(const LLohn_Kind& child, std::int32_t period) {
  const auto entry = child.Zeitbezuege()->GetZB(period);
  return entry ? FABOName(entry->FABO) : "kein Eintrag";
}

std::int32_t MonthBefore(std::int32_t period) {
  return ValueHelpers::DateToZeitraum(DateHelpers::ZeitraumToDate(period, 1) - 1);
}

}  // namespace

void AddChildren(clsManager& manager, const std::string& employee, const demo::Person& person) {
  StoreSession& db = manager.AktDB()->Session();
  for (const ChildRow& c : ChildrenOf(person)) {
    auto child = db.OpenRecordset("SELECT * FROM [Mitarbeiter_Kinder] WHERE [MitarbeiterID]=" +
                                      ValueHelpers::SqlID(employee),
                                  adOpenDynamic, adLockOptimistic);
    child->AddNew();
    child->Collect("MitarbeiterID", employee);
    child->Collect("VorName", c.vorname);
    child->Collect("Nachname", c.nachname);
    child->Collect("VersNr", c.versnr);
    child->Collect("GebDatum", c.geburtsdatum);
    child->Update();
    const std::string kid = DateHelpers::GetNewRowID(*child);
    child->Close();
    auto entries = db.OpenRecordset("SELECT * FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" + ValueHelpers::SqlID(kid),
                                    adOpenDynamic, adLockOptimistic);
    for (const EntryRow& e : c.entries) {
      entries->AddNew();
      entries->Collect("KID", kid);
      entries->Collect("Zeitraum", e.zeitraum);
      entries->Collect("KFZ", e.kfz);
      entries->Collect("Kinderzuschlag_ab", e.zeitraum);
      entries->Collect("FB_Bezieher", static_cast<int>(e.fb));
      entries->Collect("FABO", static_cast<int>(e.fabo));
      entries->Collect("FABO18", e.fabo18);
      entries->Collect("AVAB", e.avab);
      entries->Update();
    }
    entries->Close();
  }
}

void WalkChildren(const LLohn& lohn, std::int32_t period, std::ostream& out) {
  const LLohn_Kinder& kinder = *lohn.Kinder();
  std::string list;
  for (const auto& child : kinder)
    list += (list.empty() ? "" : ", ") + child->Name() + " " + DateHelpers::FormatDate(child->Geburtsdatum);
  Line(out, "children", "Kinder: " + std::to_string(kinder.Count()) + ": " + (list.empty() ? "keine" : list));
  Line(out, "", Ask(kinder, "GetFABOKinder", &LLohn_Kinder::GetFABOKinder, period));
  Line(out, "", Ask(kinder, "GetAVAEKinder", &LLohn_Kinder::GetAVAEKinder, period));
  const std::int32_t before = MonthBefore(period);
  for (const auto& child : kinder.GetFABOKinderAenderung(period))
    Line(out, "", "GetFABOKinderAenderung(" + std::to_string(period) + ") = " + child->Name() + ": " +
                      ShareIn(*child, before) + " in " + std::to_string(before) + ", " + ShareIn(*child, period) +
                      " from " + std::to_string(period));
  Line(out, "", Ask(kinder, "GetFABOKinderWegfall", &LLohn_Kinder::GetFABOKinderWegfall, period) + ", " +
                    Ask(kinder, "GetAVAEKinderWegfall", &LLohn_Kinder::GetAVAEKinderWegfall, period));
  Line(out, "", Ask(kinder, "GetAVAEKinderAenderung", &LLohn_Kinder::GetAVAEKinderAenderung, period));
  for (const auto& child : kinder) {
    bool avae = false;
    const std::int32_t eingang = child->Eingang(avae);
    const std::int32_t eighteen =
        DateHelpers::ZeitraumAddYears(ValueHelpers::DateToZeitraum(child->Geburtsdatum), Variant(18));
    Line(out, "", child->Name() + ": Eingang " + std::to_string(eingang) + " (retIsAVAE " + (avae ? "True" : "False") +
                      "), ZUab " + std::to_string(child->ZUab()) + ", Abgang " + std::to_string(child->Abgang()) +
                      "; turns 18 in " + std::to_string(eighteen));
  }
  const std::int32_t year = period / 100;
  for (const auto& child : kinder)
    Line(out, "", "GetL16Daten(" + std::to_string(year * 100 + 1) + ", " + std::to_string(year * 100 + 12) + ") " +
                      child->Name() + ": " + L16Summary(L16Of(*child, year * 100 + 1, year * 100 + 12)));
}

}  // namespace cli
