// The demo's short-time month, replacement benefit and benefits in kind, entered
// the way a host enters them, and the walk's view of them.
//
// Figures: the net replacement rates are those of 2020 (90 % up to 1,700 EUR gross,
// 85 % to 2,685, 80 % above, apprentices 100 %; mein-personaler.at); rates for 2025
// were not confirmed. The gross replacement rate of 87.5 % is made up for the demo:
// the gross rates of the AMS tables are not among its sources. The company car
// follows the 2025 rule (1.5 % of the purchase price, at most 720 EUR, for a car
// bought in 2025 with up to 126 g CO2/km; gesundheitskasse.at); the flat is valued
// at the Vienna figure per m² of 2024, 6.67 EUR (gesundheitskasse.at), the sources
// giving none for 2025. Hours, amounts, the purchase price, the flat and the
// contribution group text are fictitious.
#include "demo/benefits.h"

#include <algorithm>
#include <iomanip>
#include <string>

#include "common/table.h"
#include "ormelix/benefits/sachbezuege.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace cli::demo {

using namespace ormelix;
using DateHelpers::DateSerial;
using RoundingHelpers::RoundTo;

namespace {

// The cook's short-time work: from Monday 17 March 2025 to the month's end, working
// time reduced by half; 74 hours worked before it, 40.5 in it.
constexpr int kShortTimeNumber = 1002;
constexpr int kShortTimeYear = 2025;
constexpr int kShortTimeMonth = 3;
constexpr double kHoursBefore = 74;
constexpr double kHoursIn = 40.5;
constexpr double kGrossRate = 87.5;  // made up, see above

// The waitress's last month: sick from the 16th, her fixed term ends on the 31st,
// three days of leave are paid out, and their contributions fall into January.
constexpr int kReplacementNumber = 1005;
constexpr double kReplacementAmount = 48.00;  // 3 days at 480 / 30
constexpr std::int16_t kReplacementDays = 3;
constexpr double kBVPercent = 1.53;

// The managing director's company car and flat in the months of 2025.
constexpr int kBenefitsNumber = 1004;
constexpr double kCarPrice = 45600;  // incl. VAT and NoVA
constexpr std::int16_t kCarCO2 = 118;
constexpr double kCarPercent = 1.5;  // up to 126 g/km for a car bought in 2025
constexpr double kCarCap = 720;
constexpr double kFlatArea = 55;
constexpr double kViennaPerSquareMetre = 6.67;  // 2024

double NetRate2020(double gross, bool apprentice) {
  if (apprentice) return 100;
  return gross <= 1700 ? 90 : gross <= 2685 ? 85 : 80;
}

void FillShortTime(LLohn& lohn, const Person& p, int year, int month, const LBasis& table) {
  LLohn_Kurzarbeit& k = *lohn.Kurzarbeit(month);
  const double rate = p.pay2025;
  k.IsKurzarbeit = true;
  k.IsZeitraumAliquot = true;
  k.Beginndatum = DateSerial(year, month, 17);
  k.Endedatum = DateHelpers::LastDayOfMonth(k.Beginndatum);
  k.Stundenlöhner = true;
  k.AktuellerSatz = rate;
  k.Wochenstunden = 37;
  k.ReferenzGehalt = MonthlyGross(p, year);  // the full month before short-time work
  k.SVBG = k.BVBG = k.Referenzentgelt();
  k.Nettoersatzrate = NetRate2020(k.Referenzentgelt(), false);
  k.Bruttoersatzrate = kGrossRate;
  k.MindestentgeltBrutto = k.ErmittleBruttoersatzrateFürBetrag(k.Referenzentgelt());
  k.MindestentgeltBruttoMitAufschlag = k.MindestentgeltBrutto;  // no surcharge
  k.IsReduktionProzent = true;
  k.ReduktionProzentUm = 50;
  k.SetStundenVorKurzarbeit(kHoursBefore);
  k.ReduktionStundenAuf = kHoursIn;
  k.GehaltOhneKurzarbeit = RoundTo(kHoursBefore * rate, 2);
  k.Gehalt = RoundTo(kHoursIn * rate, 2);

  // The month: the hours paid, the pay before short-time work and at least the
  // minimum pay in it, the allowances of the month's lines beside them; the
  // contributions on the full base of the short-time days.
  const double allowances = lohn.LFD_Bezuege(month) - MonthlyGross(p, year);
  lohn.StundenAnzahl(month) = static_cast<float>(k.GesamtStunden());
  lohn.LFD_Bezuege(month) = static_cast<float>(k.GehaltOhneKurzarbeit + k.MindestentgeltBruttoAliquot() + allowances);
  const Contributions c = WorkOut(p, k.GehaltOhneKurzarbeit + k.SVBGAliquot() + allowances, table);
  lohn.SV_Laufend_Basis(month) = static_cast<float>(c.basis);
  lohn.SV_Laufend_Basis_Berechnet(month) = c.basis;
  lohn.SV_Laufend(month) = static_cast<float>(c.employee);
  lohn.SV_Laufend_DG(month) = c.employer;
}

// The replacement benefit of the leave paid out at the end of the fixed term: it
// counts for January 2025, to the career step of the exit. A marginally employed
// person pays no contributions on it; the employer pays accident insurance and the
// provision fund.
void FillReplacementBenefit(LLohn& lohn, int month, const LBasis& table) {
  auto benefit = std::make_shared<LLohn_Ersatzleistung>();
  for (const auto& step : *lohn.Laufbahn())
    if (step->Schritt == eLBAustritt && step->Datum == DateSerial(2024, 12, 31)) benefit->LaufbahnID = step->ID;
  benefit->Geringfügig = true;
  benefit->TarifGruppe = "Angestellte, geringfügig beschäftigt";
  benefit->Zeitraum = 202501;
  benefit->SVTage = kReplacementDays;
  benefit->SV_Laufend_Basis = kReplacementAmount;
  benefit->SV_Laufend_DG = RoundTo(kReplacementAmount * table.SA()->Unfallversicherung()->Prozent_DG / 100, 2);
  benefit->BV_Basis = kReplacementAmount;
  benefit->BV_Prozent = kBVPercent;
  benefit->BV_Betrag = RoundTo(kReplacementAmount * kBVPercent / 100, 2);
  lohn.SV_EL_Laufend(month)->Clear();
  lohn.SV_EL_Laufend(month)->Add(benefit);
}

double CarValue() { return std::min(RoundTo(kCarPrice * kCarPercent / 100, 2), kCarCap); }
double FlatValue() { return RoundTo(kFlatArea * kViennaPerSquareMetre, 2); }

// The company car and the flat, entered once in January and saved under February
// and March as well, the way a host copies a month's benefits on.
void SaveBenefitsInKind(clsManager& manager, const std::string& employee, int year, int month) {
  clsMitarbeiter_Sachbezüge benefits;
  benefits.Init(manager.shared_from_this());
  const std::int32_t january = ValueHelpers::MakeZeitraum(1, static_cast<std::int16_t>(year));
  benefits.Load(employee, january);  // the defaults: Bundesland from the year data
  benefits.Anschaffungskosten = kCarPrice;
  benefits.CO2Emissionswert = kCarCO2;
  benefits.Anschaffungsjahr = static_cast<std::int16_t>(year);
  benefits.Anschaffungsmonat = 1;
  benefits.privat_gefahrene_KM = 9000;
  benefits.angemietete_Wohnung = true;
  benefits.Wohnungsfläche = kFlatArea;
  benefits.Baujahr = 1965;
  benefits.Miete = 980;
  if (month == 1)
    benefits.Update();
  else
    benefits.Update(ValueHelpers::MakeZeitraum(static_cast<std::int16_t>(month), static_cast<std::int16_t>(year)));
}

void Step(std::ostream& out, const std::string& what, const std::string& detail) {
  out << "  " << std::left << std::setw(14) << what << detail << "\n";
}

std::shared_ptr<LLohn> ByNumber(clsManager& manager, int personalnummer) {
  for (const auto& lohn : *manager.Mitarbeiter())
    if (lohn->Mitarbeiter()->Personalnummer == personalnummer) return lohn;
  throw Error("the demo employee " + std::to_string(personalnummer) + " is missing");
}

std::string Name(const LLohn& lohn) {
  const LLohn_Arbeiter& a = *lohn.Mitarbeiter();
  return std::to_string(a.Personalnummer) + " " + a.VName + " " + a.FName;
}

}  // namespace

