// The demo's employer with its side records, and the countries of its reference
// store, looked at through ormelix show.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/demo_store.h"
#include "support/test_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::JsonValue;
using test::RunTool;

namespace {

class DemoEmployerTest : public test::DemoStoreTest {
 protected:
  static test::ToolRun Run(std::vector<std::string> args) { return DemoStoreTest::Show(std::move(args)); }
  static JsonValue Show(std::vector<std::string> args) { return ShowJson(std::move(args)); }
};

TEST_F(DemoEmployerTest, TheEmployerShowsEverySideRecord) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  JsonValue employers = Show({"employers"});
  ASSERT_EQ(employers["employers"].Size(), 1u);
  const JsonValue& e = employers["employers"][0];
  EXPECT_EQ(e["Bankverbindung"]["IBAN"].AsString(), "AT00 2011 1000 0070 0001");
  EXPECT_EQ(e["Finanzamt"]["Finanzamt"].AsString(), "Finanzamt Österreich");
  EXPECT_EQ(e["Kommunal"]["Gemeinde"]["Kennziffer"].AsString(), "90001");
  EXPECT_EQ(e["Kommunal"]["Gemeinde"]["Gemeinde"].AsString(), "Wien");
  EXPECT_EQ(e["BMVG_Kasse"]["Kasse"]["Leitzahl"].AsString(), "99010");
  EXPECT_EQ(e["BMVG_Kasse"]["Kasse"]["Name"].AsString(), "Demo Vorsorgekasse Nord AG");

  const JsonValue& years = e["Jahresdaten"];
  ASSERT_EQ(years.Size(), 2u);
  EXPECT_EQ(years[0]["Jahr"].AsNumber(), 2024);
  EXPECT_TRUE(years[0]["DBSenkung"].AsBool());
  EXPECT_EQ(years[1]["Jahr"].AsNumber(), 2025);
  EXPECT_FALSE(years[1]["DBSenkung"].AsBool());
  EXPECT_TRUE(years[1]["SVAbgabe_GF_am_Jahresende"].AsBool());
  EXPECT_EQ(years[1]["DZBundesland"].AsNumber(), 9);
  EXPECT_NE(years[0]["ID"].AsString(), years[1]["ID"].AsString());

  const JsonValue& accounts = e["Beitragskonten"];
  EXPECT_EQ(accounts["Count"].AsNumber(), 2);
  EXPECT_TRUE(accounts["IsMoreSVTraeger"].AsBool());
  EXPECT_EQ(accounts["Item"][0]["VT_KurzBezeichnung"].AsString(), "ÖGK Wien");
  EXPECT_TRUE(accounts["Item"][0]["Standard"].AsBool());
  EXPECT_EQ(accounts["Item"][1]["VT_Code"].AsString(), "ÖGK-N");

  EXPECT_TRUE(e["PDFEncrypt"]["EncryptVS"].AsBool());
  EXPECT_EQ(e["PDFEncrypt"]["VSPasswordOption"].AsNumber(), 2);
  EXPECT_FALSE(e["PDFEncrypt"].Has("VSPassword"));
}

TEST_F(DemoEmployerTest, NoPasswordIsEverShown) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"employers"},
        {"employers", "--json"},
        {"month", "--employee", "1001", "--period", "202503"},
        {"month", "--employee", "1001", "--period", "202503", "--json"}}) {
    auto run = Run(args);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.find("Alpenblick-Lohn"), std::string::npos);
    EXPECT_EQ(run.out.find("Huber-1986"), std::string::npos);
    EXPECT_EQ(run.out.find("VSPassword\""), std::string::npos);
  }
  auto text = Run({"employers"});
  EXPECT_NE(text.out.find("Beitragskonto 2"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("eVSPOSIndividualMitarbeiter"), std::string::npos);
}

TEST_F(DemoEmployerTest, CountriesShowTheIndicatorOfThePeriod) {
  JsonValue early = Show({"countries", "--period", "201906"});
  ASSERT_EQ(early["countries"].Size(), 10u);
  EXPECT_EQ(early["IndikationEndPeriod"].AsNumber(), 202208);
  EXPECT_FALSE(early["IsEndIndikator"].AsBool());
  const JsonValue& austria = early["countries"][0];
  EXPECT_EQ(austria["KFZ"].AsString(), "A");
  EXPECT_EQ(austria["ISO_A3"].AsString(), "AUT");
  EXPECT_EQ(austria["GetIndikator"]["Zeitraum"].AsNumber(), 201901);

  JsonValue later = Show({"countries", "--period", "202208"});
  EXPECT_TRUE(later["IsEndIndikator"].AsBool());
  auto country = [&](const std::string& kfz) -> const JsonValue& {
    const auto& list = later["countries"].AsArray();
    auto found = std::find_if(list.begin(), list.end(), [&](const JsonValue& c) { return c["KFZ"].AsString() == kfz; });
    if (found == list.end()) throw std::out_of_range("no country " + kfz);
    return *found;
  };
  EXPECT_EQ(country("D")["GetIndikator"]["Zeitraum"].AsNumber(), 202001);
  EXPECT_EQ(country("I")["GetIndikator"]["Zeitraum"].AsNumber(), 201901);  // no newer one
  EXPECT_EQ(country("SRB")["GetIndikator"].kind(), JsonValue::Null);
  EXPECT_FALSE(country("CH")["EULand"].AsBool());
  EXPECT_EQ(Show({"countries", "--period", "201812"})["countries"][1]["GetIndikator"].kind(), JsonValue::Null);
}

TEST_F(DemoEmployerTest, BadCountryInputGivesOneLineAndStatusTwo) {
  using Case = std::pair<std::vector<std::string>, const char*>;
  for (const auto& [args, expected] :
       {Case{{"countries"}, "needs --period"}, Case{{"countries", "--period", "2020"}, "is not YYYYMM"}}) {
    auto run = Run(args);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_NE(run.err.find(expected), std::string::npos) << run.err;
  }
  if (test::OnPostgres()) return;  // a payroll store file without its reference store beside it
  test::TempDir alone;
  std::filesystem::copy_file(DemoDir() / "store" / "payroll.db", alone.Path() / "payroll.db");
  auto run = RunTool({"show", "--store", alone.Path().string(), "countries", "--period", "202001"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("no reference store"), std::string::npos) << run.err;
}

}  // namespace
