// ormelix show career, and the career part of show month: what the career list
// holds and what the pay calculation's questions answer for a year or a month.
#include <iostream>

#include "common/table.h"
#include "common/values.h"
#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/career_view.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using DateHelpers::FormatDate;

namespace {

// The steps of a year as the pay calculation asks for them: all kinds, with the
// pairs around changes of contribution account.
LLohn_Laufbahnen::ListPtr StepsOfYear(const LLohn_Laufbahnen& career, std::int16_t year) {
  return career.LaufbahnschritteImZeitraum(ValueHelpers::MakeZeitraum(1, year), ValueHelpers::MakeZeitraum(12, year),
                                           true, eALBAlle);
}

// The few properties that tell steps apart, for lists of steps.
json::Value StepBrief(const LLohn_Laufbahn& step) {
  json::Value j = json::Value::MakeObject();
  j.Set("Index", static_cast<int>(step.Index));
  j.Set("ID", step.ID);
  j.Set("Schritt", static_cast<int>(step.Schritt));
  j.Set("Datum", FormatDate(step.Datum));
  j.Set("GrundNr", ValueJson(ColumnValue{"GrundNr", std::nullopt, step.GrundNr}));
  j.Set("GrundText", step.GrundText);
  return j;
}

json::Value StepsJson(const LLohn_Laufbahnen* steps, bool brief) {
  json::Value list = json::Value::MakeArray();
  if (steps)
    for (const auto& step : *steps) list.Push(brief ? StepBrief(*step) : StepJson(*step));
  return list;
}

std::string Reason(const LLohn_Laufbahn& step) {
  if (step.GrundNr.IsMissing()) return "";
  return step.GrundNr.Describe() + " " + step.GrundKürzel + " (" + step.GrundText + ")";
}

void PrintSteps(std::ostream& out, const LLohn_Laufbahnen& career) {
  TextTable table;
  table.Column("Index", TextTable::Right);
  for (const char* header : {"Schritt", "Datum", "Grund", "Befristet bis", "Fallweise", "Abfertigung neu", "Anmerkung"})
    table.Column(header);
  for (const auto& step : career)
    table.Row({std::to_string(step->Index), StepName(step->Schritt), FormatDate(step->Datum), Reason(*step),
               step->BefristetBeschäftigt ? FormatDate(step->BefristetBis) : "",
               step->FallweiseBeschäftigt ? "ja" : "",
               step->AbfertigungNeu ? FormatDate(step->AbfertigungNeuDatum) + ", " + Number(step->AbfertigungNeuProzent) + " %"
                                    : "",
               step->Anmerkung});
  table.Print(out, "  ");
}

void PrintMonths(std::ostream& out, const LLohn_Laufbahnen& career, std::int16_t year) {
  TextTable table;
  for (const char* header : {"Zeitraum", "Laufbahnschritt", "IsEintritt", "IsDVRuht", "LaufbahnschritteImMonat"})
    table.Column(header);
  for (std::int16_t month = 1; month <= 12; ++month) {
    const std::int32_t period = ValueHelpers::MakeZeitraum(month, year);
    LLohn_Laufbahnen::StepPtr found;
    const bool entry = career.IsEintritt(period, found);
    const bool rest = career.IsDVRuht(period, found);
    table.Row({std::to_string(period), StepSummary(*career.Laufbahnschritt(period, false, false)), entry ? "ja" : "nein",
               rest ? "ja" : "nein", StepsSummary(career.LaufbahnschritteImMonat(period).get())});
  }
  table.Print(out, "  ");
}

json::Value MonthsJson(const LLohn_Laufbahnen& career, std::int16_t year) {
  json::Value months = json::Value::MakeArray();
  for (std::int16_t month = 1; month <= 12; ++month) {
    const std::int32_t period = ValueHelpers::MakeZeitraum(month, year);
    LLohn_Laufbahnen::StepPtr found;
    json::Value m = json::Value::MakeObject();
    m.Set("Zeitraum", static_cast<long>(period));
    m.Set("Laufbahnschritt", StepBrief(*career.Laufbahnschritt(period, false, false)));
    m.Set("IsEintritt", career.IsEintritt(period, found));
    m.Set("IsDVRuht", career.IsDVRuht(period, found));
    m.Set("LaufbahnschritteImMonat", StepsJson(career.LaufbahnschritteImMonat(period).get(), true));
    months.Push(std::move(m));
  }
  return months;
}

}  // namespace

