// The demo's short-time month, replacement benefit and benefits in kind, seen
// through the walk and through ormelix show month.
#include <gtest/gtest.h>

#include "support/demo_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"

using namespace ormelix;
using test::JsonValue;

namespace {

class DemoBenefitsTest : public test::DemoStoreTest {};

TEST_F(DemoBenefitsTest, TheWalkShowsTheShortTimeFiguresOfItsMonth) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  for (const char* line : {"Kurzarbeit(3) of 1002 Markus Berger: 2025-03-17 to 2025-03-31",
                           "ErmittleMaxTage 31, ErmittleMaxTageSVKurzareit 15, ErmittleMaxTageSVOhneKurzareit 16",
                           "Referenzentgelt 2240.00 x Bruttoersatzrate 87.50 % = MindestentgeltBrutto 1960.00",
                           "MindestentgeltBruttoAliquot 948.39 (Gehalt 567.00)", "SVBGAliquot 1083.87",
                           "Bundesland index 8; Sachbezug(3) 1050.85"})
    EXPECT_NE(Demo().out.find(line), std::string::npos) << line << "\n" << Demo().out;
}

TEST_F(DemoBenefitsTest, TheShortTimeMonthWithItsStoredAndComputedFigures) {
  JsonValue month = MonthJson("1002", "202503");
  const JsonValue& k = month["Kurzarbeit"];
  EXPECT_TRUE(k["IsKurzarbeit"].AsBool());
  EXPECT_EQ(k["Beginndatum"].AsString(), "2025-03-17");
  EXPECT_DOUBLE_EQ(k["MindestentgeltBrutto"].AsNumber(), 1960.00);
  EXPECT_DOUBLE_EQ(k["StundenVorKurzarbeit"].AsNumber(), 74);
  EXPECT_DOUBLE_EQ(k["MindestentgeltBruttoAliquot"].AsNumber(), 948.39);
  EXPECT_DOUBLE_EQ(k["SVBGAliquot"].AsNumber(), 1083.87);
  EXPECT_DOUBLE_EQ(k["KurzarbeitsbonusAliquot"].AsNumber(), 0);
  EXPECT_DOUBLE_EQ(k["GesamtStunden"].AsNumber(), 114.5);
  EXPECT_DOUBLE_EQ(k["ErmittleMaxTageSVOhneKurzareit"].AsNumber(), 16);
  // The pay month takes the minimum pay for the short-time days and the full
  // base for its contributions.
  EXPECT_DOUBLE_EQ(month["month"]["LFD_Bezuege"].AsNumber(), 2020.39);
  EXPECT_DOUBLE_EQ(month["month"]["SV_Laufend_Basis"].AsNumber(), 2155.87);
  EXPECT_FALSE(MonthJson("1002", "202502")["Kurzarbeit"]["IsKurzarbeit"].AsBool());

  const std::string text = Month("1002", "202503", false).out;
  EXPECT_NE(text.find("Kurzarbeit, berechnet"), std::string::npos) << text;
  EXPECT_NE(text.find("keine Ersatzleistung in diesem Monat"), std::string::npos);
}

TEST_F(DemoBenefitsTest, TheReplacementBenefitOfTheLastMonthCountsForJanuary) {
  JsonValue month = MonthJson("1005", "202412");
  const JsonValue& benefits = month["SV_EL_Laufend"];
  EXPECT_EQ(benefits["Count"].AsNumber(), 1);
  const JsonValue& entry = benefits["Col"][0];
  EXPECT_EQ(entry["Zeitraum"].AsNumber(), 202501);
  EXPECT_TRUE(entry["Geringfügig"].AsBool());
  EXPECT_EQ(entry["SVTage"].AsNumber(), 3);
  EXPECT_FALSE(entry["LaufbahnID"].AsString().empty());       // the step of the exit
  EXPECT_DOUBLE_EQ(entry["SV_Laufend_DG"].AsNumber(), 0.53);  // accident insurance, 1.10 % of 48.00
  EXPECT_DOUBLE_EQ(entry["SV_Laufend_Gesamt"].AsNumber(), 0.53);
  EXPECT_DOUBLE_EQ(entry["BV_Betrag"].AsNumber(), 0.73);
  EXPECT_DOUBLE_EQ(benefits["SV_Laufend_Basis_Gesamt"].AsNumber(), 48.00);
  // Her December: sick pay beside the salary, the leave paid out free of
  // contributions in the month.
  bool sick_pay = false;
  for (const JsonValue& line : month["Lohnarten"].AsArray())
    sick_pay = sick_pay || line["ZSL_Text"].AsString().find("Krankenstand") != std::string::npos;
  EXPECT_TRUE(sick_pay);
  EXPECT_DOUBLE_EQ(month["month"]["SV_Laufend_Basis"].AsNumber(), 480.00);
  // The benefit keeps her in the employee list of 2025 after the end of the term.
  EXPECT_EQ(MonthJson("1005", "202501")["SV_EL_Laufend"]["Count"].AsNumber(), 0);
}

TEST_F(DemoBenefitsTest, BenefitsInKindAreSavedForEachMonthAndOthersGetTheDefaults) {
  for (const char* period : {"202501", "202502", "202503"}) {
    JsonValue month = MonthJson("1004", period);
    const JsonValue& b = month["Sachbezüge"];
    EXPECT_FALSE(b["ID"].AsString().empty()) << period;
    EXPECT_DOUBLE_EQ(b["Anschaffungskosten"].AsNumber(), 45600) << period;
    EXPECT_EQ(b["CO2Emissionswert"].AsNumber(), 118);
    EXPECT_DOUBLE_EQ(b["Wohnungsfläche"].AsNumber(), 55);
    EXPECT_EQ(b["Bundesland"].AsNumber(), 8);                           // Wien, from the year data
    EXPECT_DOUBLE_EQ(month["month"]["Sachbezug"].AsNumber(), 1050.85);  // 684.00 car + 366.85 flat
  }
  JsonValue other = MonthJson("1001", "202503");
  EXPECT_EQ(other["Sachbezüge"]["ID"].AsString(), "");
  EXPECT_EQ(other["Sachbezüge"]["Zehntelregelung"].AsNumber(), 10);
  EXPECT_EQ(other["Sachbezüge"]["Bundesland"].AsNumber(), 8);
  EXPECT_EQ(MonthJson("1004", "202412")["Sachbezüge"]["ID"].AsString(), "");
}

}  // namespace
