// ValueHelpers, DateHelpers and RoundingHelpers.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/value_helpers.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;
using namespace ormelix::DateHelpers;
using namespace ormelix::RoundingHelpers;

TEST(ValueHelpers, NullAndEmptyGiveTheEmptyValueOfEachConversion) {
  for (const Variant& missing : {Variant(), Variant::NullValue()}) {
    EXPECT_EQ(ToText(missing), "");
    EXPECT_FALSE(ToFlag(missing));
    EXPECT_EQ(ToLong(missing), 0);
    EXPECT_EQ(ToInteger(missing), 0);
    EXPECT_EQ(ToSingle(missing), 0.0f);
    EXPECT_EQ(ToAmount(missing), 0.0);
    EXPECT_EQ(ToDate(missing), 0.0);
  }
  EXPECT_TRUE(ToVariantValue(Variant::NullValue()).IsNull());
}

TEST(ValueHelpers, NumbersRoundHalfToEvenAndTextIsReadAsANumber) {
  EXPECT_EQ(ToInteger(Variant(2.5)), 2);
  EXPECT_EQ(ToInteger(Variant(3.5)), 4);
  EXPECT_EQ(ToInteger(Variant(-2.5)), -2);
  EXPECT_EQ(ToInteger(Variant("14")), 14);
  EXPECT_EQ(ToInteger(Variant("03")), 3);
  EXPECT_EQ(ToLong(Variant("202403")), 202403);
  EXPECT_DOUBLE_EQ(ToAmount(Variant("12.345")), 12.345);
  EXPECT_THROW(ToInteger(Variant("3x")), ConversionError);
  EXPECT_THROW(ToInteger(Variant(40000)), std::out_of_range);
  EXPECT_EQ(AmountToInteger(50.5), 50);
  EXPECT_EQ(AmountToInteger(51.5), 52);
}

TEST(ValueHelpers, FlagsAndTexts) {
  EXPECT_TRUE(ToFlag(Variant(-1)));
  EXPECT_TRUE(ToFlag(Variant(7)));
  EXPECT_FALSE(ToFlag(Variant(0)));
  EXPECT_TRUE(ToFlag(Variant("True")));
  EXPECT_EQ(ToText(Variant(true)), "True");
  EXPECT_EQ(ToText(Variant(202403)), "202403");
  EXPECT_EQ(ToText(Variant(0.1 + 0.2)), "0.3");
  EXPECT_TRUE(TextToBool("-1"));
  EXPECT_FALSE(TextToBool("0"));
  EXPECT_TRUE(TextToBool("true"));
  EXPECT_THROW(TextToBool(""), ConversionError);
  EXPECT_THROW(TextToBool("ja"), ConversionError);
  EXPECT_EQ(TrimText("  Anna Muster "), "Anna Muster");
}

TEST(ValueHelpers, IdsAndTheirLiterals) {
  std::string id = NewID();
  EXPECT_TRUE(IsID(Variant(id)));
  EXPECT_EQ(SqlID(id), id);
  std::string lower = id;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  EXPECT_TRUE(IsID(Variant(lower)));
  EXPECT_EQ(SqlID(lower), id);
  EXPECT_EQ(SqlID(id.substr(1, 36)), id);  // without braces
  EXPECT_FALSE(IsID(Variant("")));
  EXPECT_FALSE(IsID(Variant(42)));
  EXPECT_FALSE(IsID(Variant("42")));
  EXPECT_FALSE(IsID(Variant("Standard")));
  EXPECT_FALSE(IsID(Variant(SqlID(""))));
  EXPECT_EQ(SqlID("Standard"), "'Standard'");
  std::set<std::string> many;
  for (int i = 0; i < 1000; ++i) many.insert(NewID());
  EXPECT_EQ(many.size(), 1000u);
}

TEST(DateHelpers, DayCountsAndCalendarArithmetic) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2);
  EXPECT_EQ(DateSerial(2024, 3, 15), 45366);
  EXPECT_EQ(Year(45366), 2024);
  EXPECT_EQ(Month(45366), 3);
  EXPECT_EQ(Day(45366), 15);
  EXPECT_EQ(DateSerial(2024, 13, 1), DateSerial(2025, 1, 1));
  EXPECT_EQ(DateSerial(2024, 3, 0), DateSerial(2024, 2, 29));
  EXPECT_EQ(Year(DateSerial(2024, 43, 1)), 2027);  // month 43 runs on into later years
  EXPECT_EQ(Month(DateSerial(2024, 43, 1)), 7);
  EXPECT_EQ(LastDayOfMonth(DateSerial(2024, 2, 10)), DateSerial(2024, 2, 29));
  EXPECT_EQ(LastDayOfMonth(DateSerial(2023, 2, 10)), DateSerial(2023, 2, 28));
  EXPECT_EQ(FormatDate(DateSerial(2020, 2, 29)), "2020-02-29");
  EXPECT_EQ(FormatDate(0), "");
}

