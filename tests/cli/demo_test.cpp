// The demo store, looked at through ormelix show: the figures must be the published
// Austrian ones of 2024 and 2025.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/demo_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"
#include "support/test_store.h"

using namespace ormelix;
using test::JsonValue;
using test::RunTool;

namespace {

class DemoTest : public test::DemoStoreTest {
 protected:
  static JsonValue Show(std::vector<std::string> args) { return ShowJson(std::move(args)); }
};

TEST_F(DemoTest, TheDemoBuildsItsStoresAndWalksAMonth) {
  ASSERT_EQ(Demo().status, 0) << Demo().err;
  if (!test::OnPostgres()) {
    EXPECT_TRUE(std::filesystem::exists(DemoDir() / "store" / "payroll.db"));
    EXPECT_TRUE(std::filesystem::exists(DemoDir() / "store" / "reference.db"));
  }
  EXPECT_NE(Demo().out.find("GetZeittabelle(202503) = \"Werte 2025\" (from 202501)"), std::string::npos) << Demo().out;
  EXPECT_NE(Demo().out.find("GetZeittabelle(202312) = \"Werte 2025\""), std::string::npos);
  EXPECT_NE(Demo().out.find("as stored"), std::string::npos);
  EXPECT_NE(Demo().out.find("Laufbahnschritt(202503) = Eintritt 2022-09-01, Index 3"), std::string::npos);
  EXPECT_NE(Demo().out.find("IsEintritt(202503) = True"), std::string::npos);
  EXPECT_NE(Demo().out.find("LaufbahnschritteImZeitraum(202503, 202503) = Eintritt 2022-09-01"), std::string::npos);
  EXPECT_EQ(Demo().out.find("DIFFERS"), std::string::npos);
  EXPECT_TRUE(Demo().err.empty()) << Demo().err;  // no progress lines when not on a terminal
}

double Group(const JsonValue& base, const char* group, const char* property) {
  return base["table"]["SA"][group][property].AsNumber();
}

const JsonValue& DGRow(const JsonValue& base, const std::string& group) {
  for (const JsonValue& row : base["table"]["DG"]["Wert"].AsArray())
    if (row["Gruppe"].AsString() == group) return row;
  throw std::out_of_range("no DG row " + group);
}

TEST_F(DemoTest, BaseValuesOf2025AreThePublishedOnes) {
  JsonValue base = Show({"base", "--period", "202503"});
  EXPECT_EQ(base["folder"]["Bezeichnung"].AsString(), "Standard");
  EXPECT_EQ(base["table"]["Zeitraum"]["Item"].AsNumber(), 202501);
  EXPECT_FALSE(base["fallback"].AsBool());
  EXPECT_DOUBLE_EQ(Group(base, "Krankenversicherung", "Prozent"), 3.87);
  EXPECT_DOUBLE_EQ(Group(base, "Krankenversicherung", "Prozent_DG"), 3.78);
  EXPECT_DOUBLE_EQ(Group(base, "Pensionsversicherung", "Prozent"), 10.25);
  EXPECT_DOUBLE_EQ(Group(base, "Pensionsversicherung", "Prozent_DG"), 12.55);
  EXPECT_DOUBLE_EQ(Group(base, "Arbeitslosenversicherung", "Prozent"), 2.95);
  EXPECT_DOUBLE_EQ(Group(base, "Arbeitslosenversicherung", "Obergrenze"), 6450.00);
  EXPECT_DOUBLE_EQ(Group(base, "Arbeitslosenversicherung", "Sonderzahlung"), 12900.00);
  EXPECT_DOUBLE_EQ(Group(base, "Unfallversicherung", "Prozent_DG"), 1.10);
  EXPECT_DOUBLE_EQ(Group(base, "IESGZuschlag", "Prozent_DG"), 0.10);
  EXPECT_DOUBLE_EQ(Group(base, "Kammerumlage", "Prozent"), 0.50);
  EXPECT_DOUBLE_EQ(Group(base, "Wohnbaufoederung", "Prozent_DG"), 0.50);
  EXPECT_DOUBLE_EQ(Group(base, "KrankenversicherungLehrlinge2016", "Prozent"), 1.67);
  EXPECT_DOUBLE_EQ(Group(base, "Schlechtwetter", "Prozent"), 0);  // not published for 2025: not carried
  EXPECT_DOUBLE_EQ(base["table"]["SA"]["GrenzbetragGeringBeschaeftigte"]["Obergrenze"].AsNumber(), 551.10);
  EXPECT_DOUBLE_EQ(base["table"]["DGM"]["GrenzbetragMinderBeschaeftigte"].AsNumber(), 826.65);
  EXPECT_DOUBLE_EQ(base["table"]["SA"]["GrenzbetragGeringBeschaeftigte"]["Prozent"].AsNumber(), 19.4);

  const double bounds[] = {0, 13308, 21617, 35836, 69166, 103072, 1000000};
  const double rates[] = {0, 20, 30, 40, 48, 50, 55};
  const JsonValue& bands = base["table"]["LST"]["Item"];
  ASSERT_EQ(bands.Size(), 7u);
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_DOUBLE_EQ(bands[i]["Von"].AsNumber(), bounds[i]) << i;
    EXPECT_DOUBLE_EQ(bands[i]["steuersatz"].AsNumber(), rates[i]) << i;
  }
  const double small[] = {0, 58, 113, 168}, large[] = {31, 123, 214, 306};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_DOUBLE_EQ(base["table"]["PP"][i]["klein"].AsNumber(), small[i]);
    EXPECT_DOUBLE_EQ(base["table"]["PP"][i]["gross"].AsNumber(), large[i]);
  }
  EXPECT_DOUBLE_EQ(base["table"]["FB"]["FABO"].AsNumber(), 166.68);
  EXPECT_DOUBLE_EQ(base["table"]["FB"]["FABO18"].AsNumber(), 58.34);
  EXPECT_DOUBLE_EQ(base["table"]["FB"]["Verkehr"].AsNumber(), 487);
  EXPECT_DOUBLE_EQ(base["table"]["FB"]["Kinderzuschlag_Kind2"].AsNumber(), 813);
  EXPECT_DOUBLE_EQ(base["table"]["ALV"]["N25a_bis"].AsNumber(), 2074);
  EXPECT_DOUBLE_EQ(base["table"]["ALV"]["N25b_bis"].AsNumber(), 2262);
  EXPECT_DOUBLE_EQ(base["table"]["ALV"]["N25c_bis"].AsNumber(), 2451);
  const JsonValue& white_collar = DGRow(base, "Angestellte");
  EXPECT_DOUBLE_EQ(white_collar["FALAST"].AsNumber(), 3.7);
  EXPECT_DOUBLE_EQ(white_collar["SV_Laufend"].AsNumber(), 20.98);
  EXPECT_DOUBLE_EQ(white_collar["DZBL(eBasisWien)"].AsNumber(), 0.36);
  EXPECT_DOUBLE_EQ(white_collar["DZBL(eBasisNiederösterreich)"].AsNumber(), 0.34);
  EXPECT_DOUBLE_EQ(white_collar["Kommunalsteuer"].AsNumber(), 3.0);
}

