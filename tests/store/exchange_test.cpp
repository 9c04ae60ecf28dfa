// Tables out to files and back: an export imported into an empty store gives
// equal checksums, in CSV and in JSON; the CSV of mdb-export comes in; and each
// kind of bad file stops the import at its file, line and column, with nothing
// written. On SQLite and on PostgreSQL.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ormelix/error.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/exchange.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;
namespace fs = std::filesystem;

namespace {

void Write(const fs::path& file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

class ExchangeTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  StoreConnectionPtr source = test::NewStore(dir, StoreKind::Payroll, "source.db");
  std::string employee;

  void Fill() {
    std::string folder = test::AddRow(source, "Basiswerte", {{"Bezeichnung", "Ärzte"}, {"Standardordner", true}});
    test::AddRow(source, "Basiswerte_Zeittabelle",
                 {{"BasisID", folder}, {"Datum", DateHelpers::DateSerial(2025, 1, 1)}, {"Bezeichnung", "2025"}});
    std::string employer = test::AddRow(source, "Mandanten", {{"Name", "O'Brien, \"Söhne\"\nund Töchter"}});
    test::AddRow(source, "Mandanten", {{"Name", Variant::NullValue()}});
    test::AddRow(source, "Mandanten", {{"Name", ""}, {"Neufög_Von", DateHelpers::DateSerial(2024, 7, 1) + 0.75}});
    test::AddRow(source, "Settings", {{"Sections", "Druck"}, {"Fields", "Kopien"}, {"Values", 3}});
    test::AddRow(source, "Settings", {{"Sections", "Druck"}, {"Fields", "Rand"}, {"Values", 2.0}});
    test::AddRow(source, "Settings", {{"Sections", "Druck"}, {"Fields", "Drucker"}, {"Values", "007"}});
    employee = test::AddRow(source, "Mitarbeiter", {{"MandantenID", employer}, {"Familienname", "Huber"},
                                                    {"Geburtsdatum", DateHelpers::DateSerial(1986, 4, 12)}});
    test::AddRow(source, "Mitarbeiter_Lohnzettel",
                 {{"MitarbeiterID", employee}, {"Zeitraum", 202503}, {"Gehalt", 3350.12}, {"op_Angestellter", true}});
    source->Session().ExecuteSql("DELETE * FROM [Mandanten] WHERE [Name] IS NULL");  // a gap in Nr
  }

  std::string Export(TableFileFormat format, const std::string& name = "export") {
    std::string out = dir.File(name);
    fs::create_directories(out);
    ExportOptions options;
    options.format = format;
    WriteChecksums(out, ExportTables(source, StoreKind::Payroll, out, options));
    return out;
  }

  static std::vector<TableCopy> Import(const std::string& folder, const StoreConnectionPtr& target, bool replace = false) {
    ImportOptions options;
    options.replace = replace;
    return ImportTables(FindTableFiles(folder), {{target, StoreKind::Payroll}}, options);
  }
};

TEST_F(ExchangeTest, AnExportImportedIntoAnEmptyStoreGivesEqualChecksumsInBothForms) {
  Fill();
  const std::vector<TableCopy> original = StoreChecksums(source, StoreKind::Payroll);
  for (TableFileFormat format : {TableFileFormat::Csv, TableFileFormat::Json}) {
    const std::string name = format == TableFileFormat::Csv ? "csv" : "json";
    const std::string folder = Export(format, name);
    EXPECT_EQ(fs::status(fs::path(folder) / ("Mandanten." + name)).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    auto target = test::NewStore(dir, StoreKind::Payroll, name + ".db");
    std::vector<TableCopy> imported = Import(folder, target);
    EXPECT_EQ(imported.size(), original.size());
    std::vector<TableCopy> sums = StoreChecksums(target, StoreKind::Payroll);
    for (std::size_t i = 0; i < original.size(); ++i) {
      EXPECT_EQ(sums[i].rows, original[i].rows) << name << " " << original[i].table;
      EXPECT_EQ(sums[i].checksum, original[i].checksum) << name << " " << original[i].table;
    }
    // The autonumber goes on after the Nr that came with the rows.
    test::AddRow(target, "Mandanten", {{"Name", "Neu"}});
    EXPECT_EQ(test::CountRows(target, "Mandanten", "[Nr]=4 AND [Name]='Neu'"), 1) << name;
  }
  std::string csv = Read(dir.Path() / "csv" / "Mandanten.csv");
  EXPECT_NE(csv.find("\r\n1,\"{"), std::string::npos) << csv;                     // Nr bare, the ID quoted
  EXPECT_NE(csv.find("\"O'Brien, \"\"Söhne\"\"\nund Töchter\""), std::string::npos) << csv;
  EXPECT_NE(csv.find(",\"\",") , std::string::npos) << csv;                        // the empty name
  EXPECT_NE(csv.find("2024-07-01 18:00:00"), std::string::npos) << csv;
  std::string json = Read(dir.Path() / "json" / "Settings.json");
  EXPECT_NE(json.find("\"Values\": 2.0"), std::string::npos) << json;
  EXPECT_NE(json.find("\"Values\": \"007\""), std::string::npos) << json;
}

TEST_F(ExchangeTest, TheCsvOfMdbExportComesInWithItsDatesBooleansAndBareGuids) {
  const std::string folder = dir.File("old");
  fs::create_directories(folder);
  Write(fs::path(folder) / "mitarbeiter.csv",
        "ID,MandantenID,Personalnummer,Familienname,VorName,Geburtsdatum,Neuanlage,IsEhepartner\n"
        "\"5d2c1a30-1111-4222-8333-944455556666\",\"5d2c1a30-0000-4000-8000-000000000001\",1001,\"Huber\",\"\","
        "\"04/12/86 00:00:00\",1,FALSE\n"
        "\"5d2c1a30-1111-4222-8333-944455556667\",,1002,\"Gruber\",,\"2001-02-03\",0,TRUE\n");
  Write(fs::path(folder) / "Mitarbeiter_Lohnzettel.csv",
        "MitarbeiterID,Zeitraum,Gehalt,Abrechnung_Von\r\n"
        "\"5d2c1a30-1111-4222-8333-944455556666\",202503,3350.12,\"03/01/25 00:00:00\"\r\n");
  auto target = test::NewStore(dir, StoreKind::Payroll, "target.db");
  std::vector<TableCopy> imported = Import(folder, target);
  ASSERT_EQ(imported.size(), 2u);
  EXPECT_EQ(imported[0].table, "Mitarbeiter");
  auto rs = target->Session().OpenRecordset("SELECT * FROM [Mitarbeiter] ORDER BY [Nr] ASC");
  EXPECT_EQ(ValueHelpers::ToText(rs->Fields("ID")), "{5d2c1a30-1111-4222-8333-944455556666}");
  EXPECT_EQ(ValueHelpers::ToDate(rs->Fields("Geburtsdatum")), DateHelpers::DateSerial(1986, 4, 12));
  EXPECT_EQ(ValueHelpers::ToInteger(rs->Fields("Neuanlage")), -1);
  EXPECT_EQ(ValueHelpers::ToInteger(rs->Fields("IsEhepartner")), 0);
  EXPECT_TRUE(rs->Fields("VorName").Value().IsText());
  rs->MoveNext();
  EXPECT_TRUE(rs->Fields("VorName").Value().IsNull());
  EXPECT_TRUE(rs->Fields("MandantenID").Value().IsNull());
  EXPECT_EQ(ValueHelpers::ToInteger(rs->Fields("IsEhepartner")), -1);
  // The pay row finds its employee by the braced key, in any case.
  EXPECT_EQ(test::CountRows(target, "Mitarbeiter_Lohnzettel",
                            "[MitarbeiterID]='{5D2C1A30-1111-4222-8333-944455556666}' AND [Zeitraum]=202503"),
            1);
  EXPECT_EQ(test::CountRows(target, "Mitarbeiter_Lohnzettel", "[Abrechnung_Von]=" +
                                                                  FormatNumber(DateHelpers::DateSerial(2025, 3, 1))),
            1);
}

TEST_F(ExchangeTest, EachKindOfBadFileStopsTheImportAtItsFileLineAndColumnAndNothingIsWritten) {
  Fill();
  struct Case {
    std::string file, text;
    std::size_t line;
    std::string column, words;
  };
  const std::string mandant = "Nr,ID,Name\n1,\"{00000000-0000-4000-8000-000000000001}\",\"A\"\n";
  const Case cases[] = {
      {"Mandanten.csv", "Nr,ID,Nam\n", 1, "Nam", "has no column of that name"},
      {"Mandanten.csv", "Nr,Name,NAME\n", 1, "NAME", "named twice"},
      {"Mandanten.csv", "", 1, "", "the file is empty"},
      {"Mandanten.csv", mandant + "2,\"{00000000-0000-4000-8000-000000000002}\"\n", 3, "", "the record has 2 fields"},
      {"Mandanten.csv", mandant + "2,\"{00000000-0000-4000-8000-000000000002}\",\"open\n\n", 3, "Name", "never closed"},
      {"Mandanten.csv", mandant + "x,\"{00000000-0000-4000-8000-000000000002}\",\"B\"\n", 3, "Nr", "'x' is no number"},
      {"Mandanten.csv", mandant + "2,\"{00000000-0000-4000-8000-000000000001}\",\"B\"\n", 3, "ID", "a second row for ID"},
      {"Mandanten.csv", mandant + "1,\"{00000000-0000-4000-8000-000000000003}\",\"B\"\n", 3, "Nr", "the first is on line 2"},
      {"Mandanten.csv", "Nr,Name,Neufög\n1,\"A\",5\n", 2, "Neufög", "'5' is no boolean"},
      {"Mandanten.csv", "Name,Neufög_Von\n\"A\",\"31.12.2024\"\n", 2, "Neufög_Von", "is no date"},
      {"Mandanten.csv", "Name\n\"M\xFCller\"\n", 2, "Name", "is no UTF-8"},
      {"Mitarbeiter.csv", "Personalnummer\n1\n70000\n", 3, "Personalnummer", "70000 lies outside 16 bits"},
      {"Mitarbeiter_Lohnzettel.csv", "MitarbeiterID,Zeitraum\n\"{A}\",202503\n\"{a}\",202503\n", 3, "MitarbeiterID",
       "a second row for MitarbeiterID {a}, Zeitraum 202503"},
      {"Mitarbeiter_Lohnzettel.csv", "Zeitraum\n202513\n", 2, "Zeitraum", "no period YYYYMM"},
      {"Basiswerte_Zeittabelle.csv", "BasisID,Bezeichnung\n\"{00000000-0000-4000-8000-00000000000F}\",\"x\"\n", 2,
       "BasisID", "is the ID of no row of Basiswerte"},
      {"Mandanten.json", "[\n{\"Name\": \"A\"},\n{\"Name\": \"B\", \"Ort\": \"Wien\"}\n]", 3, "Ort", "no such member"},
      {"Mandanten.json", "[\n{\"Name\": \"A\", \"Ort\": \"Wien\"},\n{\"Name\": \"B\"}\n]", 3, "Ort", "lacks this member"},
      {"Mandanten.json", "[\n{\"Name\": [1]}\n]", 2, "", "an object or array"},
      {"Mandanten.json", "[\n{\"Name\": \"A\"}\n", 3, "", "neither ',' nor the ']'"},
      {"Mandanten.json", "[{\"Neufög\": true, \"Name\": true}]", 1, "Name", "a boolean is no text"},
  };
  const std::vector<TableCopy> before = StoreChecksums(source, StoreKind::Payroll);
  auto target = test::NewStore(dir, StoreKind::Payroll, "target.db");
  int n = 0;
  for (const Case& c : cases) {
    const fs::path folder = dir.Path() / ("bad" + std::to_string(n++));
    fs::create_directories(folder);
    Write(folder / "Settings.csv", "Sections,Fields\n\"Druck\",\"Kopien\"\n");  // a good file first
    Write(folder / c.file, c.text);
    try {
      Import(folder.string(), target);
      ADD_FAILURE() << "imported " << c.file << ": " << c.text;
    } catch (const ImportError& error) {
      EXPECT_EQ(error.File(), (folder / c.file).string()) << error.what();
      EXPECT_EQ(error.Line(), c.line) << error.what();
      EXPECT_EQ(error.Column(), c.column) << error.what();
      EXPECT_NE(std::string(error.what()).find(c.words), std::string::npos) << error.what();
    }
    EXPECT_EQ(test::CountRows(target, "Settings"), 0) << c.text;
  }
  // A store that holds rows is refused (and left as it was) unless asked to replace.
  const std::string folder = Export(TableFileFormat::Csv);
  EXPECT_THROW(Import(folder, source), ImportError);
  EXPECT_EQ(StoreChecksums(source, StoreKind::Payroll)[3].checksum, before[3].checksum);
  EXPECT_NO_THROW(Import(folder, source, /*replace=*/true));
}

TEST_F(ExchangeTest, AFileChangedSinceTheExportOrAReplaceThatWouldTakeRowsWithoutAFileIsRefused) {
  Fill();
  const std::string folder = Export(TableFileFormat::Csv);
  std::string text = Read(fs::path(folder) / "Mandanten.csv");
  text.replace(text.find("O'Brien"), 7, "O'Brian");
  Write(fs::path(folder) / "Mandanten.csv", text);
  auto target = test::NewStore(dir, StoreKind::Payroll, "target.db");
  try {
    Import(folder, target);
    ADD_FAILURE() << "a changed file was imported";
  } catch (const ImportError& error) {
    EXPECT_NE(std::string(error.what()).find("checksums.txt records 2 rows"), std::string::npos) << error.what();
  }
  EXPECT_EQ(test::CountRows(target, "Mandanten"), 0);

  // Replacing the folders alone would take their dated tables by the cascade.
  const std::string folders = dir.File("folders");
  ExportOptions only;
  only.tables = {"basiswerte"};
  fs::create_directories(folders);
  ExportTables(source, StoreKind::Payroll, folders, only);
  try {
    Import(folders, source, /*replace=*/true);
    ADD_FAILURE() << "a replace took the rows below";
  } catch (const ImportError& error) {
    EXPECT_NE(std::string(error.what()).find("would delete the rows of Basiswerte_Zeittabelle"), std::string::npos)
        << error.what();
  }
  EXPECT_EQ(test::CountRows(source, "Basiswerte_Zeittabelle"), 1);
}

}  // namespace
