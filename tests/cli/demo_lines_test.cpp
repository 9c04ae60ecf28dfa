// The demo's wage-type lines, transfer and year data, seen through the walk and
// through ormelix show month.
#include <gtest/gtest.h>

#include "support/demo_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"

using namespace ormelix;
using test::JsonValue;

namespace {

class DemoLinesTest : public test::DemoStoreTest {};

TEST_F(DemoLinesTest, TheWalkShowsTheMarkedPartOfItsMonth) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  EXPECT_NE(Demo().out.find("GetDBDZKST_frei(3) = 200.00 of LFD_Bezuege 3831.12"), std::string::npos) << Demo().out;
  EXPECT_NE(Demo().out.find("\"Überstunden 50 %\" 8.00 x 35.14 = 281.12"), std::string::npos);
  EXPECT_NE(Demo().out.find("Jahresdaten 2025: DZBundesland 9"), std::string::npos);
  EXPECT_NE(Demo().out.find("as stored"), std::string::npos);
}

TEST_F(DemoLinesTest, TheLinesOfAMonthEachWithItsGroupAndTheColumnsOfItsGroupOnce) {
  const auto raw = Month("1001", "202503", true);
  JsonValue month = JsonValue::Parse(raw.out);
  const JsonValue& lines = month["Lohnarten"];
  ASSERT_EQ(lines.Size(), 5u);
  std::size_t keys = 0;
  for (std::size_t at = raw.out.find("\"Lohnarttyp\""); at != std::string::npos;
       at = raw.out.find("\"Lohnarttyp\"", at + 1))
    ++keys;
  EXPECT_EQ(keys, 5u);
  const JsonValue& overtime = lines[1];
  EXPECT_EQ(overtime["Lohnarttyp"].AsNumber(), 1);
  EXPECT_EQ(overtime["SortNr"].AsNumber(), 2);
  EXPECT_EQ(overtime["ZSL_Text"].AsString(), "Überstunden 50 %");
  EXPECT_DOUBLE_EQ(overtime["ZSL_Anzahl"].AsNumber(), 8);
  EXPECT_DOUBLE_EQ(overtime["ZSL_Satz"].AsNumber(), 35.14);
  EXPECT_EQ(overtime.Size(), 8u);  // the keys, five values and the marking of group 1
  EXPECT_FALSE(overtime["ZSL_DBDZKST_frei"].AsBool());
  EXPECT_TRUE(lines[2]["ZSL_DBDZKST_frei"].AsBool());
  EXPECT_DOUBLE_EQ(lines[2]["ZSL_Betrag"].AsNumber(), 200);
  EXPECT_EQ(lines[3]["Lohnarttyp"].AsNumber(), 7);
  EXPECT_FALSE(lines[3].Has("ZSL_Prozent"));  // groups 7 and 8 have none
  EXPECT_EQ(lines[3].Size(), 6u);
  EXPECT_EQ(month["Uebertritt"]["Datum"].AsString(), "");  // no transfer this month

  JsonValue allowance = MonthJson("1002", "202503");
  ASSERT_EQ(allowance["Lohnarten"].Size(), 1u);
  EXPECT_EQ(allowance["Lohnarten"][0]["Lohnarttyp"].AsNumber(), 5);  // tax-free under § 68
  // 14.00 x 74 hours before short-time work + the minimum pay of the short-time
  // days (948.39) + 20 x 1.80.
  EXPECT_DOUBLE_EQ(allowance["month"]["LFD_Bezuege"].AsNumber(), 2020.39);

  EXPECT_EQ(MonthJson("1001", "202502")["Lohnarten"].Size(), 0u);
}

TEST_F(DemoLinesTest, TheApprenticeBecomesAWhiteCollarEmployeeOnTheFifteenth) {
  JsonValue month = MonthJson("1003", "202503");
  const JsonValue& transfer = month["Uebertritt"];
  EXPECT_EQ(transfer["Datum"].AsString(), "2025-03-15");
  EXPECT_EQ(transfer["BEGRKürzel1"].AsString(), "D2");
  EXPECT_EQ(transfer["BEGRKürzel2"].AsString(), "D1");
  EXPECT_DOUBLE_EQ(transfer["Basis1"].AsNumber() + transfer["Basis2"].AsNumber(),
                   month["month"]["LFD_Bezuege"].AsNumber());
  EXPECT_EQ(transfer["LehrJahre"].AsNumber(), 3);
  EXPECT_EQ(month["month"]["op_LehrJahr"].AsNumber(), 3);

  const std::string text = Month("1003", "202503", false).out;
  EXPECT_NE(text.find("Übertritt"), std::string::npos);
  EXPECT_NE(text.find("2025-03-15"), std::string::npos);
  EXPECT_NE(text.find("Gehalt 15.-31. März"), std::string::npos);
  EXPECT_NE(Month("1003", "202502", false).out.find("kein Übertritt in diesem Monat"), std::string::npos);
}

TEST_F(DemoLinesTest, EachYearHasItsOwnYearData) {
  JsonValue y2024 = MonthJson("1004", "202406");
  JsonValue y2025 = MonthJson("1004", "202503");
  EXPECT_EQ(y2024["Jahresdaten"]["Bemerkung"].AsString(), "Jahresdaten 2024");
  EXPECT_EQ(y2025["Jahresdaten"]["Bemerkung"].AsString(), "Jahresdaten 2025");
  EXPECT_EQ(y2025["Jahresdaten"]["DZBundesland"].AsNumber(), 9);
  EXPECT_EQ(y2024["Jahresdaten"]["SachbezugRegelung"]["SBezugJahr"].AsNumber(), 2024);  // the managing director's company car
  EXPECT_EQ(y2025["Jahresdaten"]["KFZ_Anzahl_Kalendermonate"].AsNumber(), 12);
  EXPECT_FALSE(y2025["Jahresdaten"]["AngewandterKV"].AsBool());
  EXPECT_NE(Month("1004", "202503", false).out.find("Jahresdaten 2025"), std::string::npos);
}

}  // namespace
