// Whether a store is sound: a fresh or filled store is; each kind of finding is
// found and named with its table, row and column. On SQLite and on PostgreSQL,
// with what only one of them can hold on its own.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "ormelix/store/check.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/schema.h"
#include "support/raw_store.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class CheckTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  std::string location = test::NewStoreLocation(dir, StoreKind::Payroll, "payroll.db");
  StoreConnectionPtr db = CreateStore(location, StoreKind::Payroll);
  std::string employee, month;

  void Fill() {
    std::string employer = test::AddRow(db, "Mandanten", {{"Name", "Muster GmbH"}});
    employee = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Personalnummer", 1}});
    month = test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", 202503}});
    test::AddRow(db, "Mitarbeiter_Lohnzettel_Kurzarbeit", {{"LohnzettelID", month}});
    std::string child = test::AddRow(db, "Mitarbeiter_Kinder", {{"MitarbeiterID", employee}});
    test::AddRow(db, "Mitarbeiter_Kinder_ZB", {{"KID", child}, {"Zeitraum", 202501}});
  }

  // Runs SQL of the backend's own dialect beside the library (which would refuse
  // some of it), in the store's schema on PostgreSQL.
  void Raw(const std::string& sql) {
    if (test::OnPostgres()) {
      test::RunOnServer(location, sql);
    } else {
      test::RawConnection raw(location);
      raw.Run(sql);
    }
  }

  std::vector<std::string> Findings() {
    std::vector<std::string> lines;
    for (const CheckFinding& f : CheckStore(StoreConnection::Open(location, "readonly"), StoreKind::Payroll).findings)
      lines.push_back(f.kind + "|" + f.table + "|" + f.column + "|" + f.message + (f.row.empty() ? "" : "|" + f.row));
    return lines;
  }

  static bool Holds(const std::vector<std::string>& lines, const std::string& words) {
    for (const std::string& line : lines)
      if (line.find(words) != std::string::npos) return true;
    return false;
  }
};

TEST_F(CheckTest, AFreshAndAFilledStoreAreSound) {
  StoreCheck fresh = CheckStore(db, StoreKind::Payroll);
  EXPECT_TRUE(fresh.Sound()) << (fresh.findings.empty() ? "" : fresh.findings[0].message);
  EXPECT_EQ(fresh.tables, static_cast<long>(SchemaTables(StoreKind::Payroll).size()));
  Fill();
  StoreCheck filled = CheckStore(db, StoreKind::Payroll);
  EXPECT_TRUE(filled.Sound()) << (filled.findings.empty() ? "" : filled.findings[0].message);
  EXPECT_EQ(filled.rows, 6);
}

TEST_F(CheckTest, RowsWithoutTheirOwnerASecondRowPerKeyAndValuesOutOfRangeAreFound) {
  Fill();
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder]");
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", "{00000000-0000-4000-8000-0000000000AA}"},
                                              {"Zeitraum", 202504}});
  test::AddRow(db, "Mitarbeiter_Lohnzettel_EL", {{"LohnzettelID", Variant::NullValue()}});
  // A store made before the unique keys may hold two pay rows of one month.
  for (const SchemaTable& table : SchemaTables(StoreKind::Payroll))
    if (table.name == "Mitarbeiter_Lohnzettel") Raw("DROP INDEX \"" + SchemaIndexName(table, 1) + "\"");
  test::AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", 202503}});
  Raw("UPDATE \"Mitarbeiter\" SET \"Neuanlage\" = 1, \"Geburtsdatum\" = 5000000");
  Raw("UPDATE \"Mitarbeiter_Lohnzettel\" SET \"Zeitraum\" = 202513 WHERE \"Zeitraum\" = 202504");
  Raw("UPDATE \"Mitarbeiter_Lohnzettel\" SET \"Gehalt\" = " + std::string(test::OnPostgres() ? "'Infinity'" : "9e999") +
      " WHERE \"ID\" = '" + month + "'");
  std::vector<std::string> found = Findings();
  for (const std::string& words : std::vector<std::string>{
           "owner|Mitarbeiter_Kinder_ZB|KID|the row's child {", "is not in Mitarbeiter_Kinder",
        "owner|Mitarbeiter_Lohnzettel|MitarbeiterID|the row's employee {00000000-0000-4000-8000-0000000000AA} is not in",
        "owner|Mitarbeiter_Lohnzettel_EL|LohnzettelID|the row has no pay record (LohnzettelID is empty)",
        "key|Mitarbeiter_Lohnzettel||a second row for MitarbeiterID " + employee + ", Zeitraum 202503 (the first is Nr 1",
        "range|Mitarbeiter|Neuanlage|1 is no boolean (-1 or 0)|Nr 1", "range|Mitarbeiter|Geburtsdatum|5000000 lies outside",
        "range|Mitarbeiter_Lohnzettel|Zeitraum|202513 is no period", "range|Mitarbeiter_Lohnzettel|Gehalt|inf is no finite"})
    EXPECT_TRUE(Holds(found, words)) << words << "\n" << ::testing::PrintToString(found);
  EXPECT_EQ(found.size(), 8u) << ::testing::PrintToString(found);
}

