// The shipped schema: both stores, store-filled keys, defaults, cascades.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

using test::AddRow;

TEST(Schema, EveryTableOfBothStoresExistsAndReads) {
  test::TempDir dir;
  auto payroll = test::NewStore(dir, StoreKind::Payroll);
  auto reference = test::NewStore(dir, StoreKind::Reference);
  for (const char* table :
       {"Settings", "Mandanten", "Mandanten_Bankverbindung", "Mandanten_Finanzamt", "Mandanten_Kommunal",
        "Mandanten_BMVG_Kasse", "Mandanten_Jahresdaten", "Mandanten_Beitragskonten", "Versicherungsträger",
        "Mandanten_PDFEncrypt", "Mitarbeiter_PDFEncrypt", "Basiswerte", "Basiswerte_Zeittabelle",
        "Basiswerte_Zeittabelle_SW", "Basiswerte_Zeittabelle_SW_Werte", "Basiswerte_Zeittabelle_LST",
        "Basiswerte_Zeittabelle_LST_Werte", "Basiswerte_Zeittabelle_SA", "Basiswerte_Zeittabelle_SA_Werte",
        "Basiswerte_Zeittabelle_PP", "Basiswerte_Zeittabelle_FB", "Basiswerte_Zeittabelle_ALV",
        "Basiswerte_Zeittabelle_DG", "Basiswerte_Zeittabelle_DG_Werte", "Basiswerte_Zeittabelle_DG_Geringfügig",
        "Basiswerte_Zeittabelle_DG_Geringfügig_Werte", "Mitarbeiter", "Mitarbeiter_Bankverbindung",
        "Mitarbeiter_Lohnzettel", "Mitarbeiter_Lohnarten", "Mitarbeiter_Jahresdaten", "Mitarbeiter_Übertritte",
        "Mitarbeiter_Beitragskonto", "Mitarbeiter_Laufbahn", "Mitarbeiter_Kinder", "Mitarbeiter_Kinder_ZB",
        "Mitarbeiter_Lohnzettel_Kurzarbeit", "Mitarbeiter_Sachbezüge", "Mitarbeiter_Lohnzettel_EL"})
    EXPECT_EQ(test::CountRows(payroll, table), 0) << table;
  for (const char* table : {"Gemeinden", "BMVG_Kassen", "DM_Austrittsgründe", "Länder", "Länder_Indikatoren"})
    EXPECT_EQ(test::CountRows(reference, table), 0) << table;
}

TEST(Schema, TheColumnsTheCrossingsNeedAreThere) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  auto employer = db->Session().OpenRecordset("SELECT * FROM [Mandanten]");
  EXPECT_GE(employer->FindFieldIndex("NeufögV_Von"), 0);
  EXPECT_GE(employer->FindFieldIndex("NeufögV_Neu"), 0);
  auto fund = db->Session().OpenRecordset("SELECT * FROM [Mandanten_BMVG_Kasse]");
  for (const char* column : {"BMVG_Kasse", "Bank", "Kommentar", "EmpfKennung", "AbsKennung", "BIC", "IBAN"})
    EXPECT_GE(fund->FindFieldIndex(column), 0) << column;
  auto slip = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Lohnzettel]");
  EXPECT_GE(slip->FindFieldIndex("MinderSonderBasisGesamt"), 0);
  EXPECT_EQ(slip->FieldCount(), 4 + 192);  // ID, Nr, MitarbeiterID, Zeitraum and the month's columns
}

TEST(Schema, KeysAreFilledByTheStoreAndBooleansDefaultToFalse) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  std::string a = AddRow(db, "Basiswerte", {{"Bezeichnung", "A"}});
  std::string b = AddRow(db, "Basiswerte", {{"Bezeichnung", "B"}, {"Wiederherstellung", true}});
  EXPECT_TRUE(DateHelpers::IsID(Variant(a)));
  EXPECT_NE(a, b);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] ORDER BY [Nr] ASC");
  EXPECT_EQ(ToLong(rs->Fields("Standardordner")), 0);
  EXPECT_EQ(ToLong(rs->Fields("Nr")), 1);
  rs->MoveNext();
  EXPECT_EQ(ToLong(rs->Fields("Wiederherstellung")), -1);
  EXPECT_EQ(ToLong(rs->Fields("Nr")), 2);
}