TEST_F(DemoTest, TheTableOf2024AndTheFallBackBeforeTheFirstTable) {
  JsonValue base = Show({"base", "--period", "202406"});
  EXPECT_EQ(base["table"]["Zeitraum"]["Item"].AsNumber(), 202401);
  EXPECT_DOUBLE_EQ(Group(base, "Arbeitslosenversicherung", "Obergrenze"), 6060.00);
  EXPECT_DOUBLE_EQ(Group(base, "Schlechtwetter", "Prozent"), 0.70);
  EXPECT_DOUBLE_EQ(base["table"]["SA"]["GrenzbetragGeringBeschaeftigte"]["Obergrenze"].AsNumber(), 518.44);
  EXPECT_DOUBLE_EQ(DGRow(base, "Angestellte")["FALAST"].AsNumber(), 3.9);
  EXPECT_DOUBLE_EQ(DGRow(base, "Angestellte")["FALASTLGV"].AsNumber(), 3.7);
  EXPECT_DOUBLE_EQ(DGRow(base, "Arbeiter")["DZBL(eBasisNiederösterreich)"].AsNumber(), 0.35);
  EXPECT_DOUBLE_EQ(base["table"]["LST"]["Item"][1]["Von"].AsNumber(), 12816);

  JsonValue before = Show({"base", "--period", "202312"});
  EXPECT_EQ(before["table"]["Zeitraum"]["Item"].AsNumber(), 202501);  // the newest table stands in
  EXPECT_TRUE(before["fallback"].AsBool());
  JsonValue restore = Show({"base", "--period", "202503", "--folder", "wiederherstellung"});
  EXPECT_TRUE(restore["folder"]["Wiederherstellung"].AsBool());
  EXPECT_DOUBLE_EQ(Group(restore, "Krankenversicherung", "Prozent"), 3.87);
}