void AddShortTimeAndBenefits(clsManager& manager, LLohn& lohn, const Person& person, int year, int month,
                             const LBasis& table) {
  if (person.personalnummer == kShortTimeNumber && year == kShortTimeYear && month == kShortTimeMonth)
    FillShortTime(lohn, person, year, month, table);
  if (person.personalnummer == kReplacementNumber && year == 2024 && month == 12)
    FillReplacementBenefit(lohn, month, table);
  if (person.personalnummer == kBenefitsNumber && year == 2025) {
    SaveBenefitsInKind(manager, lohn.ID(), year, month);
    lohn.Sachbezug(month) = static_cast<float>(CarValue() + FlatValue());
  }
}

void WalkShortTimeAndBenefits(clsManager& manager, std::ostream& out, int year, int month) {
  if (year == kShortTimeYear && month == kShortTimeMonth) {
    const auto cook = ByNumber(manager, kShortTimeNumber);
    const LLohn_Kurzarbeit& k = *cook->Kurzarbeit(month);
    Step(out, "short time",
         "Kurzarbeit(" + std::to_string(month) + ") of " + Name(*cook) + ": " + DateHelpers::FormatDate(k.Beginndatum) +
             " to " + DateHelpers::FormatDate(k.Endedatum) + ", IsZeitraumAliquot " +
             (k.IsZeitraumAliquot ? "True" : "False"));
    auto days = [](double count) { return std::to_string(static_cast<int>(count)); };
    Step(out, "",
         "ErmittleMaxTage " + days(k.ErmittleMaxTage()) + ", ErmittleMaxTageSVKurzareit " +
             days(k.ErmittleMaxTageSVKurzareit()) + ", ErmittleMaxTageSVOhneKurzareit " +
             days(k.ErmittleMaxTageSVOhneKurzareit()));
    Step(out, "",
         "Referenzentgelt " + Amount(k.Referenzentgelt()) + " x Bruttoersatzrate " + Number(k.Bruttoersatzrate) +
             " % = MindestentgeltBrutto " + Amount(k.MindestentgeltBrutto) + " (Nettoersatzrate " +
             Number(k.Nettoersatzrate) + " %)");
    Step(out, "",
         "MindestentgeltBruttoAliquot " + Amount(k.MindestentgeltBruttoAliquot()) + " (Gehalt " + Amount(k.Gehalt) +
             "), GehaltOhneKurzarbeit " + Amount(k.GehaltOhneKurzarbeit) + ", KurzarbeitsbonusAliquot " +
             Amount(k.KurzarbeitsbonusAliquot().AsDouble()));
    Step(out, "",
         "SVBGAliquot " + Amount(k.SVBGAliquot()) + ", BVBGAliquot " + Amount(k.BVBGAliquot()) + ", GesamtStunden " +
             Number(k.GesamtStunden()) + "; LFD_Bezuege " + Amount(cook->LFD_Bezuege(month)) + ", SV_Laufend_Basis " +
             Amount(cook->SV_Laufend_Basis(month)));
  }
  const auto director = ByNumber(manager, kBenefitsNumber);
  clsMitarbeiter_Sachbezüge benefits;
  benefits.Init(manager.shared_from_this());
  const std::int32_t period =
      ValueHelpers::MakeZeitraum(static_cast<std::int16_t>(month), static_cast<std::int16_t>(year));
  benefits.Load(director->ID(), period);
  Step(out, "in kind",
       "clsMitarbeiter_Sachbezüge.Load(" + Name(*director) + ", " + std::to_string(period) + "): car " +
           Amount(benefits.Anschaffungskosten) + ", " + std::to_string(benefits.CO2Emissionswert) + " g CO2/km; flat " +
           Number(benefits.Wohnungsfläche) + " m², Bundesland index " + std::to_string(benefits.Bundesland) +
           "; Sachbezug(" + std::to_string(month) + ") " + Amount(director->Sachbezug(month)));
}

}  // namespace cli::demo