TEST(Schema, DeletingAFolderOrADatedTableTakesEverythingBelowWithIt) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  std::string folder = AddRow(db, "Basiswerte", {{"Bezeichnung", "Standard"}});
  std::string other = AddRow(db, "Basiswerte", {{"Bezeichnung", "Other"}});
  std::vector<std::string> tables;
  for (const std::string& basis : {folder, folder, other}) {
    std::string table = AddRow(db, "Basiswerte_Zeittabelle", {{"BasisID", basis}, {"Datum", 202401}});
    tables.push_back(table);
    std::string sw = AddRow(db, "Basiswerte_Zeittabelle_SW", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_SW_Werte", {{"SWID", sw}, {"DNGruppe", 1}});
    std::string lst = AddRow(db, "Basiswerte_Zeittabelle_LST", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_LST_Werte", {{"LohnsteuerID", lst}});
    std::string sa = AddRow(db, "Basiswerte_Zeittabelle_SA", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_SA_Werte", {{"SAID", sa}, {"VGruppe", 1}});
    AddRow(db, "Basiswerte_Zeittabelle_PP", {{"ZeittabellenID", table}, {"SortNr", 1}});
    AddRow(db, "Basiswerte_Zeittabelle_FB", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_ALV", {{"ZeittabellenID", table}});
    std::string dg = AddRow(db, "Basiswerte_Zeittabelle_DG", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_DG_Werte", {{"DGID", dg}, {"DNGruppe", 1}});
    std::string dgm = AddRow(db, "Basiswerte_Zeittabelle_DG_Geringfügig", {{"ZeittabellenID", table}});
    AddRow(db, "Basiswerte_Zeittabelle_DG_Geringfügig_Werte", {{"DGID", dgm}, {"DNGruppe", 24}});
  }
  const char* below[] = {"Basiswerte_Zeittabelle_SW", "Basiswerte_Zeittabelle_SW_Werte", "Basiswerte_Zeittabelle_LST",
                         "Basiswerte_Zeittabelle_LST_Werte", "Basiswerte_Zeittabelle_SA",
                         "Basiswerte_Zeittabelle_SA_Werte", "Basiswerte_Zeittabelle_PP", "Basiswerte_Zeittabelle_FB",
                         "Basiswerte_Zeittabelle_ALV", "Basiswerte_Zeittabelle_DG", "Basiswerte_Zeittabelle_DG_Werte",
                         "Basiswerte_Zeittabelle_DG_Geringfügig", "Basiswerte_Zeittabelle_DG_Geringfügig_Werte"};
  db->Session().ExecuteSql("DELETE * FROM [Basiswerte_Zeittabelle] WHERE [ID]=" + SqlID(tables[0]), true);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 2);
  for (const char* table : below) EXPECT_EQ(test::CountRows(db, table), 2) << table;
  db->Session().ExecuteSql("DELETE * FROM [Basiswerte] WHERE [ID]=" + SqlID(folder), true);
  EXPECT_EQ(test::CountRows(db, "Basiswerte_Zeittabelle"), 1);
  for (const char* table : below) EXPECT_EQ(test::CountRows(db, table), 1) << table;
}

TEST(Schema, CreatingOverAnExistingFileLeavesItAlone) {
  test::TempDir dir;
  std::string path = dir.File("payroll.db");
  {
    std::ofstream out(path);
    out << "precious";
  }
  EXPECT_THROW(CreateStore(path, StoreKind::Payroll), StoreError);
  std::ifstream in(path);
  std::string content;
  in >> content;
  EXPECT_EQ(content, "precious");
}

TEST(Schema, BothDialectsDeclareEveryTable) {
  for (StoreKind kind : {StoreKind::Payroll, StoreKind::Reference}) {
    std::string sqlite = SchemaDdl(kind, "sqlite");
    std::string postgres = SchemaDdl(kind, "postgresql");
    for (const SchemaTable& table : SchemaTables(kind)) {
      std::string create = "CREATE TABLE \"" + table.name + "\"";
      EXPECT_NE(sqlite.find(create), std::string::npos) << table.name;
      EXPECT_NE(postgres.find(create), std::string::npos) << table.name;
    }
    EXPECT_EQ(postgres.find("AUTOINCREMENT"), std::string::npos);
  }
  EXPECT_THROW(SchemaDdl(StoreKind::Payroll, "oracle"), Error);
}

}  // namespace