TEST_F(DemoTest, EmployeesAndTheirPayMonths) {
  JsonValue list = Show({"employees", "--year", "2025", "--sort", "name"});
  ASSERT_EQ(list["employees"].Size(), 5u);
  std::string order;
  for (const JsonValue& e : list["employees"].AsArray()) order += e["Mitarbeiter"]["FName"].AsString() + " ";
  EXPECT_EQ(order, "Berger Gruber Huber Pichler Wagner ");
  EXPECT_EQ(list["employees"][0]["Index"].AsNumber(), 1);
  EXPECT_EQ(list["employees"][0]["BankName"].AsString(), "BAWAG");

  JsonValue month = Show({"month", "--employee", "1001", "--period", "202503"});
  EXPECT_TRUE(month["stored"].AsBool());
  EXPECT_DOUBLE_EQ(month["month"]["Gehalt"].AsNumber(), 3350);
  EXPECT_DOUBLE_EQ(month["month"]["SV_Laufend"].AsNumber(), 692.28);  // (3,350.00 + lines 481.12) x 18.07 %
  EXPECT_EQ(month["month"]["Von_Datum"].AsString(), "2025-03-01");
  EXPECT_EQ(month["employee"]["Mitarbeiter"]["VName"].AsString(), "Anna");

  JsonValue capped = Show({"month", "--employee", "1004", "--period", "202406"});
  EXPECT_DOUBLE_EQ(capped["month"]["SV_Laufend_Basis"].AsNumber(), 6060);  // the 2024 ceiling

  JsonValue missing = Show({"month", "--employee", "1001", "--period", "202504"});
  EXPECT_FALSE(missing["stored"].AsBool());
  EXPECT_EQ(missing["month"]["UE_Laufend_Tage"].AsNumber(), 30);  // the defaults of a month without a row
  EXPECT_EQ(missing["month"]["op_Angestellter"].AsNumber(), -1);

  JsonValue employers = Show({"employers"});
  ASSERT_EQ(employers["employers"].Size(), 1u);
  EXPECT_EQ(employers["employers"][0]["EMail"].AsString(), "lohn@alpenblick.example");
}

TEST_F(DemoTest, CareersAsTheHostWroteThemAndWhatTheQueriesAnswer) {
  JsonValue berger = Show({"career", "--employee", "1002", "--year", "2024"});
  ASSERT_EQ(berger["Laufbahn"].Size(), 3u);  // entry, exit, re-entry
  const JsonValue& exit = berger["Laufbahn"][1];
  EXPECT_EQ(exit["Schritt"].AsNumber(), 3);
  EXPECT_EQ(exit["Datum"].AsString(), "2023-10-31");
  EXPECT_EQ(exit["GrundNr"].AsNumber(), 2);
  EXPECT_EQ(exit["GrundIndex"].AsNumber(), 3);
  EXPECT_EQ(exit["GrundText"].AsString(), "Kündigung durch den Dienstnehmer");
  EXPECT_EQ(exit["WochengeldDatumEnde"].AsString(), "2023-10-31");
  EXPECT_EQ(berger["Laufbahn"][0]["GrundNr"].kind(), JsonValue::Null);
  // The year's steps begin with the last step before it: the exit of 2023.
  ASSERT_EQ(berger["LaufbahnschritteImZeitraum"].Size(), 2u);
  EXPECT_EQ(berger["LaufbahnschritteImZeitraum"][0]["Datum"].AsString(), "2023-10-31");
  EXPECT_TRUE(berger["months"][0]["IsEintritt"].AsBool());

  JsonValue huber = Show({"career", "--employee", "1001", "--year", "2021"});
  EXPECT_FALSE(huber["months"][4]["IsDVRuht"].AsBool());
  EXPECT_TRUE(huber["months"][5]["IsDVRuht"].AsBool());  // suspended from 14 June
  EXPECT_EQ(huber["months"][5]["Laufbahnschritt"]["Schritt"].AsNumber(), 2);
  EXPECT_EQ(huber["Laufbahn"][1]["Anmerkung"].AsString(), "Mutterschutz und Karenz");
  JsonValue apprentice = Show({"career", "--employee", "1003", "--year", "2025"});
  EXPECT_TRUE(apprentice["Laufbahn"][0]["BefristetBeschäftigt"].AsBool());
  EXPECT_EQ(apprentice["Laufbahn"][0]["BefristetBis"].AsString(), "2025-03-14");  // three years from 2022-03-15

  JsonValue month = Show({"month", "--employee", "1005", "--period", "202412"});
  EXPECT_EQ(month["career"]["Laufbahnschritt"]["GrundText"].AsString(), "Zeitablauf bei Befristung");
  EXPECT_TRUE(month["career"]["IsEintritt"].AsBool());  // only the exit in the month: the entry before decides
  EXPECT_EQ(month["career"]["LaufbahnschritteImZeitraum"].Size(), 2u);
  JsonValue list = Show({"employees", "--year", "2024"});
  EXPECT_EQ(list["employees"].Size(), 5u);
}

