// Every --json output of ormelix show on the demo store is JSON that a strict
// reader takes: each key a property name, once per object.
#include <gtest/gtest.h>

#include "support/demo_store.h"
#include "support/json_reader.h"
#include "support/run_tool.h"

using namespace ormelix;
using test::JsonValue;

namespace {

TEST(StrictJson, RefusesWhatParsersReadDifferently) {
  const char* const refused[] = {
      R"({"a": 1, "a": 2})",        R"({"x": {"b": true, "b": false}})", R"([1, 2,])",  R"({"a": 1,})",
      R"({'a': 1})",                R"([01])",                           R"([1.])",     R"([.5])",
      R"(["\x41"])",                "[\"tab\there\"]",                   R"(["\ud800"])", R"([NaN])",
      R"({"a": 1} {"b": 2})",       R"([tru])",
  };
  for (const char* text : refused) EXPECT_THROW(JsonValue::Parse(text), std::runtime_error) << text;
  JsonValue fine = JsonValue::Parse(R"({"Ä": "\u00c4\ud83d\ude00", "n": [-0.5e3, 0, 12], "a": {"a": null}})");
  EXPECT_EQ(fine["Ä"].AsString(), "Ä\xF0\x9F\x98\x80");
  EXPECT_DOUBLE_EQ(fine["n"][0].AsNumber(), -500);
  EXPECT_EQ(fine["a"]["a"].kind(), JsonValue::Null);
}

class JsonOutput : public test::DemoStoreTest {
 protected:
  static void SetUpTestSuite() { ASSERT_EQ(Demo().status, 0) << Demo().err; }

  // The output of one show command, parsed strictly.
  static JsonValue Show(std::vector<std::string> args) {
    args.push_back("--json");
    auto run = DemoStoreTest::Show(args);
    EXPECT_EQ(run.status, 0) << run.err;
    try {
      return JsonValue::Parse(run.out);
    } catch (const std::exception& e) {
      ADD_FAILURE() << args[0] << ": " << e.what();
      return {};
    }
  }
};

TEST_F(JsonOutput, EveryShowOfTheDemoStoreIsStrictJsonWithUniqueKeys) {
  Show({"employers"});
  for (const char* period : {"202401", "202503"}) Show({"countries", "--period", period});
  for (const char* folder : {"Standard", "Wiederherstellung"})
    for (const char* period : {"202312", "202401", "202406", "202503", "202512"})
      Show({"base", "--period", period, "--folder", folder});
  std::vector<int> numbers;
  for (const char* year : {"2024", "2025"})
    for (const char* sort : {"name", "personalnummer"}) {
      JsonValue list = Show({"employees", "--year", year, "--sort", sort});
      if (numbers.empty() && list.kind() == JsonValue::Object)
        for (const JsonValue& e : list["employees"].AsArray())
          numbers.push_back(static_cast<int>(e["Mitarbeiter"]["Personalnummer"].AsNumber()));
    }
  ASSERT_EQ(numbers.size(), 5u);
  for (int number : numbers) {
    // 202504: a month without a row; 202412: the waitress's replacement benefit.
    for (const char* period : {"202401", "202406", "202412", "202503", "202504"}) {
      JsonValue month = Show({"month", "--employee", std::to_string(number), "--period", period});
      if (month.kind() != JsonValue::Object) continue;
      for (const char* key : {"Kurzarbeit", "SV_EL_Laufend", "Sachbezüge", "Kinder"}) EXPECT_TRUE(month.Has(key)) << key;
    }
    for (const char* year : {"2024", "2025"}) {
      Show({"career", "--employee", std::to_string(number), "--year", year});
      Show({"l16", "--employee", std::to_string(number), "--year", year});
    }
  }
}

TEST_F(JsonOutput, AMonthShowsBothPropertiesOfTheCrossedColumn) {
  JsonValue month = Show({"month", "--employee", "1001", "--period", "202503"});
  // MinderSonderBasisGesamt is read from the column MinderLaufendBasisGesamt:
  // each property once, under its own name.
  EXPECT_TRUE(month["month"].Has("MinderLaufendBasisGesamt"));
  EXPECT_TRUE(month["month"].Has("MinderSonderBasisGesamt"));
  // Properties of member objects lie in objects of their own, by the member's name.
  EXPECT_EQ(month["month"]["Sechstel"].kind(), JsonValue::Object);
  EXPECT_TRUE(month["month"]["FB_Fallweise"].Has("Tage"));
  EXPECT_TRUE(month["month"]["Mitarbeiter"].Has("OffeneUT"));
  EXPECT_FALSE(month["month"].Has("Überstunden_50"));  // the column; the property is Ueberst__50
  EXPECT_TRUE(month["month"].Has("Ueberst__50"));
  EXPECT_TRUE(month["employee"].Has("Geb_Datum"));
  EXPECT_EQ(month["employee"]["Mitarbeiter"]["FName"].AsString(), "Huber");
  // A child's birth date is read from the column GebDatum into Geburtsdatum.
  EXPECT_TRUE(month["Kinder"]["Item"][0].Has("Geburtsdatum"));
  EXPECT_FALSE(month["Kinder"]["Item"][0].Has("GebDatum"));
  EXPECT_TRUE(month["Kinder"]["Item"][0]["Zeitbezuege"][0].Has("FB_Bezieher"));
}

TEST_F(JsonOutput, ShortTimeBenefitsAndBenefitsInKindAreKeyedByPropertyNames) {
  JsonValue cook = Show({"month", "--employee", "1002", "--period", "202503"});
  // Stored values and computed figures side by side, each under its own name; the
  // hours before short-time work as their getter gives them.
  for (const char* key : {"IsZeitraumAliquot", "StundenVorKurzarbeit", "Überstundenpauschale", "SVBGAliquot",
                          "MindestentgeltBruttoAliquot", "ErmittleMaxTageSVKurzareit"})
    EXPECT_TRUE(cook["Kurzarbeit"].Has(key)) << key;
  JsonValue waitress = Show({"month", "--employee", "1005", "--period", "202412"});
  const JsonValue& entry = waitress["SV_EL_Laufend"]["Col"][0];
  for (const char* key : {"ID", "LaufbahnID", "Geringfügig", "NeuFög_Laufend", "BV_Prozent", "SV_Laufend_Gesamt"})
    EXPECT_TRUE(entry.Has(key)) << key;
  EXPECT_FALSE(entry.Has("LohnzettelID"));  // the key of the pay row is no property
  EXPECT_EQ(entry.Size(), 23u);
  JsonValue director = Show({"month", "--employee", "1004", "--period", "202501"});
  EXPECT_EQ(director["Sachbezüge"].Size(), 75u);  // ID and the 74 values
  EXPECT_TRUE(director["Sachbezüge"].Has("Fahrzeug_mit_Chaffeur"));
}

}  // namespace