TEST_F(CheckTest, WhatOnlySqliteHoldsAndTheStoreFileItselfAreChecked) {
  ORMELIX_SQLITE_ONLY();
  Fill();
  db->Session().CloseStore();
  {
    test::RawConnection raw(location);
    raw.Run("UPDATE \"Mitarbeiter\" SET \"Familienname\" = X'4DFC6C6C6572', \"Personalnummer\" = 70000, "
            "\"Stunden\" = 'viele';"
            "PRAGMA foreign_keys = OFF;"
            "INSERT INTO \"Basiswerte_Zeittabelle\" (\"BasisID\") VALUES ('{00000000-0000-4000-8000-0000000000BB}');");
  }
  ::chmod(location.c_str(), 0644);
  std::vector<std::string> found = Findings();
  for (const char* words :
       {"integrity|||foreign_key_check: the row 1 of Basiswerte_Zeittabelle refers to no row of Basiswerte",
        "access|||others may read ", "payroll.db (mode 0644)", "range|Mitarbeiter|Familienname|the text 'M",
        "is no UTF-8", "range|Mitarbeiter|Personalnummer|70000 lies outside 16 bits",
        "range|Mitarbeiter|Stunden|the text 'viele' stands where a number belongs"})
    EXPECT_TRUE(Holds(found, words)) << words << "\n" << ::testing::PrintToString(found);
  for (const char* side : {"", "-wal", "-shm"}) ::chmod((location + side).c_str(), 0660);  // a group of clerks may
  EXPECT_FALSE(Holds(Findings(), "access"));
}

TEST_F(CheckTest, WhatOnlyThePostgresCatalogKnowsIsChecked) {
  if (!test::OnPostgres()) GTEST_SKIP() << "a test of the PostgreSQL run";
  Fill();
  Raw("ALTER TABLE \"Mitarbeiter\" ADD CONSTRAINT \"no_negative\" CHECK (\"Personalnummer\" > 5) NOT VALID");
  Raw("ALTER TABLE \"Mitarbeiter\" ALTER COLUMN \"Ort\" TYPE TEXT COLLATE \"C\"");
  std::vector<std::string> found = Findings();
  for (const char* words : {"integrity|||catalog: the constraint no_negative of Mitarbeiter was never validated",
                            "integrity|||catalog: the text column Mitarbeiter.Ort compares by C order"})
    EXPECT_TRUE(Holds(found, words)) << words << "\n" << ::testing::PrintToString(found);
}

TEST_F(CheckTest, AMissingTableOrColumnIsASchemaFinding) {
  Raw("ALTER TABLE \"Mitarbeiter_Sachbezüge\" RENAME TO \"Sachbezüge_alt\"");
  Raw("ALTER TABLE \"Settings\" DROP COLUMN \"SubFields\"");
  std::vector<std::string> found = Findings();
  EXPECT_TRUE(Holds(found, "schema|Mitarbeiter_Sachbezüge||the table is missing")) << ::testing::PrintToString(found);
  EXPECT_TRUE(Holds(found, "schema|Settings|SubFields|the column is missing")) << ::testing::PrintToString(found);
}

}  // namespace
