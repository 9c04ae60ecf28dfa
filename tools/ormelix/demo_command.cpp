// ormelix demo: builds a demo payroll store through the library's object model and
// walks one employee's month through it, the way a host does.
#include <ctime>
#include <filesystem>
#include <iostream>

#include "commands.h"
#include "common/paths.h"
#include "common/stores.h"
#include "demo/demo.h"
#include "ormelix/store/location.h"
#include "ormelix/store/schema.h"

namespace cli {

const char* const kDemoHelp =
    "usage: ormelix demo [DIR] [--employees N]\n"
    "  Builds a demo payroll store and reference store in DIR (default: a fresh folder\n"
    "  ormelix-demo-YYYYMMDD-HHMMSS in the current folder; or a PostgreSQL connection\n"
    "  string, postgres://user@host:port/db or 'host=... dbname=...', for the payroll\n"
    "  store in that database and the reference store in its schema reference, the\n"
    "  database made if it is missing) through the library's own\n"
    "  objects: a Standard folder of base values with dated tables of 2024 and 2025\n"
    "  carrying Austrian statutory figures, a restore folder, one employer with its bank,\n"
    "  authorities, year data, contribution accounts and document protection, five\n"
    "  employees with their careers, children (family bonus and sole-earner entitlements\n"
    "  over 2024 and 2025) and pay months of 2024 and 2025 (wage-type lines, a transfer,\n"
    "  a short-time month, a replacement benefit, a company car and a flat as benefits in\n"
    "  kind), and the reference catalogues (municipalities, provision funds, exit reasons,\n"
    "  countries). Then it walks one employee's month the way a payroll host does, with\n"
    "  the short-time figures and the children of that month, and prints it. DIR must not hold\n"
    "  stores already.\n"
    "  --employees N   N employees instead of five (5 to 30000): the five named ones and\n"
    "                  generated ones, for a store of some size\n";

namespace {

std::filesystem::path FreshFolder() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &local);
  std::filesystem::path folder = std::string("ormelix-demo-") + stamp;
  for (int n = 2; std::filesystem::exists(folder); ++n)
    folder = std::string("ormelix-demo-") + stamp + "-" + std::to_string(n);
  return folder;
}

}  // namespace

int Demo(Arguments args) {
  std::optional<std::string> count = args.TakeOption("employees");
  std::optional<std::string> dir = args.TakePositional();
  args.ExpectEnd("ormelix demo [DIR] [--employees N]");
  int employees = 5;
  if (count) {
    try {
      std::size_t used = 0;
      employees = std::stoi(*count, &used);
      if (used != count->size()) throw std::invalid_argument(*count);
    } catch (const std::exception&) {
      employees = 0;
    }
    if (employees < 5 || employees > 30000)
      throw UsageError("--employees '" + *count + "' is not a number from 5 to 30000");
  }
  std::string where;
  if (dir && ormelix::IsServerLocation(*dir)) {
    where = *dir;
    StoreLocations stores = LocateStores(where);
    ormelix::CreateStore(stores.payroll, ormelix::StoreKind::Payroll);
    ormelix::CreateStore(stores.reference, ormelix::StoreKind::Reference);
    std::cout << "Demo stores in " << ormelix::ShownLocation(stores.payroll) << " (reference store in schema "
              << ormelix::LocationParameter(stores.reference, "schema") << ")\n";
  } else {
    std::filesystem::path folder = dir ? std::filesystem::path(*dir) : FreshFolder();
    std::filesystem::path payroll = folder / "payroll.db";
    std::filesystem::path reference = folder / "reference.db";
    MakeFolder(folder);
    for (const auto& path : {payroll, reference})
      if (KindAt(path) != std::filesystem::file_type::not_found)
        throw UsageError("'" + Shown(path) + "' exists already; expected a folder without stores (or none)");
    RequireWritableFolder(folder);
    ormelix::CreateStore(payroll.string(), ormelix::StoreKind::Payroll);
    ormelix::CreateStore(reference.string(), ormelix::StoreKind::Reference);
    where = folder.string();
    std::cout << "Demo stores in " << where << "/\n";
  }

  {
    auto builder = OpenStores(where, /*read_only=*/false);
    BuildDemo(*builder, employees - 5, std::cout);
  }
  // The walk takes a session of its own, as a host would, on what was stored.
  auto reader = OpenStores(where, /*read_only=*/true);
  WalkDemoMonth(*reader, std::cout);
  std::string store = ormelix::ShownLocation(where);
  if (store.find(' ') != std::string::npos) store = "'" + store + "'";
  std::cout << "\nLook further (each also with --json):\n"
            << "  ormelix show --store " << store << " employers\n"
            << "  ormelix show --store " << store << " employees --year 2025 --sort name\n"
            << "  ormelix show --store " << store << " base --period 202503\n"
            << "  ormelix show --store " << store << " month --employee 1001 --period 202503\n"
            << "  ormelix show --store " << store << " month --employee 1003 --period 202503\n"
            << "  ormelix show --store " << store << " month --employee 1002 --period 202503   (short-time work)\n"
            << "  ormelix show --store " << store << " month --employee 1004 --period 202503   (benefits in kind)\n"
            << "  ormelix show --store " << store << " month --employee 1005 --period 202412   (replacement benefit)\n"
            << "  ormelix show --store " << store << " countries --period 202003\n"
            << "  ormelix show --store " << store << " career --employee 1002 --year 2024\n"
            << "  ormelix show --store " << store << " l16 --employee 1001 --year 2025\n";
  return 0;
}

}  // namespace cli
