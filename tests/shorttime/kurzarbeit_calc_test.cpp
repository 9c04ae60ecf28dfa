// The short-time figures, case by case, exact to the cent: the aliquot amounts of
// a start mid-month and of an early end, a whole month and a change of phase, the
// given split of days, the day counts, the rate, the minimum pay and the bonus;
// and what bad dates and zero divisors give.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/shorttime/kurzarbeit.h"
#include "ormelix/store/date_helpers.h"

using namespace ormelix;
using DateHelpers::DateSerial;

namespace {

using K = LLohn_Kurzarbeit;

// A part of a month in short-time work: February 2025 has 28 days, March 31,
// April 30.
std::function<void(K&)> Part(Date begin, Date end = 0) {
  return [=](K& k) {
    k.IsZeitraumAliquot = true;
    k.Beginndatum = begin;
    k.Endedatum = end;
  };
}
std::function<void(K&)> Then(std::function<void(K&)> first, std::function<void(K&)> second) {
  return [=](K& k) {
    first(k);
    second(k);
  };
}

std::function<double(const K&)> In(double value, std::int16_t max_days = 0, std::int16_t days = 0) {
  return [=](const K& k) { return k.ErmittleAliquotBetragInKurzarbeit(value, max_days, days); };
}
std::function<double(const K&)> Outside(double value, std::int16_t max_days = 0, std::int16_t days = 0) {
  return [=](const K& k) { return k.ErmittleAliquotBetragOhneKurzarbeit(value, max_days, days); };
}
double DaysIn(const K& k) { return k.ErmittleMaxTageSVKurzareit(); }
double DaysOutside(const K& k) { return k.ErmittleMaxTageSVOhneKurzareit(); }
double MonthDays(const K& k) { return k.ErmittleMaxTage(); }
double Minimum(const K& k) { return k.MindestentgeltBruttoAliquot(); }
double MinimumWithSurcharge(const K& k) { return k.MindestentgeltBruttoMitAufschlagAliquot(); }
double Bonus(const K& k) { return k.KurzarbeitsbonusAliquot().AsDouble(); }

struct Case {
  const char* what;
  std::function<void(K&)> setup;
  std::function<double(const K&)> figure;
  double expected;
};

const Date kFeb10 = DateSerial(2025, 2, 10);
const Date kFeb1 = DateSerial(2025, 2, 1);

std::vector<Case> Cases() {
  auto minimum = [](double brutto, double gehalt, double wechsel) {
    return [=](K& k) {
      k.MindestentgeltBrutto = brutto;
      k.Gehalt = gehalt;
      k.GehaltWechsel = wechsel;
    };
  };
  auto rate = [](double percent) { return [=](K& k) { k.Bruttoersatzrate = percent; }; };
  auto phase = [](K& k) { k.IsPhasenWechsel = true; };
  auto hours = [](bool hourly, bool aliquot) {
    return [=](K& k) {
      k.Stundenlöhner = hourly;
      k.IsZeitraumAliquot = aliquot;
      k.ReduktionStundenAufWechsel = 10;
      k.ReduktionStundenAuf = 20;
      k.SetStundenVorKurzarbeit(30);
      k.Urlaubsstunden = 4;
      k.Zeitausgleich = 2;
      k.QuarantäneStunden = 1.5;
    };
  };
  auto surcharge = [](double percent, double efz) {
    return [=](K& k) {
      k.MindestentgeltBrutto = 1000;
      k.MindestentgeltBruttoMitAufschlag = 1400;
      k.AufschlagProzent = percent;
      k.EFZEntgelt = efz;
    };
  };
  return {
      // A start on the 10th of a 28-day month: 19 days in, 9 outside.
      {"start on the 10th, in", Part(kFeb10), In(2800), 1900.00},
      {"start on the 10th, outside", Part(kFeb10), Outside(2800), 900.00},
      {"start on the 10th: Endedatum plays no part", Part(kFeb10, DateSerial(2025, 2, 15)), In(2800), 1900.00},
      {"start on the 1st, end on the 20th, in", Part(kFeb1, DateSerial(2025, 2, 20)), In(2800), 2000.00},
      {"start on the 1st, end on the 20th, outside", Part(kFeb1, DateSerial(2025, 2, 20)), Outside(2800), 800.00},
      {"the whole month, in", Part(kFeb1, DateSerial(2025, 2, 28)), In(2800), 2800.00},
      {"the whole month, outside", Part(kFeb1, DateSerial(2025, 2, 28)), Outside(2800), 0.00},
      // 2240 / 31 held to 14 decimals = 72.25806451612903, times 15 and 16.
      {"start on the 17th of 31 days, in", Part(DateSerial(2025, 3, 17)), In(2240), 1083.87},
      {"start on the 17th of 31 days, outside", Part(DateSerial(2025, 3, 17)), Outside(2240), 1156.13},
      {"a negative amount", Part(kFeb10), In(-2800), -1900.00},
      {"no part of a month, in", [](K& k) { k.Beginndatum = kFeb10; }, In(2800), 2800.00},
      {"no part of a month, outside", [](K& k) { k.Beginndatum = kFeb10; }, Outside(2800), 0.00},
      {"no part of a month: 30 SV days in", [](K&) {}, DaysIn, 30},
      {"no part of a month: 0 SV days outside", [](K&) {}, DaysOutside, 0},
      {"change of phase, in", Then(Part(kFeb10), phase), In(2800), 2800.00},
      {"change of phase, outside", Then(Part(kFeb10), phase), Outside(2800), 0.00},
      {"change of phase: SV days still counted", Then(Part(kFeb10, DateSerial(2025, 2, 28)), phase), DaysIn, 19},
      {"12 of 30 days given, in", Part(kFeb10), In(3000, 30, 12), 1200.00},
      {"12 of 30 days given, outside", Part(kFeb10), Outside(3000, 30, 12), 1200.00},
      {"days given without a month: 0, not infinite", Part(kFeb10), In(3000, 0, 12), 0.00},
      {"days given without a month, outside", Part(kFeb10), Outside(3000, 0, 12), 0.00},
      {"a month of 30 days given, no day", Part(kFeb10), In(3000, 30, 0), 0.00},
      {"SV days outside, start on the 10th", Part(kFeb10), DaysOutside, 9},
      {"SV days outside, end on the 30th", Part(DateSerial(2025, 4, 1), DateSerial(2025, 4, 30)), DaysOutside, 0},
      {"SV days outside, end on the 31st", Part(DateSerial(2025, 3, 1), DateSerial(2025, 3, 31)), DaysOutside, -1},
      {"calendar days of February", Part(kFeb10), MonthDays, 28},
      // Dates outside the month or out of order: what the rules compute.
      {"end in the next month, in", Part(kFeb1, DateSerial(2025, 3, 31)), In(2800), 3100.00},
      {"end in the next month, outside", Part(kFeb1, DateSerial(2025, 3, 31)), Outside(2800), -300.00},
      {"end before the start, in", Part(kFeb1, DateSerial(2025, 1, 20)), In(2800), 2000.00},
      {"end before the start: SV days", Part(kFeb1, DateSerial(2025, 1, 20)), DaysIn, -11},
      // Date 0 is 30 December 1899: day 30 of a month of 31 days.
      {"no start date, in", Part(0), In(3100), 200.00},
      {"no start date, outside", Part(0), Outside(3100), 2900.00},
      {"no start date: 31 calendar days", Part(0), MonthDays, 31},
      {"rate 87.5 of 1000", rate(87.5), [](const K& k) { return k.ErmittleBruttoersatzrateFürBetrag(1000); }, 875.00},
      {"rate 0", rate(0), [](const K& k) { return k.ErmittleBruttoersatzrateFürBetrag(1000); }, 0.00},
      {"rate 87.5 of 1234.56", rate(87.5), [](const K& k) { return k.ErmittleBruttoersatzrateFürBetrag(1234.56); },
       1080.24},
      {"salary above the minimum", minimum(1000, 600, 500), Minimum, 1100},
      {"salary below the minimum", minimum(1000, 400, 400), Minimum, 1000},
      {"minimum for 19 of 28 days", Then(Part(kFeb10), minimum(1400, 0, 0)), Minimum, 950.00},
      {"continued pay instead of the minimum", Then(Part(kFeb10), [](K& k) { k.EFZEntgelt = 700; }), Minimum, 475.00},
      {"minimum whole in a change of phase", Then(Then(Part(kFeb10), phase), minimum(1400, 0, 0)), Minimum, 1400},
      {"no surcharge percentage: the plain minimum", surcharge(0, 0), MinimumWithSurcharge, 1000},
      {"with a surcharge percentage", surcharge(5, 0), MinimumWithSurcharge, 1400},
      {"continued pay wins over the surcharge", surcharge(5, 900), MinimumWithSurcharge, 900},
      {"surcharge for 19 of 28 days", Then(Part(kFeb10), surcharge(5, 0)), MinimumWithSurcharge, 950.00},
      {"surcharge amount", surcharge(5, 0), [](const K& k) { return k.MindestentgeltBruttoAufschlag(); }, 400},
      {"bonus 50 on a salary of 500", Then(minimum(1000, 500, 0), [](K& k) { k.Kurzarbeitsbonus = 50; }), Bonus, 50},
      {"bonus 50 on a salary of 1200", Then(minimum(1000, 1200, 0), [](K& k) { k.Kurzarbeitsbonus = 50; }), Bonus, 0},
      {"bonus 50 on a salary of 1020", Then(minimum(1000, 1020, 0), [](K& k) { k.Kurzarbeitsbonus = 50; }), Bonus, 30},
      {"no bonus, salary at the minimum", minimum(1000, 1000, 0), Bonus, 0},
      {"bonus over 19 of 28 days", Then(Then(Part(kFeb10), minimum(1400, 0, 0)), [](K& k) { k.Kurzarbeitsbonus = 50; }),
       Bonus, 50},
      {"hours of one paid by the hour", hours(true, true), [](const K& k) { return k.GesamtStunden(); }, 67.5},
      {"hours without a part of a month", hours(true, false), [](const K& k) { return k.GesamtStunden(); }, 37.5},
      {"hours of a salaried employee", hours(false, true), [](const K& k) { return k.GesamtStunden(); }, 0},
      {"SV base for 19 of 28 days", Then(Part(kFeb10), [](K& k) { k.SVBG = 2800; }),
       [](const K& k) { return k.SVBGAliquot(); }, 1900.00},
      {"BV base whole in a change of phase", Then(Then(Part(kFeb10), phase), [](K& k) { k.BVBG = 2800; }),
       [](const K& k) { return k.BVBGAliquot(); }, 2800.00},
      {"reference pay",
       [](K& k) {
         k.Überstundenpauschale = 100.25;
         k.ReferenzGehalt = 2000;
         k.Sachbezug = 50.5;
         k.ReferenzBezügeLstPflSVPfl = 10;
         k.ReferenzBezügeLstFreiSvPfl = 20;
         k.ReferenzZulagenSVPfl = 30;
       },
       [](const K& k) { return k.Referenzentgelt(); }, 2210.75},
  };
}

TEST(KurzarbeitCalculation, EveryFigureToTheCent) {
  for (const Case& c : Cases()) {
    K k;
    c.setup(k);
    const double value = c.figure(k);
    EXPECT_TRUE(std::isfinite(value)) << c.what;
    // Exact: the figures are rounded to the cent, so they must be the very double
    // the decimal stands for.
    EXPECT_EQ(value, c.expected) << c.what;
  }
}

TEST(KurzarbeitCalculation, TheBonusIsADoubleInAVariant) {
  K k;
  EXPECT_EQ(k.KurzarbeitsbonusAliquot().kind(), Variant::Double);
}

TEST(KurzarbeitCalculation, AValueThatIsNoDateIsRefusedNamingTheProperty) {
  for (double bad : {std::nan(""), HUGE_VAL, 1e12}) {
    K k;
    k.IsZeitraumAliquot = true;
    k.Beginndatum = kFeb1;
    k.Endedatum = bad;
    try {
      (void)k.ErmittleAliquotBetragInKurzarbeit(100, 0, 0);
      ADD_FAILURE() << "no failure for " << bad;
    } catch (const ConversionError& e) {
      EXPECT_NE(std::string(e.what()).find("Endedatum"), std::string::npos) << e.what();
    }
  }
}

}  // namespace
