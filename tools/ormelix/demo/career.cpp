// The demo's careers: the career rows of each employee (entry, a suspension with
// return, an exit and re-entry, fixed-term starts), written the way a host writes
// them: row by row through a recordset, naming the exit reasons of the reference
// store's catalogue. The library reads them; it writes only the Bef_ figures.
// Then the career part of the walk through a month.
#include <iomanip>
#include <vector>

#include "demo/demo.h"
#include "demo/people.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/career_view.h"

namespace cli {

using namespace ormelix;
using DateHelpers::DateSerial;

namespace {

// Codes of the demo's catalogue of exit reasons in the reference store
// (demo/reference.cpp).
constexpr int kKuendigungDienstnehmer = 2;
constexpr int kZeitablauf = 4;

// One row of Mitarbeiter_Laufbahn as the host fills it.
struct StepRow {
  eLaufbahnschritte schritt;
  Date datum;
  std::string anmerkung;
  int grund = 0;  // 0: no reason (Null)
  Date befristet_bis = 0;
  double bruttogehalt = 0;
  double wochengeld_basis = 0;
};

// The severance scheme of 2003 holds for every employment since then: 1.53 %.
constexpr double kAbfertigungNeuProzent = 1.53;

std::vector<StepRow> CareerOf(const demo::Person& p) {
  const double gross = demo::MonthlyGross(p, 2024);
  switch (p.personalnummer) {
    case 1001:  // a suspension (maternity leave and parental leave) with return
      return {{eLBEintritt, p.entry, "Eintritt", 0, 0, 2650},
              {eLBDVRuht, DateSerial(2021, 6, 14), "Mutterschutz und Karenz", 0, 0, 0, 2980.40},
              {eLBEintritt, DateSerial(2022, 9, 1), "Rückkehr aus der Karenz, 40 Stunden", 0, 0, 3050}};
    case 1002:  // an exit and a re-entry
      return {{eLBEintritt, p.entry, "Eintritt", 0, 0, gross},
              {eLBAustritt, DateSerial(2023, 10, 31), "Ende der Saison", kKuendigungDienstnehmer},
              {eLBEintritt, DateSerial(2024, 1, 1), "Wiedereintritt", 0, 0, gross}};
    case 1003:  // an apprenticeship of three years: fixed-term from the start
      return {{eLBEintritt, p.entry, "Lehrverhältnis, drei Jahre", 0,
               DateSerial(DateHelpers::Year(p.entry) + 3, DateHelpers::Month(p.entry), DateHelpers::Day(p.entry) - 1),
               p.pay2024}};
    case 1005:  // a fixed-term season, then a new employment without end
      return {{eLBEintritt, p.entry, "befristet für die Saison", 0, DateSerial(2024, 12, 31), gross},
              {eLBAustritt, DateSerial(2024, 12, 31), "Ende der Befristung", kZeitablauf},
              {eLBEintritt, DateSerial(2025, 1, 1), "unbefristet", 0, 0, demo::MonthlyGross(p, 2025)}};
    default:
      return {{eLBEintritt, p.entry, "Eintritt", 0, 0, gross}};
  }
}

void Line(std::ostream& out, const std::string& what, const std::string& detail) {
  out << "  " << std::left << std::setw(14) << what << detail << "\n";
}

}  // namespace

void AddCareer(clsManager& manager, const std::string& employee, const demo::Person& person) {
  auto rs = manager.AktDB()->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [MitarbeiterID]=" +
                                                         ValueHelpers::SqlID(employee),
                                                     adOpenDynamic, adLockOptimistic);
  for (const StepRow& step : CareerOf(person)) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", employee);
    rs->Collect("Schritt", static_cast<int>(step.schritt));
    rs->Collect("Datum", step.datum);
    rs->Collect("Grund", step.grund ? Variant(step.grund) : Variant::NullValue());
    rs->Collect("Anmerkung", step.anmerkung);
    rs->Collect("Bruttogehalt", step.bruttogehalt);
    rs->Collect("BefristetBeschäftigt", step.befristet_bis != 0);
    if (step.befristet_bis != 0) rs->Collect("BefristetBis", step.befristet_bis);
    rs->Collect("WochengeldBemessungsgrundlage", step.wochengeld_basis);
    if (step.schritt == eLBEintritt) {
      rs->Collect("AbfertigungNeu", true);
      rs->Collect("AbfertigungNeuDatum", step.datum);
      rs->Collect("AbfertigungNeuProzent", kAbfertigungNeuProzent);
    }
    rs->Update();
  }
  rs->Close();
}

void WalkCareer(const LLohn& lohn, std::int32_t period, std::ostream& out) {
  const LLohn_Laufbahnen& career = *lohn.Laufbahn();
  Line(out, "career", "Laufbahn: " + std::to_string(career.Count()) + " steps: " + StepsSummary(&career));
  const auto in_force = career.Laufbahnschritt(period, false, false);
  Line(out, "", "Laufbahnschritt(" + std::to_string(period) + ") = " + StepSummary(*in_force) + ", Index " +
                    std::to_string(in_force->Index));
  LLohn_Laufbahnen::StepPtr entry;
  const bool is_entry = career.IsEintritt(period, entry);
  Line(out, "", "IsEintritt(" + std::to_string(period) + ") = " + (is_entry ? "True" : "False") + ", " +
                    StepSummary(*entry) +
                    (is_entry && entry->Zeitraum() < period ? ": no entry in the month, the step before it decides"
                                                            : ""));
  Line(out, "", "LaufbahnschritteImZeitraum(" + std::to_string(period) + ", " + std::to_string(period) + ") = " +
                    StepsSummary(career.LaufbahnschritteImZeitraum(period, period, true, eALBAlle).get()));
}

}  // namespace cli
