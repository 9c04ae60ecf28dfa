// LLohn_Laufbahnen: the queries that ask the store for the step of a day or a month
// and hand out the step of that key from the loaded list.
#include <algorithm>
#include <charconv>
#include <string>

#include "ormelix/career/laufbahnen.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"
#include "period_days.h"

namespace ormelix {

namespace detail {

namespace {

int DigitsAt(const std::string& text, std::size_t from, std::size_t count, std::int32_t zeitraum) {
  int value = 0;
  const char* begin = text.data() + std::min(from, text.size());
  const char* end = text.data() + std::min(from + count, text.size());
  auto [stop, ec] = std::from_chars(begin, end, value);
  if (begin == end || ec != std::errc() || stop != end || *begin == '-' || *begin == '+')
    throw Error("the period " + std::to_string(zeitraum) + " is no yyyymm");
  return value;
}

}  // namespace

Date PeriodFirstDay(std::int32_t zeitraum) {
  const std::string text = std::to_string(zeitraum);
  return DateHelpers::DateSerial(DigitsAt(text, 0, 4, zeitraum), DigitsAt(text, 4, 2, zeitraum), 1);
}

Date PeriodLastDay(std::int32_t zeitraum) { return DateHelpers::LastDayOfMonth(PeriodFirstDay(zeitraum)); }

}  // namespace detail

namespace {

using ValueHelpers::SqlDate;
using StepPtr = LLohn_Laufbahnen::StepPtr;

StepPtr Blank() { return std::make_shared<LLohn_Laufbahn>(); }

}  // namespace

// The newest step that passes the filter: of one day the one with the highest Nr.
StepPtr LLohn_Laufbahnen::LatestStep(const std::string& filter) const {
  auto rs = OpenRead(StepSqlHead() + " ORDER BY [Datum] DESC, [Nr] DESC");
  StepPtr step;
  if (!rs->Eof()) {
    rs->Filter(filter);
    if (!rs->Eof()) step = StepOf(*rs);
  }
  rs->Close();
  return step ? step : Blank();
}

StepPtr LLohn_Laufbahnen::Laufbahnschritt(std::int32_t pZeitraum, bool pPrüfeAb1DesMonats,
                                          bool pPrüfeAb1DesMonateskleinergleich) const {
  if (!manager_.IsSet()) return Blank();
  if (!pPrüfeAb1DesMonats) return LatestStep("[Datum]<=" + SqlDate(detail::PeriodLastDay(pZeitraum)));
  const std::string first = SqlDate(detail::PeriodFirstDay(pZeitraum));
  return LatestStep((pPrüfeAb1DesMonateskleinergleich ? "[Datum]<=" : "[Datum]<") + first);
}

StepPtr LLohn_Laufbahnen::LaufbahnschrittDate(Date pDatum) const {
  if (!manager_.IsSet()) return Blank();
  return LatestStep("[Datum]<=" + SqlDate(pDatum));
}

// Every step of the month is looked at, newest first, so the earliest one of the
// wanted kind stays. Without one, the last step before the month decides.
bool LLohn_Laufbahnen::MonthHasStep(std::int32_t pZeitraum, StepPtr& pRetLaufbahn, eLaufbahnschritte wanted,
                                    const char* order) const {
  pRetLaufbahn = Blank();
  if (!manager_.IsSet()) return false;
  const Date first = detail::PeriodFirstDay(pZeitraum);
  const Date last = detail::PeriodLastDay(pZeitraum);
  auto rs = OpenRead(StepSqlHead() + order);
  bool found = false;
  if (!rs->Eof()) {
    rs->Filter("[Datum]>=" + SqlDate(first) + " AND [Datum]<=" + SqlDate(last));
    for (; !rs->Eof(); rs->MoveNext()) {
      StepPtr step = StepOf(*rs);
      if (step->Schritt != wanted) continue;
      pRetLaufbahn = std::move(step);
      found = true;
    }
    if (!found) {
      rs->Filter("[Datum]<=" + SqlDate(first - 1));
      if (!rs->Eof()) {
        StepPtr before = StepOf(*rs);
        if (before->Schritt == wanted) {
          pRetLaufbahn = std::move(before);
          found = true;
        }
      }
    }
  }
  rs->Close();
  return found;
}

bool LLohn_Laufbahnen::IsEintritt(std::int32_t pZeitraum, StepPtr& pRetLaufbahn) const {
  return MonthHasStep(pZeitraum, pRetLaufbahn, eLBEintritt, " ORDER BY [Datum] DESC, [Nr] DESC");
}

// Ordered by Datum alone: of one day, the order is the store's.
bool LLohn_Laufbahnen::IsDVRuht(std::int32_t pZeitraum, StepPtr& pRetLaufbahn) const {
  return MonthHasStep(pZeitraum, pRetLaufbahn, eLBDVRuht, " ORDER BY [Datum] DESC");
}

// The first entry (exit) that passes the filter; when none does, the last row of the
// whole result. Of one day, the order is the store's.
StepPtr LLohn_Laufbahnen::FirstOrLast(eLaufbahnschritte schritt, const char* order, const std::string& filter) const {
  auto rs = OpenRead(StepSqlHead() + " AND [Schritt]=" + std::to_string(schritt) + order);
  StepPtr step;
  if (!rs->Eof()) {
    if (!filter.empty()) {
      rs->Filter(filter);
      if (rs->Eof()) {
        rs->Filter("");
        rs->MoveLast();
      }
    }
    step = StepOf(*rs);
  }
  rs->Close();
  return step ? step : Blank();
}

StepPtr LLohn_Laufbahnen::Eintritt(std::int32_t pZeitraum) const {
  if (!manager_.IsSet()) return Blank();
  return FirstOrLast(eLBEintritt, " ORDER BY [Datum] DESC", "[Datum]<=" + SqlDate(detail::PeriodLastDay(pZeitraum)));
}

StepPtr LLohn_Laufbahnen::EintrittDate(std::int32_t pDate) const {
  if (!manager_.IsSet()) return Blank();
  return FirstOrLast(eLBEintritt, " ORDER BY [Datum] DESC", "[Datum]<=" + SqlDate(pDate));
}

StepPtr LLohn_Laufbahnen::Austritt(std::int32_t pZeitraum, bool pkleiner) const {
  if (!manager_.IsSet()) return Blank();
  const std::string first = SqlDate(detail::PeriodFirstDay(pZeitraum));
  if (pkleiner) return FirstOrLast(eLBAustritt, " ORDER BY [Datum] DESC", "[Datum]<" + first);
  return FirstOrLast(eLBAustritt, " ORDER BY [Datum] ASC", "[Datum]>=" + first);
}

StepPtr LLohn_Laufbahnen::Letzten_Eintritt() const {
  if (!manager_.IsSet()) return Blank();
  return FirstOrLast(eLBEintritt, " ORDER BY [Datum] DESC", "");
}

StepPtr LLohn_Laufbahnen::Letzten_Austritt() const {
  if (!manager_.IsSet()) return nullptr;
  return FirstOrLast(eLBAustritt, " ORDER BY [Datum] DESC", "");
}

}  // namespace ormelix
