// The short-time figures: aliquot amounts, minimum pay, bonus and day counts.
#include "ormelix/shorttime/kurzarbeit.h"

#include <cmath>
#include <string>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"

namespace ormelix {

namespace {

using RoundingHelpers::DivideExact;
using RoundingHelpers::MultiplyExact;

// The dates a calendar can name: 1 January 100 to 31 December 9999 as day counts.
constexpr double kFirstDay = -657434;
constexpr double kLastDay = 2958465;

// The day of the month of a stored date. Date 0 is 30 December 1899, day 30. A value
// that is no date at all (NaN, infinite, or beyond the calendar) is refused, naming
// the property, rather than turned into a day number by chance.
Date CheckedDate(Date date, const char* property) {
  if (!std::isfinite(date) || date < kFirstDay || date > kLastDay)
    throw ConversionError("LLohn_Kurzarbeit: " + std::string(property) + " holds no date (" + std::to_string(date) +
                          ")");
  return date;
}

int DayOf(Date date, const char* property) { return DateHelpers::Day(CheckedDate(date, property)); }

// value / days held to 14 decimals, times factor rounded to 2: the order every
// aliquot figure keeps.
double Aliquot(double value, double days, double factor) {
  return MultiplyExact(DivideExact(value, days, 14), Variant(factor), 2);
}

}  // namespace

double LLohn_Kurzarbeit::ErmittleMaxTage() const {
  return DateHelpers::Day(DateHelpers::LastDayOfMonth(CheckedDate(Beginndatum, "Beginndatum")));
}

double LLohn_Kurzarbeit::ErmittleMaxTageSVKurzareit() const {
  if (!IsZeitraumAliquot) return ErmittleMaxTageSV();
  return Endedatum - Beginndatum + 1;
}

double LLohn_Kurzarbeit::ErmittleMaxTageSVOhneKurzareit() const {
  if (!IsZeitraumAliquot) return 0;
  const int begin = DayOf(Beginndatum, "Beginndatum");
  if (begin > 1) return begin - 1;
  return ErmittleMaxTageSV() - DayOf(Endedatum, "Endedatum");
}

double LLohn_Kurzarbeit::ErmittleAliquotBetragInKurzarbeit(double pValue, std::int16_t pMaxTage,
                                                           std::int16_t pAliTage) const {
  if (IsPhasenWechsel || !IsZeitraumAliquot) return pValue;
  if (pMaxTage != 0 || pAliTage != 0) return Aliquot(pValue, pMaxTage, pAliTage);
  const int month_days = static_cast<int>(ErmittleMaxTage());
  const int begin = DayOf(Beginndatum, "Beginndatum");
  // A start after the 1st runs to the month's end; Endedatum then plays no part.
  if (begin > 1) return Aliquot(pValue, month_days, month_days - begin + 1);
  return Aliquot(pValue, month_days, DayOf(Endedatum, "Endedatum"));
}

double LLohn_Kurzarbeit::ErmittleAliquotBetragOhneKurzarbeit(double pValue, std::int16_t pMaxTage,
                                                             std::int16_t pAliTage) const {
  if (IsPhasenWechsel || !IsZeitraumAliquot) return 0;
  if (pMaxTage != 0 || pAliTage != 0) return Aliquot(pValue, pMaxTage, pAliTage);
  const int month_days = static_cast<int>(ErmittleMaxTage());
  const int begin = DayOf(Beginndatum, "Beginndatum");
  if (begin > 1) return Aliquot(pValue, month_days, begin - 1);
  return Aliquot(pValue, month_days, month_days - DayOf(Endedatum, "Endedatum"));
}

double LLohn_Kurzarbeit::ErmittleBruttoersatzrateFürBetrag(double pValue) const {
  return Aliquot(pValue, 100, Bruttoersatzrate);
}

double LLohn_Kurzarbeit::SVBGAliquot() const {
  return IsPhasenWechsel ? SVBG : ErmittleAliquotBetragInKurzarbeit(SVBG, 0, 0);
}

double LLohn_Kurzarbeit::BVBGAliquot() const {
  return IsPhasenWechsel ? BVBG : ErmittleAliquotBetragInKurzarbeit(BVBG, 0, 0);
}

double LLohn_Kurzarbeit::Referenzentgelt() const {
  return Überstundenpauschale + ReferenzGehalt + Sachbezug + ReferenzBezügeLstPflSVPfl + ReferenzBezügeLstFreiSvPfl +
         ReferenzZulagenSVPfl;
}

double LLohn_Kurzarbeit::GesamtStunden() const {
  if (!Stundenlöhner) return 0;
  return ReduktionStundenAufWechsel + ReduktionStundenAuf + StundenVorKurzarbeit() + Urlaubsstunden + Zeitausgleich +
         QuarantäneStunden;
}

double LLohn_Kurzarbeit::AliquotBase(double amount) const {
  const double base = EFZEntgelt <= 0 ? amount : EFZEntgelt;
  return IsPhasenWechsel ? base : ErmittleAliquotBetragInKurzarbeit(base, 0, 0);
}

double LLohn_Kurzarbeit::MindestentgeltBruttoAliquot() const {
  const double base = AliquotBase(MindestentgeltBrutto);
  const double salary = Gehalt + GehaltWechsel;
  return salary <= base ? base : salary;
}

double LLohn_Kurzarbeit::MindestentgeltBruttoMitAufschlagAliquot() const {
  const double base = AliquotBase(AufschlagProzent <= 0 ? MindestentgeltBrutto : MindestentgeltBruttoMitAufschlag);
  const double salary = Gehalt + GehaltWechsel;
  return salary <= base ? base : salary;
}

Variant LLohn_Kurzarbeit::KurzarbeitsbonusAliquot() const {
  const double with_bonus = Kurzarbeitsbonus + AliquotBase(MindestentgeltBrutto);
  const double salary = Gehalt + GehaltWechsel;
  const double top = salary <= with_bonus ? with_bonus : salary;
  return Variant(top - MindestentgeltBruttoAliquot());
}

}  // namespace ormelix
