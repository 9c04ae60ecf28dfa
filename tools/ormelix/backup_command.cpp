// ormelix backup: a consistent copy of a live SQLite store while clerks work.
#include <filesystem>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "common/paths.h"
#include "common/stores.h"
#include "ormelix/store/backup.h"
#include "ormelix/store/location.h"

namespace cli {

const char* const kBackupHelp =
    "usage: ormelix backup STORE FILE\n"
    "  Copies a live SQLite store into FILE by SQLite's online backup, while other\n"
    "  programs go on saving: the copy holds the store as it stood at one moment. Then\n"
    "  it checks that every table of the copy reads back with the rows and checksum\n"
    "  the store had at that moment (a copy that does not is removed). FILE is a new\n"
    "  file, readable and writable by its owner only. STORE is a store file, or a\n"
    "  folder with payroll.db (and reference.db): FILE is then a new or empty folder\n"
    "  that receives both. A PostgreSQL store is backed up with PostgreSQL's pg_dump,\n"
    "  as the command names it.\n";

namespace {

// What to run instead for a store on a server: its schema with pg_dump.
std::string PgDumpCommand(const std::string& location, const std::string& file) {
  std::string schema = ormelix::LocationParameter(location, "schema");
  std::string reference = (schema.empty() ? std::string("") : schema + "_") + "reference";
  std::string connection = ormelix::ShownLocation(ormelix::WithLocationParameter(location, "schema", ""));
  return "pg_dump --format=custom --schema=" + (schema.empty() ? std::string("public") : schema) +
         " --schema=" + reference + " --file='" + file + "' '" + connection + "'";
}

std::string BackupOne(const ormelix::StoreConnectionPtr& store, ormelix::StoreKind kind, const std::string& file) {
  std::vector<ormelix::TableCopy> tables = ormelix::BackupStore(store, kind, file);
  long rows = 0;
  for (const auto& table : tables) rows += table.rows;
  std::ostringstream line;
  line << (kind == ormelix::StoreKind::Payroll ? "payroll store" : "reference store") << ": " << tables.size()
       << " tables, " << rows << " rows backed up into " << Shown(file) << "; row counts and checksums agree\n";
  return line.str();
}

void RequireNew(const std::filesystem::path& file) {
  if (KindAt(file) != std::filesystem::file_type::not_found)
    throw UsageError("'" + Shown(file) + "' exists already; backup writes a new file and overwrites nothing");
  std::filesystem::path folder = file.parent_path();
  if (!folder.empty() && KindAt(folder) != std::filesystem::file_type::directory)
    throw UsageError("no folder '" + Shown(folder) + "' for '" + Shown(file) + "'");
  RequireWritableFolder(folder);
}

}  // namespace

int Backup(Arguments args) {
  std::optional<std::string> from = args.TakePositional();
  std::optional<std::string> to = args.TakePositional();
  args.ExpectEnd("ormelix backup STORE FILE");
  if (!from || !to) throw UsageError("backup needs a store and a file: ormelix backup STORE FILE");
  if (ormelix::IsServerLocation(*from))
    throw UsageError("'" + ormelix::ShownLocation(*from) + "' is a PostgreSQL store, which PostgreSQL backs up itself: " +
                     PgDumpCommand(*from, *to));
  const bool folder = KindAt(*from) == std::filesystem::file_type::directory;
  OpenedStores stores = OpenStoreFiles(*from, /*read_only=*/true);
  std::filesystem::path payroll = *to, reference;
  if (folder) {
    if (KindAt(*to) == std::filesystem::file_type::not_found) MakeFolder(*to);
    if (KindAt(*to) != std::filesystem::file_type::directory)
      throw UsageError("'" + Shown(*to) + "' is no folder; the backup of a folder of stores goes into a folder");
    payroll = std::filesystem::path(*to) / "payroll.db";
    reference = std::filesystem::path(*to) / "reference.db";
  }
  RequireNew(payroll);
  if (stores.reference && folder) RequireNew(reference);
  std::string report = BackupOne(stores.payroll, ormelix::StoreKind::Payroll, payroll.string());
  if (stores.reference && folder) {
    try {
      report += BackupOne(stores.reference, ormelix::StoreKind::Reference, reference.string());
    } catch (...) {
      std::error_code ignored;
      std::filesystem::remove(payroll, ignored);
      throw;
    }
  }
  std::cout << report;
  return 0;
}

}  // namespace cli