// Found by fuzzing: a NaN or an enormous day count was cast to an integer
// (undefined behaviour) on its way to a calendar date.
TEST(DateHelpers, ADayCountThatNamesNoDayIsRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_THROW(ToDate(Variant(nan)), ConversionError);
  EXPECT_THROW(ToDate(Variant(-inf)), ConversionError);
  for (double day : {nan, inf, 1e300, -4e9}) {
    EXPECT_THROW(FormatDate(day), std::out_of_range) << day;
    EXPECT_THROW(LastDayOfMonth(day), std::out_of_range) << day;
    EXPECT_THROW(DateToZeitraum(day), std::out_of_range) << day;
  }
  EXPECT_EQ(Year(2958465), 9999);  // the last day of 9999 is still a day
  // Found by replaying the corpus under UBSan: years added past a 32-bit key overflowed.
  EXPECT_THROW(ZeitraumAddYears(202403, Variant(std::int64_t{2147483647})), std::out_of_range);
  EXPECT_EQ(ZeitraumAddYears(202403, Variant(-18)), 200603);
}

TEST(DateHelpers, PeriodKeys) {
  EXPECT_EQ(MakeZeitraum(6, 2024), 202406);
  EXPECT_EQ(DateToZeitraum(DateSerial(2024, 3, 15)), 202403);
  EXPECT_EQ(ZeitraumMonth(202406), 6);
  EXPECT_EQ(ZeitraumToDate(202307, 1), DateSerial(2023, 7, 1));
  EXPECT_EQ(ZeitraumToDate(202403, 1) - 1, DateSerial(2024, 2, 29));
  EXPECT_EQ(ZeitraumAddYears(200203, Variant(18)), 202003);
  EXPECT_TRUE(IsEmptyText(Variant("  ")));
  EXPECT_TRUE(IsEmptyText(Variant::NullValue()));
  EXPECT_FALSE(IsEmptyText(Variant("x")));
}

TEST(RoundingHelpers, CommercialRoundingOfTheDecimalValue) {
  EXPECT_DOUBLE_EQ(RoundTo(1234.565, 2), 1234.57);
  EXPECT_DOUBLE_EQ(RoundTo(1234.5649, 2), 1234.56);
  EXPECT_DOUBLE_EQ(RoundTo(-0.125, 2), -0.13);
  EXPECT_DOUBLE_EQ(RoundTo(2.675, 2), 2.68);  // 2.67499999... in binary
  EXPECT_DOUBLE_EQ(RoundTo(1234.567, 2), 1234.57);
  EXPECT_DOUBLE_EQ(RoundTo(36.5125, 4), 36.5125);
  EXPECT_DOUBLE_EQ(RoundTo(3.825, 2), 3.83);
  EXPECT_DOUBLE_EQ(RoundTo(0.004, 2), 0.0);
  EXPECT_DOUBLE_EQ(RoundTo(0.005, 2), 0.01);
  EXPECT_DOUBLE_EQ(RoundTo(999.995, 2), 1000.0);
  EXPECT_DOUBLE_EQ(RoundTo(1234.565f, 2), 1234.57);  // a single is read to 7 digits
  EXPECT_DOUBLE_EQ(RoundTo(Variant::NullValue(), 2), 0.0);
}

TEST(RoundingHelpers, RoundingARoundedValueAgainChangesNothing) {
  for (int i = -20000; i <= 20000; i += 7) {
    double value = i * 0.3337 + 0.0005;
    double once = RoundTo(value, 2);
    EXPECT_EQ(RoundTo(once, 2), once) << value;
    EXPECT_EQ(RoundTo(static_cast<float>(once), 2), once) << value;
    double four = RoundTo(value, 4);
    EXPECT_EQ(RoundTo(four, 4), four) << value;
  }
}

TEST(RoundingHelpers, DivideThenMultiply) {
  EXPECT_DOUBLE_EQ(MultiplyExact(DivideExact(2800, 28, 14), Variant(19), 2), 1900.00);
  EXPECT_DOUBLE_EQ(MultiplyExact(DivideExact(3000, 30, 14), Variant(12), 2), 1200.00);
  EXPECT_DOUBLE_EQ(MultiplyExact(DivideExact(1000, 100, 14), Variant(87.5), 2), 875.00);
  EXPECT_DOUBLE_EQ(MultiplyExact(DivideExact(2800, 31, 14), Variant(19), 2), 1716.13);
  EXPECT_DOUBLE_EQ(DivideExact(1, 3, 14), 0.33333333333333);
  EXPECT_EQ(DivideExact(5, 0, 14), 0.0);
}