TEST_F(DemoTest, ChildrenAsTheHostWroteThemWithTheirSelectionAndL16Data) {
  for (const char* line :
       {"GetFABOKinder(202503) = Lukas Huber, Marie Huber",
        "GetFABOKinderAenderung(202503) = Lukas Huber: ganzer FABO in 202502, halber FABO from 202503",
        "GetL16Daten(202501, 202512) Lukas Huber: ganzer FABO 1 bis 2, halber FABO 3 bis 8, A, Familienbeihilfenbezieher",
        "GetL16Daten(202501, 202512) Marie Huber: ganzer FABO 1 bis 12"})
    EXPECT_NE(Demo().out.find(line), std::string::npos) << line << "\n" << Demo().out;

  // Lukas turns 18 in August 2025: September no longer counts him.
  JsonValue august = Show({"month", "--employee", "1001", "--period", "202508"});
  JsonValue september = Show({"month", "--employee", "1001", "--period", "202509"});
  EXPECT_EQ(august["Kinder"]["GetFABOKinder"].Size(), 2u);
  ASSERT_EQ(september["Kinder"]["GetFABOKinder"].Size(), 1u);
  EXPECT_EQ(september["Kinder"]["GetFABOKinder"][0]["Name"].AsString(), "Marie Huber");
  EXPECT_EQ(september["Kinder"]["GetAVAEKinder"].Size(), 2u);  // no age rule for the sole-earner allowance
  const JsonValue& lukas = august["Kinder"]["Item"][0];
  EXPECT_EQ(lukas["Geburtsdatum"].AsString(), "2007-08-21");
  ASSERT_EQ(lukas["Zeitbezuege"].Size(), 2u);
  EXPECT_EQ(lukas["Zeitbezuege"][1]["FABO"].AsNumber(), 2);
  EXPECT_EQ(lukas["GetZB"].AsString(), lukas["Zeitbezuege"][1]["ID"].AsString());
  EXPECT_EQ(lukas["Eingang"].AsNumber(), 202401);

  JsonValue huber = Show({"l16", "--employee", "1001", "--year", "2025"});
  ASSERT_EQ(huber["Kinder"].Size(), 2u);
  const JsonValue& l16 = huber["Kinder"][0];
  EXPECT_TRUE(l16["GetL16Daten"].AsBool());
  // Whole bonus in January and February, half from March to August, when he turns 18.
  const char* fields[] = {"KBGFP", "KEGFP", "KBHFP", "KEHFP"};
  const double months[] = {1, 2, 3, 8};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(l16[fields[i]].AsNumber(), months[i]) << fields[i];
  EXPECT_EQ(huber["Kinder"][1]["KEGFP"].AsNumber(), 12);  // Marie: the open end

  // Berger pays maintenance for a daughter born on 29 February who lives in Croatia.
  JsonValue berger = Show({"l16", "--employee", "1002", "--year", "2025"});
  EXPECT_EQ(berger["Kinder"][0]["Geburtsdatum"].AsString(), "2012-02-29");
  EXPECT_EQ(berger["Kinder"][0]["KSTAAT"].AsString(), "HR");
  EXPECT_TRUE(berger["Kinder"][0]["KAUHZ"].AsBool());
  JsonValue berger_month = Show({"month", "--employee", "1002", "--period", "202503"});
  EXPECT_EQ(berger_month["Kinder"]["GetFABOKinderUnterhaltszahler"].Size(), 1u);
  EXPECT_EQ(berger_month["Kinder"]["GetFABOKinderOhneUnterhaltszahler"].Size(), 0u);
  EXPECT_EQ(berger_month["Kinder"]["GetAVAEKinder"].Size(), 0u);
  // Wagner's son, past 18 in education (FABO18), loses the allowance in October 2024.
  JsonValue wagner = Show({"l16", "--employee", "1004", "--year", "2024"});
  EXPECT_TRUE(wagner["Kinder"][0]["KAPFB"].AsBool());
  EXPECT_EQ(wagner["Kinder"][0]["KBHFP"].AsNumber(), 1);
  EXPECT_EQ(wagner["Kinder"][0]["KEHFP"].AsNumber(), 9);
  EXPECT_EQ(Show({"l16", "--employee", "1003", "--year", "2025"})["Kinder"].Size(), 0u);

  auto text = RunTool({"show", "--store", Store(), "l16", "--employee", "1001", "--year", "2025"});
  EXPECT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("Lukas Huber"), std::string::npos) << text.out;
}

