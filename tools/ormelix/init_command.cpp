#include <cstdio>
#include <filesystem>
#include <iostream>

#include "commands.h"
#include "paths.h"
#include "ormelix/store/schema.h"

namespace cli {

const char* const kInitHelp =
    "usage: ormelix init PAYROLL REFERENCE\n"
    "  Creates an empty payroll store and an empty reference store (SQLite files) from the\n"
    "  schema that ships with the library. Neither file may exist.\n";

int Init(Arguments args) {
  std::optional<std::string> payroll = args.TakePositional();
  std::optional<std::string> reference = args.TakePositional();
  args.ExpectEnd("ormelix init PAYROLL REFERENCE");
  if (!payroll || !reference) throw UsageError("init needs two files: ormelix init PAYROLL REFERENCE");
  for (const std::string& path : {*payroll, *reference}) {
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
    std::filesystem::remove(*payroll);
    throw;
  }
  std::cout << "created payroll store " << *payroll << " and reference store " << *reference << "\n";
  return 0;
}

}  // namespace cli
