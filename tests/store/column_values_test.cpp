// How a column's values are written to a table file, read back from it (also in
// the forms mdb-export writes) and checked against the column's range.
#include <gtest/gtest.h>

#include <cmath>

#include "ormelix/error.h"
#include "ormelix/store/column_values.h"
#include "ormelix/store/date_helpers.h"

using namespace ormelix;

namespace {

SchemaColumn Column(const std::string& name, const std::string& type) {
  SchemaColumn column;
  column.name = name;
  column.type = type;
  return column;
}

std::string Parsed(const SchemaColumn& column, FileValue::Form form, std::string_view text) {
  try {
    Variant value = ParseColumnValue(column, FileValue{form, text});
    std::string kind = value.IsNull() ? "null" : value.IsText() ? "text" : value.kind() == Variant::Double ? "double" : "int";
    return kind + ":" + value.Describe();
  } catch (const ConversionError& error) {
    return std::string("refused:") + error.what();
  }
}

TEST(ColumnValues, FileValuesBecomeTheValuesTheirColumnsHold) {
  using F = FileValue;
  const double march17 = DateHelpers::DateSerial(2025, 3, 17);
  struct Case {
    SchemaColumn column;
    F::Form form;
    std::string text, expected;
  };
  const Case cases[] = {
      {Column("Name", "text"), F::Text, "", "text:"},
      {Column("Name", "text"), F::Null, "", "null:Null"},
      {Column("Name", "text"), F::Bare, "12", "text:12"},
      {Column("MitarbeiterID", "text"), F::Text, "0a1b2c3d-0000-4000-8000-00000000abcd",
       "text:{0a1b2c3d-0000-4000-8000-00000000abcd}"},
      {Column("Name", "text"), F::Text, "0a1b2c3d-0000-4000-8000-00000000abcd", "text:0a1b2c3d-0000-4000-8000-00000000abcd"},
      {Column("Name", "text"), F::Text, "M\xFCller", "refused:the text 'M\xFCller' is no UTF-8"},
      {Column("Name", "text"), F::True, "", "refused:a boolean is no text"},
      {Column("Aktiv", "bool"), F::Bare, "-1", "int:-1"},
      {Column("Aktiv", "bool"), F::Bare, "1", "int:-1"},
      {Column("Aktiv", "bool"), F::Bare, "TRUE", "int:-1"},
      {Column("Aktiv", "bool"), F::Text, "false", "int:0"},
      {Column("Aktiv", "bool"), F::False, "", "int:0"},
      {Column("Aktiv", "bool"), F::Bare, "2", "refused:'2' is no boolean"},
      {Column("Personalnummer", "int16"), F::Bare, "1001", "int:1001"},
      {Column("Personalnummer", "int16"), F::Bare, "12.0", "int:12"},
      {Column("Personalnummer", "int16"), F::Bare, "70000", "refused:70000 lies outside 16 bits"},
      {Column("Personalnummer", "int16"), F::Bare, "1.5", "refused:'1.5' is no whole number"},
      {Column("Personalnummer", "int16"), F::Text, "abc", "refused:'abc' is no number"},
      {Column("Zeitraum", "int32"), F::Bare, "202503", "int:202503"},
      {Column("Zeitraum", "int32"), F::Bare, "202513", "refused:202513 is no period YYYYMM"},
      {Column("Gehalt", "double"), F::Bare, "3350.12", "double:3350.12"},
      {Column("Gehalt", "double"), F::Bare, "inf", "refused:'inf' is no number"},
      {Column("Gehalt", "double"), F::Null, "", "null:Null"},
      {Column("Geburtsdatum", "date"), F::Bare, "2025-03-17", "double:" + FormatNumber(march17)},
      {Column("Geburtsdatum", "date"), F::Text, "03/17/2025 00:00:00", "double:" + FormatNumber(march17)},
      {Column("Geburtsdatum", "date"), F::Text, "03/17/25", "double:" + FormatNumber(march17)},
      {Column("Geburtsdatum", "date"), F::Text, "12/24/86 12:00:00",
       "double:" + FormatNumber(DateHelpers::DateSerial(1986, 12, 24) + 0.5)},
      {Column("Geburtsdatum", "date"), F::Bare, "2025-03-17T06:00", "double:" + FormatNumber(march17 + 0.25)},
      {Column("Geburtsdatum", "date"), F::Bare, "45733", "double:45733"},
      {Column("Geburtsdatum", "date"), F::Bare, "0", "double:0"},
      {Column("Geburtsdatum", "date"), F::Bare, "2025-02-30", "refused:'2025-02-30' is no date"},
      {Column("Geburtsdatum", "date"), F::Bare, "garbage", "refused:'garbage' is no date"},
      {Column("Geburtsdatum", "date"), F::Bare, "5000000", "refused:5000000 lies outside the dates"},
      {Column("Values", "any"), F::Bare, "3", "int:3"},
      {Column("Values", "any"), F::Bare, "2.0", "double:2"},
      {Column("Values", "any"), F::Text, "3", "text:3"},
      {Column("Values", "any"), F::Bare, "Büro", "text:Büro"},
      {SchemaColumn{"ID", "text", "", "", false, true}, F::Null, "", "refused:a key cannot be empty"},
  };
  for (const Case& c : cases) {
    std::string got = Parsed(c.column, c.form, c.text);
    EXPECT_EQ(got.substr(0, c.expected.size()), c.expected) << c.column.name << " " << c.text;
  }
}

TEST(ColumnValues, WrittenValuesReadBackAsTheSameValues) {
  const double day = DateHelpers::DateSerial(2025, 3, 17);
  struct Case {
    SchemaColumn column;
    Variant value;
    std::string text;
  };
  const Case cases[] = {
      {Column("Geburtsdatum", "date"), Variant(day), "2025-03-17"},
      {Column("Geburtsdatum", "date"), Variant(static_cast<std::int64_t>(day)), "2025-03-17"},
      {Column("Geburtsdatum", "date"), Variant(day + 0.5), "2025-03-17 12:00:00"},
      {Column("Geburtsdatum", "date"), Variant(day + 0.123456789), "45733.123456789"},  // finer than a second
      {Column("Geburtsdatum", "date"), Variant(0.0), "0"},
      {Column("Geburtsdatum", "date"), Variant(-1.0), "1899-12-29"},
      {Column("Gehalt", "double"), Variant(0.1 + 0.2), "0.30000000000000004"},
      {Column("Values", "any"), Variant(2.0), "2.0"},
      {Column("Values", "any"), Variant(static_cast<std::int64_t>(2)), "2"},
      {Column("Aktiv", "bool"), Variant(true), "-1"},
  };
  for (const Case& c : cases) {
    ValueText text = ColumnValueText(c.column, c.value);
    EXPECT_EQ(text.text, c.text) << c.value.Describe();
    Variant back = ParseColumnValue(c.column, FileValue{FileValue::Bare, text.text});
    double a = 0, b = 0;
    c.value.TryNumber(a);
    back.TryNumber(b);
    EXPECT_EQ(a, b) << c.text;
    EXPECT_EQ(back.kind() == Variant::Double, c.value.kind() == Variant::Double || c.column.type == "date" ||
                                                   c.column.type == "double")
        << c.text;
  }
  EXPECT_EQ(ColumnValueText(Column("Name", "text"), Variant("")).kind, ValueText::Text);
  EXPECT_EQ(ColumnValueText(Column("Name", "text"), Variant::NullValue()).kind, ValueText::Null);
  EXPECT_EQ(ColumnValueText(Column("Gehalt", "double"), Variant(HUGE_VAL)).text, "inf");
}

TEST(ColumnValues, StoredValuesOutsideTheirColumnsRangeAreNamed) {
  const std::pair<std::pair<SchemaColumn, Variant>, std::string> cases[] = {
      {{Column("Aktiv", "bool"), Variant(static_cast<std::int64_t>(1))}, "1 is no boolean (-1 or 0)"},
      {{Column("Aktiv", "bool"), Variant(static_cast<std::int64_t>(-1))}, ""},
      {{Column("Geburtsdatum", "date"), Variant("garbage")}, "the text 'garbage' stands where a date belongs"},
      {{Column("Gehalt", "double"), Variant(HUGE_VAL)}, "inf is no finite number"},
      {{Column("Gehalt", "double"), Variant::NullValue()}, ""},
      {{Column("Personalnummer", "int16"), Variant(static_cast<std::int64_t>(-40000))}, "-40000 lies outside 16 bits"},
      {{Column("Zeitraum", "int32"), Variant(static_cast<std::int64_t>(0))}, "0 is no period YYYYMM"},
      {{Column("Familienname", "text"), Variant(std::string("a\0b", 3))}, "holds a NUL byte"},
      {{Column("Familienname", "text"), Variant("Ärzte")}, ""},
  };
  for (const auto& [input, expected] : cases) {
    std::string problem = ColumnValueProblem(input.first, input.second);
    if (expected.empty()) {
      EXPECT_EQ(problem, "") << input.second.Describe();
    } else {
      EXPECT_NE(problem.find(expected), std::string::npos) << problem;
    }
  }
}

}  // namespace
