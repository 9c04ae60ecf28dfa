#include <cstdio>
#include <filesystem>
#include <iostream>

#include "commands.h"
#include "common/paths.h"
#include "ormelix/store/location.h"
#include "ormelix/store/schema.h"

namespace cli {

const char* const kInitHelp =
    "usage: ormelix init PAYROLL REFERENCE\n"
    "  Creates an empty payroll store and an empty reference store from the schema that\n"
    "  ships with the library: SQLite files, neither of which may exist, or PostgreSQL\n"
    "  connection strings (postgres://user@host:port/db or 'host=... dbname=...', with\n"
    "  schema=NAME for a schema of the database), whose schema must hold no tables; a\n"
    "  missing database is made.\n";

int Init(Arguments args) {
  std::optional<std::string> payroll = args.TakePositional();
  std::optional<std::string> reference = args.TakePositional();
  args.ExpectEnd("ormelix init PAYROLL REFERENCE");
  if (!payroll || !reference) throw UsageError("init needs two files: ormelix init PAYROLL REFERENCE");
  for (const std::string& path : {*payroll, *reference}) {
    if (ormelix::IsServerLocation(path)) continue;
    if (KindAt(path) != std::filesystem::file_type::not_found)
      throw UsageError("'" + Shown(path) + "' exists already; init creates new stores and overwrites nothing");
    std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!folder.empty() && KindAt(folder) != std::filesystem::file_type::directory)
      throw UsageError("no folder '" + Shown(folder) + "' for '" + Shown(path) + "'; init makes no folders");
    RequireWritableFolder(folder);
  }
  ormelix::CreateStore(*payroll, ormelix::StoreKind::Payroll);
  try {
    ormelix::CreateStore(*reference, ormelix::StoreKind::Reference);
  } catch (...) {
    if (!ormelix::IsServerLocation(*payroll)) std::filesystem::remove(*payroll);
    throw;
  }
  std::cout << "created payroll store " << ormelix::ShownLocation(*payroll) << " and reference store "
            << ormelix::ShownLocation(*reference) << "\n";
  return 0;
}

}  // namespace cli