TEST_F(DemoTest, BadInputGivesOneLineAndStatusTwo) {
  struct Case {
    std::vector<std::string> args;
    std::string expected;
  } cases[] = {
      {{"show", "--store", Store(), "base", "--period", "2025-3"}, "is not YYYYMM"},
      {{"show", "--store", Store(), "base", "--period", "202513"}, "is not YYYYMM"},
      {{"show", "--store", Store(), "base"}, "needs --period"},
      {{"show", "--store", Store(), "base", "--period", "202503", "--folder", "Sonder"},
       "unknown folder 'Sonder'; expected one of: Standard, Wiederherstellung"},
      {{"show", "--store", Store(), "month", "--employee", "4711", "--period", "202503"}, "unknown employee '4711'"},
      {{"show", "--store", Store(), "month", "--employee", "{00000000-0000-0000-0000-0000000000AB}", "--period",
        "202503"},
       "unknown employee"},
      {{"show", "--store", Store(), "employees", "--year", "2025", "--employer", "{00000000-0000-0000-0000-0000000000AB}"},
       "unknown employer"},
      {{"show", "--store", Store(), "employees", "--year", "25"}, "is not a four-digit year"},
      {{"show", "--store", Store(), "career", "--year", "2025"}, "show career needs --employee"},
      {{"show", "--store", Store(), "career", "--employee", "1001"}, "show career needs --year"},
      {{"show", "--store", Store(), "career", "--employee", "1001", "--year", "20x5"}, "is not a four-digit year"},
      {{"show", "--store", Store(), "career", "--employee", "4711", "--year", "2025"}, "unknown employee '4711'"},
      {{"show", "--store", Store(), "employees", "--year", "2025", "--sort", "age"}, "unknown sort 'age'"},
      {{"show", "--store", Store(), "l16", "--year", "2025"}, "show l16 needs --employee"},
      {{"show", "--store", Store(), "l16", "--employee", "1001"}, "show l16 needs --year"},
      {{"show", "--store", Store(), "l16", "--employee", "4711", "--year", "2025"}, "unknown employee '4711'"},
      {{"demo", Store()}, test::OnPostgres() ? "holds tables already" : "exists already"},
      {{"demo", (DemoDir() / "other").string(), "--employees", "many"}, "not a number from 5 to 30000"},
  };
  for (const Case& c : cases) {
    auto run = RunTool(c.args);
    EXPECT_EQ(run.status, 2) << c.expected << ": " << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_NE(run.err.find(c.expected), std::string::npos) << run.err;
  }
  EXPECT_FALSE(std::filesystem::exists(DemoDir() / "other"));
}

}  // namespace
