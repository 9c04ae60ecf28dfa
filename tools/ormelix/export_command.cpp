// ormelix export: the tables of a store out to one file each, for auditors,
// spreadsheets and a move to another system.
#include <sys/stat.h>

#include <filesystem>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "common/paths.h"
#include "common/stores.h"
#include "ormelix/store/exchange.h"
#include "ormelix/store/location.h"

namespace cli {

const char* const kExportHelp =
    "usage: ormelix export STORE DIR [--tables T,...] [--format csv|json]\n"
    "  Writes every table of a payroll store, and of the reference store beside it,\n"
    "  to DIR, one file each (TABLE.csv or TABLE.json), read in one snapshot of the\n"
    "  store while others may save; and checksums.txt with each table's rows and\n"
    "  checksum, against which ormelix import checks what it reads. STORE is as --store\n"
    "  of ormelix show takes it: a store file, a folder with payroll.db (and\n"
    "  reference.db), or a PostgreSQL connection string. DIR is a new folder (made\n"
    "  readable by its owner only) or an empty one; the files are readable and\n"
    "  writable by their owner only, as they hold what the store holds.\n"
    "  CSV is RFC 4180 in UTF-8: a header of column names, then one record per row;\n"
    "  a text in quotes (\"\" is the empty text), Null as an empty field without\n"
    "  quotes, numbers as they are, booleans -1 and 0, dates as 2025-03-17 (with a\n"
    "  time of day where there is one; 0, no date, stays 0), IDs in braces. JSON is\n"
    "  an array of one object per row with the same values (Null as null).\n"
    "  --tables T,...     only these tables, as the schema names them\n"
    "  --format csv|json  the form of the files (default csv)\n";

namespace {

std::vector<std::string> SplitTables(const std::string& list) {
  std::vector<std::string> names;
  std::size_t start = 0;
  for (std::size_t comma; (comma = list.find(',', start)) != std::string::npos; start = comma + 1)
    names.push_back(list.substr(start, comma - start));
  names.push_back(list.substr(start));
  for (std::string& name : names) {
    name.erase(0, name.find_first_not_of(' '));
    name.erase(name.find_last_not_of(' ') + 1);
  }
  return names;
}

std::string AllTables() {
  std::string all;
  for (ormelix::StoreKind kind : {ormelix::StoreKind::Payroll, ormelix::StoreKind::Reference})
    for (const ormelix::SchemaTable& table : ormelix::SchemaTables(kind)) all += (all.empty() ? "" : ", ") + table.name;
  return all;
}

void CheckTables(const std::vector<std::string>& names, bool has_reference) {
  for (const std::string& name : names) {
    bool payroll = !ormelix::SchemaTableNames({name}, ormelix::StoreKind::Payroll).empty();
    bool reference = !ormelix::SchemaTableNames({name}, ormelix::StoreKind::Reference).empty();
    if (!payroll && !reference) throw UsageError("unknown table '" + name + "'; the tables are " + AllTables());
    if (reference && !has_reference) throw UsageError("'" + name + "' is a table of the reference store, and there is none beside the payroll store");
  }
}

// A new folder readable by its owner only, or an empty one.
void PrepareFolder(const std::filesystem::path& dir) {
  std::filesystem::file_type kind = KindAt(dir);
  if (kind == std::filesystem::file_type::not_found) {
    MakeFolder(dir);
    ::chmod(dir.c_str(), 0700);
    return;
  }
  if (kind != std::filesystem::file_type::directory)
    throw UsageError("'" + Shown(dir) + "' is no folder; expected a new or empty folder for the table files");
  if (!std::filesystem::is_empty(dir))
    throw UsageError("the folder '" + Shown(dir) + "' holds files already; export writes into a new or empty folder");
  RequireWritableFolder(dir);
}

// Writes the files and gives what to report of them.
std::string WriteTables(const OpenedStores& stores, const std::string& dir, const ormelix::ExportOptions& options) {
  std::vector<ormelix::TableCopy> all;
  std::ostringstream report;
  for (auto [connection, kind] : {std::pair{stores.payroll, ormelix::StoreKind::Payroll},
                                  std::pair{stores.reference, ormelix::StoreKind::Reference}}) {
    if (!connection) continue;
    if (!options.tables.empty() && ormelix::SchemaTableNames(options.tables, kind).empty()) continue;
    std::vector<ormelix::TableCopy> written = ormelix::ExportTables(connection, kind, dir, options);
    long rows = 0;
    for (const auto& table : written) rows += table.rows;
    report << (kind == ormelix::StoreKind::Payroll ? "payroll store: " : "reference store: ") << written.size()
              << " tables, " << rows << " rows written to " << Shown(dir) << "/\n";
    all.insert(all.end(), written.begin(), written.end());
  }
  ormelix::WriteChecksums(dir, all);
  report << "checksums of every table in " << Shown(std::filesystem::path(dir) / ormelix::kChecksumFile) << "\n";
  return report.str();
}

}  // namespace

int Export(Arguments args) {
  std::optional<std::string> tables = args.TakeOption("tables");
  std::optional<std::string> format = args.TakeOption("format");
  std::optional<std::string> store = args.TakePositional();
  std::optional<std::string> dir = args.TakePositional();
  const char* usage = "ormelix export STORE DIR [--tables T,...] [--format csv|json]";
  args.ExpectEnd(usage);
  if (!store || !dir) throw UsageError(std::string("export needs a store and a folder: ") + usage);
  ormelix::ExportOptions options;
  if (format && *format != "csv" && *format != "json")
    throw UsageError("--format '" + *format + "' is neither csv nor json");
  options.format = format && *format == "json" ? ormelix::TableFileFormat::Json : ormelix::TableFileFormat::Csv;
  if (tables) options.tables = SplitTables(*tables);
  OpenedStores stores = OpenStoreFiles(*store, /*read_only=*/true);
  CheckTables(options.tables, stores.reference != nullptr);
  const bool made = KindAt(*dir) == std::filesystem::file_type::not_found;
  PrepareFolder(*dir);
  try {
    std::cout << WriteTables(stores, *dir, options);
  } catch (...) {
    // A failure half-way leaves no half an export: the folder was new or empty.
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(*dir, ignored)) std::filesystem::remove(entry.path(), ignored);
    if (made) std::filesystem::remove(*dir, ignored);
    throw;
  }
  return 0;
}

}  // namespace cli
