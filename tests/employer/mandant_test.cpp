// The employer record: its columns, the two crossings, the insert idioms.
#include <gtest/gtest.h>

#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;
using DateHelpers::DateSerial;

namespace {

class MandantTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);
  StoreConnectionPtr reference = test::NewStore(dir, StoreKind::Reference);

  // An employer with both stores: the load of its provision fund needs the reference store.
  std::shared_ptr<clsMandant> Fresh() {
    auto employer = std::make_shared<clsMandant>();
    employer->InitLohnDB(db);
    employer->InitImportDB(reference);
    return employer;
  }
  std::shared_ptr<clsMandant> Loaded(const std::string& id) {
    auto employer = Fresh();
    EXPECT_TRUE(employer->LoadMandant(id, false));
    return employer;
  }
  Variant Column(const std::string& id, const std::string& column) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mandanten] WHERE [ID]=" + SqlID(id));
    return rs->Fields(column).Value();
  }
};

TEST_F(MandantTest, ANewEmployerIsInsertedAndTakesTheStoresKey) {
  auto employer = Fresh();
  employer->Name = "Muster GmbH";
  EXPECT_TRUE(employer->Update());
  EXPECT_TRUE(DateHelpers::IsID(Variant(employer->ID())));
  EXPECT_EQ(test::CountRows(db, "Mandanten"), 1);
  EXPECT_EQ(Loaded(employer->ID())->Name, "Muster GmbH");
}

TEST_F(MandantTest, EveryColumnComesBackButTheCrossedOnes) {
  auto employer = Fresh();
  employer->Name = "Bäckerei Öller";
  employer->Zusatz = "Filiale Süd";
  employer->Strasse = "Hauptstraße 1";
  employer->KFZ = "A";
  employer->PLZ = "1010";
  employer->Ort = "Wien";
  employer->Telefon = "+43 1 234";
  employer->Telefax = "+43 1 235";
  employer->DVR = "0123456";
  employer->Neufög = true;
  employer->Neufög_Von = DateSerial(2024, 1, 1);
  employer->Neufög_Bis = DateSerial(2024, 12, 31);
  employer->NeufögV = true;
  employer->Betriebsart = "Gewerbe";
  employer->BuchungslisteELGesamt = true;
  employer->Update();
  auto loaded = Loaded(employer->ID());
  EXPECT_EQ(loaded->Name, employer->Name);
  EXPECT_EQ(loaded->Zusatz, employer->Zusatz);
  EXPECT_EQ(loaded->Strasse, employer->Strasse);
  EXPECT_EQ(loaded->KFZ, employer->KFZ);
  EXPECT_EQ(loaded->PLZ, employer->PLZ);
  EXPECT_EQ(loaded->Ort, employer->Ort);
  EXPECT_EQ(loaded->Telefon, employer->Telefon);
  EXPECT_EQ(loaded->Telefax, employer->Telefax);
  EXPECT_EQ(loaded->DVR, employer->DVR);
  EXPECT_TRUE(loaded->Neufög);
  EXPECT_EQ(loaded->Neufög_Von, DateSerial(2024, 1, 1));
  EXPECT_EQ(loaded->Neufög_Bis, DateSerial(2024, 12, 31));
  EXPECT_TRUE(loaded->NeufögV);
  EXPECT_EQ(loaded->Betriebsart, "Gewerbe");
  EXPECT_TRUE(loaded->BuchungslisteELGesamt);
  EXPECT_EQ(ToLong(Column(employer->ID(), "Neufög")), -1);
}

TEST_F(MandantTest, EMailAndHomepageSwapAtEverySaveAndLoad) {
  auto employer = Fresh();
  employer->EMail = "office@muster.at";
  employer->Homepage = "www.muster.at";
  employer->Update();
  EXPECT_EQ(Column(employer->ID(), "EMail"), Variant("www.muster.at"));
  EXPECT_EQ(Column(employer->ID(), "Homepage"), Variant("office@muster.at"));
  auto first = Loaded(employer->ID());
  EXPECT_EQ(first->EMail, "www.muster.at");
  EXPECT_EQ(first->Homepage, "office@muster.at");
  first->Update();
  auto second = Loaded(employer->ID());
  EXPECT_EQ(second->EMail, "office@muster.at");
  EXPECT_EQ(second->Homepage, "www.muster.at");
}

