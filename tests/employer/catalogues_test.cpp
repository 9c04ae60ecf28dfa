// The catalogues of municipalities and provision funds in the reference store.
#include "employer_fixture.h"
#include "ormelix/employer/bmvg_kasse.h"
#include "ormelix/employer/gemeinde.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class CatalogueTest : public test::EmployerTest {
 protected:
  clsGemeinde Gemeinde() {
    clsGemeinde g;
    g.InitLohnDB(db);
    g.InitImportDB(reference);
    return g;
  }
  clsBMVG_Kasse Kasse() {
    clsBMVG_Kasse k;
    k.InitLohnDB(db);
    k.InitImportDB(reference);
    return k;
  }
};

TEST_F(CatalogueTest, AMunicipalityIsFoundByItsNumberAndAnUnknownOneKeepsThePrevious) {
  std::string graz = test::AddRow(reference, "Gemeinden",
                                  {{"Gemeinde", "Graz"}, {"Gemeindenummer", "60101"}, {"Sachbearbeiter", "S"},
                                   {"Strasse", "Platz 1"}, {"PLZ", "8010"}, {"Ort", "Graz"}, {"Telefon", "0316"}});
  test::AddRow(reference, "Gemeinden", {{"Gemeinde", "Graz (zweite Zeile)"}, {"Gemeindenummer", "60101"}});
  clsGemeinde g = Gemeinde();
  ASSERT_TRUE(g.Load("60101"));
  EXPECT_EQ(g.ID(), graz);  // of several rows with one number, the first counts
  EXPECT_EQ(std::tie(g.Gemeinde(), g.Kennziffer(), g.Sachbearbeiter(), g.Strasse(), g.PLZ(), g.Ort(), g.Telefon()),
            std::make_tuple("Graz", "60101", "S", "Platz 1", "8010", "Graz", "0316"));
  EXPECT_FALSE(g.Load("99999"));
  EXPECT_EQ(g.Gemeinde(), "Graz");
  EXPECT_EQ(g.ID(), graz);
  clsGemeinde without_reference;
  EXPECT_FALSE(without_reference.Load("60101"));
}

TEST_F(CatalogueTest, AQuoteInTheMunicipalityNumberBreaksTheStatement) {
  clsGemeinde g = Gemeinde();
  try {
    g.Load("60'101");
    FAIL() << "the statement was accepted";
  } catch (const StoreError& error) {
    EXPECT_NE(error.Subject().find("[Gemeindenummer]='60'101'"), std::string::npos) << error.Subject();
  }
}

TEST_F(CatalogueTest, AFundIsFoundByItsLeitzahlAsANumberAndAnUnknownOneClearsIt) {
  std::string fund = test::AddRow(reference, "BMVG_Kassen",
                                  {{"Leitzahl", "7100"}, {"Name", "Kasse A"}, {"Sachbearbeiter", "S"},
                                   {"Strasse", "Gasse 2"}, {"PLZ", "1010"}, {"Ort", "Wien"}, {"Telefon", "01"},
                                   {"Institut", "Institut A"}, {"Bauarbeiter_Kasse", true}, {"Anmerkung", "A"}});
  test::AddRow(reference, "BMVG_Kassen", {{"Leitzahl", "07200"}, {"Name", "Mit Null"}});
  clsBMVG_Kasse k = Kasse();
  ASSERT_TRUE(k.Load("07100"));  // leading zeros are lost on the way: "7100" is looked for
  EXPECT_EQ(k.ID(), fund);
  EXPECT_EQ(std::tie(k.Leitzahl(), k.Name(), k.Sachbearbeiter(), k.Strasse(), k.PLZ(), k.Ort(), k.Telefon(),
                     k.Institut(), k.Anmerkung()),
            std::make_tuple("7100", "Kasse A", "S", "Gasse 2", "1010", "Wien", "01", "Institut A", "A"));
  EXPECT_TRUE(k.Bauarbeiter_Kasse());

  EXPECT_FALSE(k.Load("07200"));  // stored with its leading zero: never found
  EXPECT_EQ(k.ID(), "");
  EXPECT_EQ(k.Leitzahl(), "");
  EXPECT_EQ(k.Name(), "");
  EXPECT_EQ(k.Anmerkung(), "");
  EXPECT_FALSE(k.Bauarbeiter_Kasse());
  EXPECT_TRUE(k.Load("7100"));  // the stores stay after clearing
}

TEST_F(CatalogueTest, AFundNeedsThePayStoreToTryAndTheReferenceStoreToRead) {
  clsBMVG_Kasse no_stores;
  EXPECT_FALSE(no_stores.Load("7100"));
  clsBMVG_Kasse pay_only;
  pay_only.InitLohnDB(db);
  EXPECT_THROW(pay_only.Load("7100"), Error);
  clsBMVG_Kasse reference_only;
  reference_only.InitImportDB(reference);
  EXPECT_FALSE(reference_only.Load("7100"));
  clsBMVG_Kasse k = Kasse();
  EXPECT_THROW(k.Load("VBV-1"), ConversionError);
}

}  // namespace
