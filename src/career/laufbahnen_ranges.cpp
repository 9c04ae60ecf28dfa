// LLohn_Laufbahnen: the lists of steps for a range of months and for one month.
#include <string>

#include "ormelix/career/laufbahnen.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"
#include "period_days.h"

namespace ormelix {

namespace {

using ValueHelpers::SqlDate;
using StepPtr = LLohn_Laufbahnen::StepPtr;
using ListPtr = LLohn_Laufbahnen::ListPtr;

// Does the step go into the list under the selection? An entry that fails the
// selection's test skips its employment up to the next exit, which is left out too.
bool Selected(const LLohn_Laufbahn& step, eAusgabeLaufbahnen selection, bool& skipping) {
  if (selection == eALBAlle) return true;
  if (selection < eALBNurNormalBeschäftigt || selection > eALBNurFallweiseBeschäftigt) return false;
  bool skip = false;
  switch (selection) {
    case eALBNurNormalBeschäftigt:
      skip = step.FallweiseBeschäftigt || step.BefristetBeschäftigt;
      break;
    case eALBNurBefristetBeschäftigt:
      skip = !step.BefristetBeschäftigt;
      break;
    default:
      skip = !step.FallweiseBeschäftigt;
      break;
  }
  if (step.Schritt == eLBEintritt && skip) {
    skipping = true;
    return false;
  }
  if (step.Schritt == eLBAustritt && skipping) {
    skipping = false;
    return false;
  }
  return !skipping;
}

// Two steps of one day at the head, the first before the period: an employment
// that began and ended on one day before the range plays no part in it.
void DropSameDayHead(LLohn_Laufbahnen& list, std::int32_t period, bool only_before_an_exit) {
  if (list.Count() <= 1) return;
  const StepPtr first = list.Item(1);
  const StepPtr second = list.Item(2);
  if (first->Datum != second->Datum || first->Zeitraum() >= period) return;
  if (only_before_an_exit && second->Schritt != eLBAustritt) return;
  list.Remove(2);
  list.Remove(1);
}

// The pair of steps made in memory for a change of contribution account with the
// period whose first day is `first`: the end under the old account on the day before,
// the begin under the new one on that day, with the severance scheme of `before`.
StepPtr AccountExit(Date first) {
  auto step = std::make_shared<LLohn_Laufbahn>();
  step->ID = ValueHelpers::NewID();
  step->Schritt = eLBBKZAustritt;
  step->Datum = first - 1;
  return step;
}

StepPtr AccountEntry(Date first, const LLohn_Laufbahn& before) {
  auto step = std::make_shared<LLohn_Laufbahn>();
  step->ID = ValueHelpers::NewID();
  step->Schritt = eLBBKZEintritt;
  step->Datum = first;
  step->AbfertigungNeu = before.AbfertigungNeu;
  step->AbfertigungNeuDatum = first;
  step->AbfertigungNeuProzent = before.AbfertigungNeuProzent;
  return step;
}

Date FirstDayOfRow(const Recordset& accounts) {
  return DateHelpers::ZeitraumToDate(ValueHelpers::ToLong(accounts.Fields("Zeitraum")), 1);
}

std::string PeriodRange(std::int32_t above, std::int32_t up_to) {
  return "[Zeitraum]>" + std::to_string(above) + " AND [Zeitraum]<=" + std::to_string(up_to);
}

// Removes every step before the last change of account at or before the day.
void CutBefore(LLohn_Laufbahnen& list, Date day) {
  bool cut = false;
  for (long i = list.Count(); i >= 1; --i) {
    if (cut) {
      list.Remove(i);
      continue;
    }
    const StepPtr step = list.Item(i);
    cut = step->Schritt == eLBBKZEintritt && step->Datum <= day;
  }
}

}  // namespace

ListPtr LLohn_Laufbahnen::StepsBetween(Date start, Date end, eAusgabeLaufbahnen selection, bool& any_rows) const {
  auto rs = OpenRead(StepSqlHead() + " AND [Datum]>=" + SqlDate(start) + " AND [Datum]<=" + SqlDate(end) +
                     " ORDER BY [Datum] ASC, [Nr] ASC");
  auto list = std::make_shared<LLohn_Laufbahnen>();
  any_rows = !rs->Eof();
  bool skipping = false;
  for (; !rs->Eof(); rs->MoveNext()) {
    StepPtr step = StepOf(*rs);
    if (Selected(*step, selection, skipping)) list->AddItem(step);
  }
  rs->Close();
  return list;
}

// Inserts the pairs of each change of account between two neighbouring steps, and
// appends those after the last step. The walk stops at the number of neighbours the
// list had at the start while its position moves on past what is inserted, so the
// steps at the end are not all looked at; the tail looks only past the last step.
void LLohn_Laufbahnen::AddAccountChanges(LLohn_Laufbahnen& list, std::int32_t pVonZeitraum,
                                         std::int32_t pBisZeitraum) const {
  auto accounts = OpenRead("SELECT * FROM [Mitarbeiter_Beitragskonto] WHERE [MitarbeiterID]=" +
                           ValueHelpers::SqlID(employee_id_) + " ORDER BY [Zeitraum]");
  const long bound = list.Count() - 1;
  for (long i = 1; i <= bound; ++i) {
    if (list.Item(i)->Schritt == eLBAustritt) continue;
    accounts->Filter(PeriodRange(list.Item(i)->Zeitraum(), list.Item(i + 1)->Zeitraum()));
    for (; !accounts->Eof(); accounts->MoveNext()) {
      const Date first = FirstDayOfRow(*accounts);
      list.AddItem(AccountExit(first), {}, Variant(i));
      ++i;
      list.AddItem(AccountEntry(first, *list.Item(i - 1)), {}, Variant(i));
      ++i;
    }
  }
  CutBefore(list, DateHelpers::ZeitraumToDate(pVonZeitraum, 1));
  const std::int32_t last = list.Item(list.Count())->Zeitraum();
  accounts->Filter(PeriodRange(last > pVonZeitraum ? last : pVonZeitraum, pBisZeitraum));
  for (; !accounts->Eof(); accounts->MoveNext()) {
    const Date first = FirstDayOfRow(*accounts);
    list.AddItem(AccountExit(first));
    list.AddItem(AccountEntry(first, *list.Item(list.Count() - 1)));
  }
  accounts->Close();
}

ListPtr LLohn_Laufbahnen::LaufbahnschritteImZeitraum(std::int32_t pVonZeitraum, std::int32_t pBisZeitraum,
                                                     bool pBKZBerücksichtigen,
                                                     eAusgabeLaufbahnen pAusgabeLaufbahn) const {
  if (!manager_.IsSet()) return nullptr;
  // For the fixed-term and casual selections the range begins with the step in
  // force on the first of the month, else with the last step before it. With no
  // such step the start is date 0, which every stored day passes.
  const bool up_to_the_first =
      pAusgabeLaufbahn == eALBNurBefristetBeschäftigt || pAusgabeLaufbahn == eALBNurFallweiseBeschäftigt;
  const Date start = Laufbahnschritt(pVonZeitraum, true, up_to_the_first)->Datum;
  bool any_rows = false;
  ListPtr list = StepsBetween(start, detail::PeriodLastDay(pBisZeitraum), pAusgabeLaufbahn, any_rows);
  if (any_rows) DropSameDayHead(*list, pVonZeitraum, /*only_before_an_exit=*/true);
  if (pBKZBerücksichtigen) AddAccountChanges(*list, pVonZeitraum, pBisZeitraum);
  return list;
}

ListPtr LLohn_Laufbahnen::LaufbahnschritteImMonat(std::int32_t pZeitraum) const {
  if (!manager_.IsSet()) return nullptr;
  const Date start = Laufbahnschritt(pZeitraum, true, false)->Datum;
  bool any_rows = false;
  ListPtr list = StepsBetween(start, detail::PeriodLastDay(pZeitraum), eALBAlle, any_rows);
  if (!any_rows) return list;
  DropSameDayHead(*list, pZeitraum, /*only_before_an_exit=*/false);
  if (list->Count() > 0) {
    if (list->Item(1)->Schritt == eLBAustritt) list->Remove(Variant(list->Item(1)->ID));
    // An entry at the end brings the exit that closes its employment, also when
    // that exit lies after the month.
    const StepPtr last = list->Item(list->Count());
    if (last->Schritt == eLBEintritt) {
      for (long i = last->Index; i <= Count(); ++i) {
        if (steps_[i]->Schritt != eLBAustritt) continue;
        list->AddItem(steps_[i]);
        break;
      }
    }
  }
  list->InitLaufbahnen(manager_.Get(), employee_id_);
  return list;
}

}  // namespace ormelix