TEST_F(MandantTest, TheSecondReliefStartIsWrittenToNeufoegVNeuAndReadFromNeufoegVVon) {
  auto employer = Fresh();
  employer->NeufögV_Von = DateSerial(2024, 7, 1);
  employer->Update();
  EXPECT_EQ(ToDate(Column(employer->ID(), "NeufögV_Neu")), DateSerial(2024, 7, 1));
  EXPECT_TRUE(Column(employer->ID(), "NeufögV_Von").IsNull());
  EXPECT_EQ(Loaded(employer->ID())->NeufögV_Von, 0);
  db->Session().ExecuteSql("UPDATE [Mandanten] SET [NeufögV_Von]=" + SqlDate(DateSerial(2023, 5, 2)), true);
  auto loaded = Loaded(employer->ID());
  EXPECT_EQ(loaded->NeufögV_Von, DateSerial(2023, 5, 2));
  loaded->Update();  // the next save carries it on to NeufögV_Neu
  EXPECT_EQ(ToDate(Column(employer->ID(), "NeufögV_Neu")), DateSerial(2023, 5, 2));
}

TEST_F(MandantTest, AnEmployerWithoutAnIDOverwritesTheFirstRowOfATableWithRows) {
  auto first = Fresh();
  first->Name = "Erster";
  first->Update();
  auto second = Loaded(test::AddRow(db, "Mandanten"));
  second->Name = "Zweiter";
  second->Update();
  auto stray = Fresh();  // never loaded, no ID
  stray->Name = "Ohne ID";
  EXPECT_TRUE(stray->Update());
  EXPECT_EQ(test::CountRows(db, "Mandanten"), 2);
  EXPECT_EQ(Loaded(first->ID())->Name, "Ohne ID");
  EXPECT_EQ(Loaded(second->ID())->Name, "Zweiter");
  EXPECT_EQ(stray->ID(), "");  // an existing row leaves the object's ID as it was
}

TEST_F(MandantTest, AnEmployerWhoseRowHasGoneIsInsertedAgainUnderANewKey) {
  auto employer = Fresh();
  employer->Name = "Weg";
  employer->Update();
  std::string old_id = employer->ID();
  db->Session().ExecuteSql("DELETE * FROM [Mandanten]", true);
  employer->Update();
  EXPECT_NE(employer->ID(), old_id);
  EXPECT_EQ(Loaded(employer->ID())->Name, "Weg");
}

TEST_F(MandantTest, AnUnknownEmployerChangesNothing) {
  auto employer = Fresh();
  employer->Name = "Bleibt";
  employer->Update();
  std::string id = employer->ID();
  EXPECT_FALSE(employer->LoadMandant(NewID(), false));
  EXPECT_EQ(employer->ID(), id);
  EXPECT_EQ(employer->Name, "Bleibt");
  clsMandant without_store;
  EXPECT_FALSE(without_store.LoadMandant(id, false));
  EXPECT_FALSE(without_store.Update());
}

TEST_F(MandantTest, ChangeYearReadsNoColumnAndRefreshReadsThemAll) {
  auto employer = Fresh();
  employer->Name = "Alt";
  employer->Update();
  auto loaded = Loaded(employer->ID());
  db->Session().ExecuteSql("UPDATE [Mandanten] SET [Name]='Neu'", true);
  loaded->ChangeYear(2024);
  EXPECT_EQ(loaded->Jahr(), 2024);
  EXPECT_EQ(loaded->Name, "Alt");  // a year load touches nothing else
  EXPECT_TRUE(loaded->Refresh());
  EXPECT_EQ(loaded->Name, "Neu");
  EXPECT_EQ(loaded->Jahr(), 2024);
  auto no_year = Loaded(employer->ID());
  db->Session().ExecuteSql("UPDATE [Mandanten] SET [Name]='Neuer'", true);
  EXPECT_TRUE(no_year->Refresh());  // Jahr 0: two full loads
  EXPECT_EQ(no_year->Name, "Neuer");
}

}  // namespace
