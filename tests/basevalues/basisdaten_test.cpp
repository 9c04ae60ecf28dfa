// The folders: their order, the look-ups by position, ID and name, the flagged
// folders, insertion at the sorted place, removal and copy.
#include <gtest/gtest.h>

#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/error.h"
#include "ormelix/store/value_helpers.h"
#include "support/basis_values.h"

using namespace ormelix;
using ValueHelpers::NewID;

namespace {

class BasisdatenTest : public test::BasisStoreTest {
 protected:
  std::string AddFolder(const std::string& name, bool standard = false, bool restore = false) {
    return test::AddRow(db, "Basiswerte",
                        {{"Bezeichnung", name}, {"Standardordner", standard}, {"Wiederherstellung", restore}});
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& folder : Basis()) names.push_back(folder->Bezeichnung);
    return names;
  }
};

TEST_F(BasisdatenTest, LoadPutsTheStandardFolderFirstOrdinaryOnesByNameAndRestoreFoldersLast) {
  AddFolder("Handel");
  AddFolder("Alt", false, true);
  AddFolder("Mitte", true);
  AddFolder("Bau");
  Basis().Load();
  EXPECT_EQ(Names(), (std::vector<std::string>{"Mitte", "Bau", "Handel", "Alt"}));
  EXPECT_EQ(Basis().Item(2)->Bezeichnung, "Bau");
  EXPECT_TRUE(Basis().Item(1)->Standardordner);
  EXPECT_TRUE(Basis().Item(4)->Wiederherstellung);
  // A second load starts afresh and deletes nothing.
  Basis().Load();
  EXPECT_EQ(Basis().Count(), 4);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 4);
}

TEST_F(BasisdatenTest, FolderNamesSortWithoutRegardToCaseUmlautsWithTheirLetter) {
  for (const char* name : {"beta", "Alpha", "alpine", "Gamma"}) AddFolder(name);
  Basis().Load();
  EXPECT_EQ(Names(), (std::vector<std::string>{"Alpha", "alpine", "beta", "Gamma"}));
  // The same order decides where a new or copied folder goes.
  Basis().AddNew("ärzte");
  Basis().AddNew("Äbte");
  Basis().Copy(Basis().Item("GAMMA"), "gamma alt");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Äbte", "Alpha", "alpine", "ärzte", "beta", "Gamma", "gamma alt"}));
  Basis().Load();
  EXPECT_EQ(Names(), (std::vector<std::string>{"Äbte", "Alpha", "alpine", "ärzte", "beta", "Gamma", "gamma alt"}));
  EXPECT_EQ(Basis().Item("ÄRZTE")->Bezeichnung, "ärzte");
}

TEST_F(BasisdatenTest, ItemFindsByPositionIDOrNameWithoutRegardToCase) {
  std::string id = AddFolder("Österreich");
  AddFolder("Bau");
  Basis().Load();
  auto by_id = Basis().Item(id);
  ASSERT_TRUE(by_id);
  EXPECT_EQ(by_id, Basis().Item("österreich"));
  EXPECT_EQ(by_id, Basis().Item("ÖSTERREICH"));
  EXPECT_EQ(by_id, Basis().Item(2));
  EXPECT_EQ(Basis().Item("gibt es nicht"), nullptr);
  EXPECT_THROW(Basis().Item(3), KeyNotFound);
  EXPECT_THROW(Basis().Item(NewID()), KeyNotFound);
  EXPECT_TRUE(Basis().ExistBezeichnung("BAU"));
  EXPECT_FALSE(Basis().ExistBezeichnung("Handel"));
  EXPECT_TRUE(Basis().Exist(id));
  EXPECT_FALSE(Basis().Exist(NewID()));
  EXPECT_FALSE(Basis().Exist(""));
}

TEST_F(BasisdatenTest, ANameWithAnApostropheFailsInTheStoreAndRunsNoSecondStatement) {
  AddFolder("O'Brien");
  AddFolder("Bau");
  Basis().Load();
  EXPECT_THROW(Basis().Item("O'Brien"), StoreError);
  EXPECT_THROW(Basis().ExistBezeichnung("O'Brien"), StoreError);
  const std::string attack = "x'); DELETE * FROM [Basiswerte] WHERE ([Bezeichnung]<>'";
  EXPECT_THROW(Basis().Item(attack), StoreError);
  EXPECT_THROW(Basis().ExistBezeichnung(attack), StoreError);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 2);
  EXPECT_EQ(Basis().Count(), 2);
  // The folder itself is reached by position or ID as ever.
  EXPECT_EQ(Basis().Item(2)->Bezeichnung, "O'Brien");
}