std::string StepName(eLaufbahnschritte schritt) {
  switch (schritt) {
    case eLBNone: return "kein Schritt";
    case eLBEintritt: return "Eintritt";
    case eLBDVRuht: return "DV ruht";
    case eLBAustritt: return "Austritt";
    case eLBBKZEintritt: return "BKZ-Eintritt";
    case eLBBKZAustritt: return "BKZ-Austritt";
  }
  return "Schritt " + std::to_string(schritt);
}

std::string StepSummary(const LLohn_Laufbahn& step) {
  if (step.Schritt == eLBNone && step.Datum == 0) return StepName(eLBNone);
  std::string text = StepName(step.Schritt) + " " + FormatDate(step.Datum);
  if (!step.GrundKürzel.empty()) text += " (" + step.GrundKürzel + ")";
  return text;
}

std::string StepsSummary(const LLohn_Laufbahnen* steps) {
  std::string text;
  if (steps)
    for (const auto& step : *steps) text += (text.empty() ? "" : ", ") + StepSummary(*step);
  return text.empty() ? "keine" : text;
}

json::Value StepJson(LLohn_Laufbahn& step) {
  json::Value j = StepBrief(step);
  j.Set("Zeitraum", static_cast<long>(step.Zeitraum()));
  j.Set("GrundIndex", static_cast<int>(step.GrundIndex));
  j.Set("GrundKürzel", step.GrundKürzel);
  j.Set("WochengeldDatumEnde", FormatDate(step.WochengeldDatumEnde()));
  AddColumns(j, LaufbahnColumns(), step);
  // The column Bef_Tage2 is read into the property Bef_Tage, so the property
  // Bef_Tage2 has no column of its own; it is shown as it stands.
  j.Set("Bef_Tage2", static_cast<int>(step.Bef_Tage2));
  return j;
}

json::Value MonthCareerJson(const LLohn_Laufbahnen& career, std::int32_t period) {
  json::Value j = json::Value::MakeObject();
  LLohn_Laufbahnen::StepPtr found;
  j.Set("Laufbahnschritt", StepBrief(*career.Laufbahnschritt(period, false, false)));
  j.Set("IsEintritt", career.IsEintritt(period, found));
  j.Set("IsDVRuht", career.IsDVRuht(period, found));
  j.Set("LaufbahnschritteImZeitraum", StepsJson(StepsOfYear(career, static_cast<std::int16_t>(period / 100)).get(), true));
  return j;
}

void PrintMonthCareer(std::ostream& out, const LLohn_Laufbahnen& career, std::int32_t period) {
  LLohn_Laufbahnen::StepPtr found;
  const bool entry = career.IsEintritt(period, found);
  const bool rest = career.IsDVRuht(period, found);
  const std::int16_t year = static_cast<std::int16_t>(period / 100);
  std::vector<ColumnValue> values = {
      {"Laufbahnschritt", std::nullopt, Variant(StepSummary(*career.Laufbahnschritt(period, false, false)))},
      {"IsEintritt", std::nullopt, Variant(entry ? "ja" : "nein")},
      {"IsDVRuht", std::nullopt, Variant(rest ? "ja" : "nein")},
      {"LaufbahnschritteImZeitraum " + std::to_string(year), std::nullopt, Variant(StepsSummary(StepsOfYear(career, year).get()))}};
  PrintPairs(out, "Laufbahn " + std::to_string(period) + " (alle Schritte: ormelix show career)", values);
}

int ShowCareer(clsManager& manager, Arguments& args, bool as_json) {
  const EmployeeOfYear e = LoadEmployeeOfYear(manager, args, "career", 1);
  const std::int16_t year = e.year;
  const LLohn_Laufbahnen& career = *e.lohn->Laufbahn();
  if (as_json) {
    json::Value doc = json::Value::MakeObject();
    doc.Set("employee", EmployeeBrief(*e.lohn));
    doc.Set("year", static_cast<int>(year));
    doc.Set("Laufbahn", StepsJson(&career, false));
    doc.Set("LaufbahnschritteImZeitraum", StepsJson(StepsOfYear(career, year).get(), false));
    doc.Set("months", MonthsJson(career, year));
    std::cout << doc.Dump();
    return 0;
  }
  std::cout << EmployeeHeading(*e.lohn) << "\n";
  std::cout << manager.AktMandant()->Name << ", Laufbahn mit " << career.Count()
            << (career.Count() == 1 ? " Schritt\n\n" : " Schritten\n\n");
  PrintSteps(std::cout, career);
  std::cout << "\nSchritte des Jahres " << year << " (LaufbahnschritteImZeitraum " << year << "01 bis " << year
            << "12, mit Beitragskonten): " << StepsSummary(StepsOfYear(career, year).get()) << "\n\n";
  std::cout << "Monate " << year << "\n";
  PrintMonths(std::cout, career, year);
  return 0;
}

}  // namespace cli
