// The countries of the reference store and their dated indicators.
#include <gtest/gtest.h>

#include <vector>

#include "ormelix/countries/laender.h"
#include "ormelix/error.h"
#include "ormelix/session/manager.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class LaenderTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);
  StoreConnectionPtr reference = test::NewStore(dir, StoreKind::Reference);
  ManagerPtr session = clsManager::Create();

  void SetUp() override {
    session->SetAktDB(db);
    session->SetImportDB(reference);
    // Keys and codes out of order, so that the order by HVB shows.
    Country(7, 40, "Deutschland", "DEU", "DE", "D", true);
    Country(3, 20, "Schweiz", "CHE", "CH", "CH", false);
    Indicator(11, 7, 202001, 0.98, 1.02);
    Indicator(12, 7, 201901, 0.97, 1.03);
    Indicator(13, 3, 201901, 1.45, 0.69);
  }
  // The country tables have keys of their own: the rows go in by INSERT.
  void Country(int id, int hvb, const std::string& name, const std::string& a3, const std::string& a2,
               const std::string& kfz, bool eu) {
    reference->Session().ExecuteSql(
        "INSERT INTO [Länder] ([ID], [HVB], [Kurzbezeichnung], [Bezeichnung], [ISOA3], [ISOA2], [KFZ], [EULand]) "
        "VALUES (" + std::to_string(id) + ", " + std::to_string(hvb) + ", '" + a2 + "', '" + name + "', '" + a3 +
        "', '" + a2 + "', '" + kfz + "', " + (eu ? "-1" : "0") + ")");
  }
  void Indicator(int id, int land, int zeitraum, double indikator, double faktor) {
    reference->Session().ExecuteSql(
        "INSERT INTO [Länder_Indikatoren] ([ID], [LID], [Zeitraum], [Indikator], [Faktor]) VALUES (" +
        std::to_string(id) + ", " + std::to_string(land) + ", " + std::to_string(zeitraum) + ", " +
        FormatNumber(indikator) + ", " + FormatNumber(faktor) + ")");
  }
  clsLänder& Laender() { return *session->Länder(); }
};

TEST_F(LaenderTest, CountriesLoadByCodeWithTheirIndicatorsByPeriod) {
  Laender().Load();
  ASSERT_EQ(Laender().Count(), 2);
  const clsLand& ch = *Laender().Item(Variant(1));
  EXPECT_EQ(ch.Code, 20);
  EXPECT_EQ(ch.ID, 3);
  EXPECT_FALSE(ch.EULand);
  // Held by its own reference: the Load below empties the list that owns it.
  const auto germany = Laender().Item(Variant("40"));  // by the text of the code
  const clsLand& de = *germany;
  EXPECT_EQ(std::tie(de.Bezeichnung, de.Kurzbezeichnung, de.ISO_A3, de.ISO_A2, de.KFZ),
            std::make_tuple("Deutschland", "DE", "DEU", "DE", "D"));
  EXPECT_TRUE(de.EULand);
  std::vector<int> periods;
  for (const auto& indikator : *de.Indikatoren()) periods.push_back(indikator->Zeitraum);
  EXPECT_EQ(periods, (std::vector<int>{201901, 202001}));
  EXPECT_DOUBLE_EQ(de.Indikatoren()->Item(Variant("11"))->Faktor, 1.02);
  EXPECT_THROW(Laender().Item(Variant(3)), KeyNotFound);
  EXPECT_THROW(Laender().Item(Variant("7")), KeyNotFound);  // the key is the code, not the ID

  Laender().Load();  // starts from an empty list
  EXPECT_EQ(Laender().Count(), 2);
  EXPECT_EQ(de.Indikatoren()->Count(), 2);
}

TEST_F(LaenderTest, TheIndicatorOfAPeriodIsTheLatestNotLaterThanIt) {
  Laender().Load();
  struct Case {
    const char* kfz;
    int period;
    int id;  // 0: none
  };
  const Case cases[] = {
      {"D", 201912, 12}, {"D", 202006, 11}, {"D", 201901, 12}, {"d", 202001, 11},
      {"D", 201812, 0},  {"CH", 203001, 13}, {"ch", 201812, 0}, {"XX", 202001, 0},
  };
  for (const Case& c : cases) {
    auto found = Laender().GetIndikator(c.kfz, c.period);
    if (c.id == 0) {
      EXPECT_EQ(found, nullptr) << c.kfz << " " << c.period;
    } else {
      ASSERT_NE(found, nullptr) << c.kfz << " " << c.period;
      EXPECT_EQ(found->ID, c.id) << c.kfz << " " << c.period;
    }
  }
  // The object handed out is the one in the list.
  EXPECT_EQ(Laender().GetIndikator("D", 202006), Laender().Item(Variant("40"))->Indikatoren()->Item(Variant("11")));
}

TEST_F(LaenderTest, TheSeriesEndsIn202208) {
  EXPECT_EQ(Laender().IndikationEndPeriod(), 202208);
  EXPECT_FALSE(Laender().IsEndIndikator(202207));
  EXPECT_TRUE(Laender().IsEndIndikator(202208));
  EXPECT_TRUE(Laender().IsEndIndikator(202301));
}

TEST_F(LaenderTest, IndicatorsExistByTheirKey) {
  Laender().Load();
  const auto& indikatoren = *Laender().Item(Variant("40"))->Indikatoren();
  EXPECT_TRUE(indikatoren.Exist(Variant("11")));
  EXPECT_FALSE(indikatoren.Exist(Variant("13")));  // another country's
  EXPECT_FALSE(indikatoren.Exist(Variant(1)));     // position 1 holds ID 12
  EXPECT_FALSE(indikatoren.Exist(Variant(5)));
}

TEST_F(LaenderTest, FailuresReachTheCaller) {
  EXPECT_THROW(Laender().GetIndikator("D", 202001), KeyNotFound);  // the store answers, the list is empty
  EXPECT_THROW(Laender().GetIndikator("D'", 202001), StoreError);
  reference->Session().ExecuteSql("UPDATE [Länder] SET [EULand]=NULL WHERE [ID]=3", true);
  EXPECT_THROW(Laender().Load(), ConversionError);
  auto without = clsManager::Create();
  EXPECT_THROW(without->Länder()->Load(), Error);
}

}  // namespace
