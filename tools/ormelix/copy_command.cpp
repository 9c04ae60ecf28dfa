// ormelix copy: moves a whole store from SQLite to PostgreSQL or back.
#include <filesystem>
#include <iostream>
#include <memory>

#include "commands.h"
#include "common/stores.h"
#include "ormelix/error.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/location.h"
#include "ormelix/store/schema.h"

namespace cli {

const char* const kCopyHelp =
    "usage: ormelix copy SRC DST [--replace]\n"
    "  Copies a payroll store, and the reference store beside it if SRC has one, onto\n"
    "  DST: every table with every row, its ID and Nr, in one transaction on DST, then\n"
    "  checks that each table reads back with the same number of rows and the same\n"
    "  checksum of all values (a failed check leaves DST as it was). SRC and DST are\n"
    "  as --store of ormelix show takes them: a store file, a folder with payroll.db\n"
    "  (and reference.db), or a PostgreSQL connection string (postgres://user@host/db\n"
    "  or 'host=... dbname=...'; the reference store in the schema reference). A DST\n"
    "  store that does not exist is made; one that holds rows is refused.\n"
    "  --replace   replace what DST holds\n";

namespace {

void CopyOne(const std::string& from, const std::string& to, bool to_server, ormelix::StoreKind kind,
             bool replace) {
  auto source = ormelix::StoreConnection::Open(from, "readonly");
  auto target = OpenOrCreateStore(to, to_server, kind);
  if (!replace && ormelix::StoreHoldsRows(target, kind))
    throw UsageError("'" + ormelix::ShownLocation(to) +
                     "' holds rows already; copy goes into an empty store (or give --replace)");
  std::unique_ptr<Progress> progress;
  ormelix::CopyOptions options;
  options.replace = replace;
  options.progress = [&](const std::string& table, long done, long total) {
    if (done == 0) progress = std::make_unique<Progress>("copying " + table);
    progress->Step(done, total);
  };
  std::vector<ormelix::TableCopy> tables = ormelix::CopyStore(source, target, kind, options);
  progress.reset();
  long rows = 0;
  for (const auto& table : tables) rows += table.rows;
  std::cout << (kind == ormelix::StoreKind::Payroll ? "payroll store" : "reference store") << ": "
            << tables.size() << " tables, " << rows << " rows copied from " << ormelix::ShownLocation(from)
            << " to " << ormelix::ShownLocation(to) << "; row counts and checksums agree\n";
}

}  // namespace

int Copy(Arguments args) {
  bool replace = args.TakeFlag("replace");
  std::optional<std::string> from = args.TakePositional();
  std::optional<std::string> to = args.TakePositional();
  args.ExpectEnd("ormelix copy SRC DST [--replace]");
  if (!from || !to) throw UsageError("copy needs a source and a target: ormelix copy SRC DST [--replace]");
  StoreLocations source = LocateStores(*from);
  if (!source.server && !std::filesystem::exists(source.payroll))
    throw UsageError("no payroll store at '" + source.payroll + "'; expected a store file, a folder with "
                     "payroll.db or a connection string");
  if (!ormelix::IsServerLocation(*to) && !std::filesystem::exists(*to) &&
      std::filesystem::path(*to).extension() != ".db")
    std::filesystem::create_directories(*to);  // a new folder for payroll.db and reference.db
  StoreLocations target = LocateStores(*to);
  if (source.payroll == target.payroll) throw UsageError("source and target are the same store");
  CopyOne(source.payroll, target.payroll, target.server, ormelix::StoreKind::Payroll, replace);
  if (StoreExists(source.reference, source.server))
    CopyOne(source.reference, target.reference, target.server, ormelix::StoreKind::Reference,
            replace);
  return 0;
}

}  // namespace cli