TEST_F(BasisdatenTest, AddNewSavesAndInsertsAtTheSortedPlace) {
  EXPECT_EQ(Basis().AddNew(""), nullptr);
  EXPECT_EQ(Basis().AddNew("   "), nullptr);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 0);
  auto zeta = Basis().AddNew("Zeta");
  auto bau = Basis().AddNew("Bau");  // the first row in the store: goes before its successor
  auto handel = Basis().AddNew("Handel");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Bau", "Handel", "Zeta"}));
  EXPECT_FALSE(handel->Standardordner);
  EXPECT_FALSE(handel->Wiederherstellung);
  EXPECT_EQ(Basis().Item(handel->ID()), handel);
  // The new folder works with the store at once.
  ASSERT_TRUE(handel->Zeittabellen()->AddNew(202401, "Jänner"));
  EXPECT_EQ(Reopened()->Basis()->Item("handel")->Zeittabellen()->Count(), 1);
}

TEST_F(BasisdatenTest, TheLastStandardFolderAndTheFirstRestoreFolderWin) {
  Basis().Load();
  EXPECT_EQ(Basis().GetStandardBOrdnerID(), "");
  EXPECT_THROW(Basis().GetStandardBOrdner(), KeyNotFound);
  EXPECT_THROW(Basis().GetWiederherstellungsBOrdner(), KeyNotFound);
  std::string a = AddFolder("A", true);
  std::string b = AddFolder("B", true);
  std::string c = AddFolder("C", false, true);
  std::string d = AddFolder("D", false, true);
  Basis().Load();
  EXPECT_EQ(Basis().GetStandardBOrdnerID(), b);
  EXPECT_EQ(Basis().GetStandardBOrdner(), Basis().Item(b));
  EXPECT_EQ(Basis().GetWiederherstellungsBOrdnerID(), c);
  EXPECT_EQ(Basis().GetWiederherstellungsBOrdner(), Basis().Item(c));
}

TEST_F(BasisdatenTest, RemoveAndClearDeleteInTheStoreWithEverythingBelow) {
  auto keep = FolderWithTables("Bleibt", {202401});
  auto gone = FolderWithTables("Weg", {202301, 202401});
  Basis().Remove(NewID());
  Basis().Remove("");
  EXPECT_EQ(Basis().Count(), 2);
  Basis().Remove(gone->ID());
  EXPECT_EQ(Basis().Count(), 1);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 1);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_DG_Werte"), 128);
  EXPECT_EQ(modBasiswerte::DeleteBasisordner(*session, "kein Schlüssel"), false);
  Basis().Clear();
  EXPECT_EQ(Basis().Count(), 0);
  EXPECT_EQ(test::CountRows(db, "Basiswerte"), 0);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle_SA_Werte"), 0);
}

TEST_F(BasisdatenTest, UpdateWritesTheRowAndRefreshReadsItBackLeavingTheTables) {
  auto folder = FolderWithTables("Alt", {202401});
  folder->Bezeichnung = "Neu";
  folder->Standardordner = true;
  folder->Update(*session);
  EXPECT_EQ(StoredValue("Basiswerte", "Bezeichnung", "[ID]=" + folder->ID()), Variant("Neu"));
  EXPECT_EQ(StoredValue("Basiswerte", "Standardordner", "[ID]=" + folder->ID()), Variant(-1));
  auto table = folder->Zeittabellen()->Item(1);
  folder->Bezeichnung = "Ungespeichert";
  folder->Refresh();
  EXPECT_EQ(folder->Bezeichnung, "Neu");
  EXPECT_EQ(folder->Zeittabellen()->Item(1), table);
}

TEST_F(BasisdatenTest, ACopyIsNeverStandardAndTakesTheDefaultForTheRestoreFlag) {
  AddFolder("Standard", true);
  AddFolder("Sicherung", false, true);
  Basis().Load();
  auto standard_copy = Basis().Copy(Basis().GetStandardBOrdner(), "Kopie");
  EXPECT_EQ(standard_copy->Bezeichnung, "Kopie");
  EXPECT_FALSE(standard_copy->Standardordner);
  auto restore_copy = Basis().Copy(Basis().GetWiederherstellungsBOrdner(), "");
  EXPECT_EQ(restore_copy->Bezeichnung, "Sicherung");
  EXPECT_FALSE(restore_copy->Wiederherstellung);
  EXPECT_EQ(Names(), (std::vector<std::string>{"Standard", "Kopie", "Sicherung", "Sicherung"}));
  // A source that has gone from the store cannot be copied.
  auto gone = Basis().Item("Kopie");
  db->Session().ExecuteSql("DELETE * FROM [Basiswerte] WHERE [ID]=" + gone->ID(), true);
  EXPECT_THROW(Basis().Copy(gone, "Nochmal"), Error);
  EXPECT_EQ(modBasiswerte::CopyBasisordner(*session, gone->ID(), ""), nullptr);
}

TEST_F(BasisdatenTest, WithoutAStoreTheFoldersFailWithAnError) {
  auto manager = clsManager::Create();
  EXPECT_THROW(manager->Basis()->Load(), Error);
  EXPECT_THROW(manager->Basis()->AddItem(nullptr), Error);
}

}  // namespace
