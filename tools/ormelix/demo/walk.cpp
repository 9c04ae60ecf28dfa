// The walk through one employee's month, the road a payroll host takes: session,
// employer, base values of the month, the employee's master data and pay month.
#include <iomanip>

#include "common/table.h"
#include "demo/benefits.h"
#include "demo/demo.h"
#include "demo/figures.h"
#include "demo/lines.h"
#include "demo/people.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

using namespace ormelix;

namespace {

constexpr std::int16_t kYear = 2025;
constexpr std::int16_t kMonth = 3;
constexpr std::int16_t kPersonalnummer = 1001;

void Step(std::ostream& out, const std::string& what, const std::string& detail) {
  out << "  " << std::left << std::setw(14) << what << detail << "\n";
}

std::string TableName(const LBasis& table) {
  return "\"" + table.Bezeichnung + "\" (from " + std::to_string(table.Zeitraum()->Item) + ")";
}

void PrintRates(std::ostream& out, const LBasis& table) {
  const LBasis_SA& sa = *table.SA();
  struct Line {
    const char* name;
    const std::shared_ptr<LBasis_SA_Wert>& rate;
  } lines[] = {{"Krankenversicherung", sa.Krankenversicherung()},   {"Pensionsversicherung", sa.Pensionsversicherung()},
               {"Arbeitslosenversicherung", sa.Arbeitslosenversicherung()}, {"Arbeiterkammerumlage", sa.Kammerumlage()},
               {"Wohnbauförderung", sa.Wohnbaufoederung()},         {"Unfallversicherung", sa.Unfallversicherung()},
               {"IESG-Zuschlag", sa.IESGZuschlag()}};
  TextTable rates;
  rates.Column("Beitrag");
  for (const char* header : {"DN %", "DG %", "Obergrenze"}) rates.Column(header, TextTable::Right);
  double employee = 0, employer = 0;
  for (const Line& line : lines) {
    rates.Row({line.name, Number(line.rate->Prozent), Number(line.rate->Prozent_DG), Amount(line.rate->Obergrenze)});
    employee += line.rate->Prozent;
    employer += line.rate->Prozent_DG;
  }
  rates.Row({"Summe", Number(employee), Number(employer), ""});
  rates.Print(out, "    ");
  const LBasis_DG& dg = *table.DG();
  out << "    Dienstgeber: DB (FALAST) " << Number(dg.GetFALASTAngestellte(false)) << " %, DZ Wien "
      << Number(dg.DZBL(eBasisWien)->Angestellte) << " %, Kommunalsteuer " << Number(dg.Kommunalsteuer()->Angestellte)
      << " %; Geringfügigkeitsgrenze " << Amount(sa.GrenzbetragGeringBeschaeftigte()->Obergrenze) << " EUR\n";
}

}  // namespace

void WalkDemoMonth(clsManager& manager, std::ostream& out) {
  out << "\nWalk: one employee's month, as a payroll host takes it\n";
  manager.AktJahr = kYear;
  manager.AktMonat = kMonth;
  auto ids = manager.AktDB()->Session().OpenRecordset("SELECT [ID] FROM [Mandanten] ORDER BY [Nr] ASC");
  manager.ChangeAktMandant(ValueHelpers::ToText(ids->Fields("ID")));
  Step(out, "session", "AktJahr " + std::to_string(kYear) + ", AktMonat " + std::to_string(kMonth) + ", period " +
                           std::to_string(manager.GetZeitraum()) + ", employer " + manager.AktMandant()->Name);
  manager.Basis()->Load();
  manager.Mitarbeiter()->Load(kYear, lcPersonalnummer);
  Step(out, "employees", "Mitarbeiter.Load(" + std::to_string(kYear) + "): " +
                             std::to_string(manager.Mitarbeiter()->Count()) + " employees in the year");
  std::shared_ptr<LLohn> lohn;
  for (const auto& candidate : *manager.Mitarbeiter())
    if (candidate->Mitarbeiter()->Personalnummer == kPersonalnummer) lohn = candidate;
  if (!lohn) throw Error("the demo employee " + std::to_string(kPersonalnummer) + " is missing");
  manager.ChangeAktMitarbeiter(lohn->ID());
  const LLohn_Arbeiter& a = *lohn->Mitarbeiter();
  Step(out, "employee", "ChangeAktMitarbeiter: " + std::to_string(a.Personalnummer) + " " + a.Titel + " " + a.VName +
                            " " + a.FName + ", Index " + std::to_string(manager.AktMitarbeiterIndex) + ", " + lohn->ID());

  WalkCareer(*lohn, manager.GetZeitraum(), out);
  WalkChildren(*lohn, manager.GetZeitraum(), out);

  auto folder = manager.Basis()->Item(Variant(lohn->BasisID));
  Step(out, "base values", "Basis.Item(BasisID) = folder \"" + folder->Bezeichnung + "\"");
  auto table = folder->Zeittabellen()->GetZeittabelle(manager.GetZeitraum());
  Step(out, "", "GetZeittabelle(" + std::to_string(manager.GetZeitraum()) + ") = " + TableName(*table));
  Step(out, "", "GetZeittabelle(202406) = " + TableName(*folder->Zeittabellen()->GetZeittabelle(202406)));
  Step(out, "", "GetZeittabelle(202312) = " + TableName(*folder->Zeittabellen()->GetZeittabelle(202312)) +
                    ": a month before the first table gets the newest one");
  out << "  rates of the month (" << TableName(*table) << ", white-collar employees):\n";
  PrintRates(out, *table);

  Step(out, "master data", "born " + DateHelpers::FormatDate(lohn->Geb_Datum) + ", SV-Nr " + a.Vers_Nr + ", " +
                               a.Adresse + ", " + a.PLZ + " " + a.Ort + ", " + a.Beschaeftigt);
  Step(out, "", "bank " + lohn->BankName + ", IBAN " + lohn->IBAN + ", BIC " + lohn->BIC);
  const int m = kMonth;
  Step(out, "pay month", "Gehalt " + Amount(lohn->Gehalt(m)) + ", LFD_Bezuege " + Amount(lohn->LFD_Bezuege(m)) +
                             ", " + DateHelpers::FormatDate(lohn->Von_Datum(m)) + " to " +
                             DateHelpers::FormatDate(lohn->Bis_Datum(m)));
  Step(out, "", "SV_Laufend_Basis " + Amount(lohn->SV_Laufend_Basis(m)) + ", SV_Laufend (DN) " +
                    Amount(lohn->SV_Laufend(m)) + ", SV_Laufend_DG " + Amount(lohn->SV_Laufend_DG(m)));
  demo::WalkLinesAndYear(out, *lohn, kYear, m);
  // The host works the month out again from the base values and compares.
  demo::Person person = demo::People(0).front();
  demo::Contributions c = demo::WorkOut(person, lohn->LFD_Bezuege(m), *table);
  bool same = c.employee == RoundingHelpers::RoundTo(lohn->SV_Laufend(m), 2) &&
              c.employer == RoundingHelpers::RoundTo(lohn->SV_Laufend_DG(m), 2);
  Step(out, "check", Amount(c.basis) + " x " + Number(c.employee_percent) + " % = " + Amount(c.employee) + " DN, x " +
                         Number(c.employer_percent) + " % = " + Amount(c.employer) + " DG: " +
                         (same ? "as stored" : "DIFFERS from the stored month"));
  demo::WalkShortTimeAndBenefits(manager, out, kYear, m);
}

}  // namespace cli
