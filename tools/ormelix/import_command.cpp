// ormelix import: the table files of an export (or of mdb-export) into a store.
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "commands.h"
#include "common/paths.h"
#include "common/stores.h"
#include "ormelix/store/exchange.h"
#include "ormelix/store/location.h"

namespace cli {

const char* const kImportHelp =
    "usage: ormelix import DIR STORE [--replace]\n"
    "  Reads the table files of DIR into STORE: TABLE.csv or TABLE.json as ormelix\n"
    "  export writes them, or CSV as mdbtools' mdb-export writes the tables of an older\n"
    "  store (mdb-export OLD.mdb Mitarbeiter > DIR/Mitarbeiter.csv; dates as\n"
    "  YYYY-MM-DD or MM/DD/YY[YY], with a time or without; booleans 1/0 or TRUE/FALSE,\n"
    "  which become -1/0; texts in UTF-8). Every table with a file, in one transaction\n"
    "  on each store: a column the schema does not know, a value its column cannot\n"
    "  hold, a second row for a key of one row, a row whose parent row is missing, or\n"
    "  a table that does not read back as DIR's checksums.txt records it stops the\n"
    "  import, naming file, line and column, and nothing is written. Rows keep the Nr\n"
    "  and ID their file gives; a file without them gets new ones. STORE is as DST of\n"
    "  ormelix copy: a store file, a folder (payroll.db, reference.db) or a connection\n"
    "  string; a store that does not exist is made, readable by its owner only. The\n"
    "  tables with files must be empty.\n"
    "  --replace   replace the rows of the tables with files (a table below one of\n"
    "              them by a cascade must have a file too)\n";

namespace {

struct Target {
  std::string location;
  ormelix::StoreKind kind;
  ormelix::StoreConnectionPtr store;
  bool created = false;
};

// A store this import made is taken away again when the import fails.
void RemoveMade(const std::vector<Target>& targets, bool server) {
  if (server) return;
  std::error_code ignored;
  for (const Target& target : targets) {
    if (!target.created) continue;
    for (const char* side : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(target.location + side, ignored);
  }
}

std::string Report(const std::vector<ormelix::TableCopy>& written, const std::vector<ormelix::TableFile>& files,
                   const std::vector<Target>& targets, bool checked) {
  std::ostringstream report;
  for (const Target& target : targets) {
    long tables = 0, rows = 0;
    for (std::size_t i = 0; i < written.size(); ++i)
      if (files[i].kind == target.kind) ++tables, rows += written[i].rows;
    report << (target.kind == ormelix::StoreKind::Payroll ? "payroll store: " : "reference store: ") << tables
           << " tables, " << rows << " rows imported into " << ormelix::ShownLocation(target.location) << "\n";
  }
  report << (checked ? "row counts and checksums agree with checksums.txt\n"
                     : "no checksums.txt in the folder: the tables were checked against the schema only\n");
  return report.str();
}

}  // namespace

int Import(Arguments args) {
  bool replace = args.TakeFlag("replace");
  std::optional<std::string> dir = args.TakePositional();
  std::optional<std::string> to = args.TakePositional();
  args.ExpectEnd("ormelix import DIR STORE [--replace]");
  if (!dir || !to) throw UsageError("import needs a folder and a store: ormelix import DIR STORE [--replace]");
  if (KindAt(*dir) != std::filesystem::file_type::directory)
    throw UsageError("'" + Shown(*dir) + "' is no folder; expected the folder of an export (TABLE.csv or TABLE.json)");
  std::vector<ormelix::TableFile> files = ormelix::FindTableFiles(*dir);
  bool server = ormelix::IsServerLocation(*to);
  const bool new_folder = !server && KindAt(*to) == std::filesystem::file_type::not_found &&
                          std::filesystem::path(*to).extension() != ".db";
  if (new_folder) MakeFolder(*to);  // a new folder for payroll.db and reference.db
  StoreLocations stores = LocateStores(*to);
  std::vector<Target> targets;
  for (auto [location, kind] : {std::pair{stores.payroll, ormelix::StoreKind::Payroll},
                                std::pair{stores.reference, ormelix::StoreKind::Reference}})
    for (const auto& file : files)
      if (file.kind == kind) {
        targets.push_back({location, kind, nullptr, false});
        break;
      }
  std::vector<ormelix::ImportTarget> opened;
  try {
    for (Target& target : targets) {
      target.store = OpenOrCreateStore(target.location, server, target.kind, &target.created);
      opened.push_back({target.store, target.kind});
    }
    std::unique_ptr<Progress> progress;
    ormelix::ImportOptions options;
    options.replace = replace;
    options.progress = [&](const std::string& table, long done, long total) {
      if (done == 0) progress = std::make_unique<Progress>("importing " + table);
      progress->Step(done, total);
    };
    std::vector<ormelix::TableCopy> written = ormelix::ImportTables(files, opened, options);
    progress.reset();
    bool checked = !ormelix::ReadChecksums(*dir).empty();
    std::cout << Report(written, files, targets, checked);
  } catch (...) {
    opened.clear();
    for (Target& target : targets) target.store.reset();
    RemoveMade(targets, server);
    std::error_code ignored;
    if (new_folder) std::filesystem::remove(*to, ignored);  // only if it is empty again
    throw;
  }
  return 0;
}

}  // namespace cli
