// ormelix: the command-line host of the library.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/store/schema.h"

namespace {

const char* kUsage =
    "usage: ormelix COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  init PAYROLL REFERENCE   create an empty payroll store and an empty reference store\n"
    "  demo [DIR]               create the demo stores in DIR (default: a fresh folder)\n"
    "  --help                   this text\n";

int Init(const std::vector<std::string>& args) {
  if (args.size() != 2 || args[0] == "--help") {
    std::cerr << "usage: ormelix init PAYROLL REFERENCE\n"
                 "  Creates the two SQLite stores from the shipped schema; neither file may exist.\n";
    return args.size() == 1 && args[0] == "--help" ? 0 : 2;
  }
  ormelix::CreateStore(args[0], ormelix::StoreKind::Payroll);
  try {
    ormelix::CreateStore(args[1], ormelix::StoreKind::Reference);
  } catch (...) {
    std::remove(args[0].c_str());
    throw;
  }
  std::cout << "created payroll store " << args[0] << " and reference store " << args[1] << "\n";
  return 0;
}

int Demo(const std::vector<std::string>& args) {
  std::string dir = args.empty() ? "ormelix-demo" : args[0];
  if (!args.empty() && args[0] == "--help") {
    std::cout << "usage: ormelix demo [DIR]\n  Creates a demo payroll store and reference store in DIR.\n";
    return 0;
  }
  if (args.empty()) {
    for (int n = 2; std::filesystem::exists(dir); ++n) dir = "ormelix-demo-" + std::to_string(n);
  }
  std::filesystem::create_directories(dir);
  std::vector<std::string> paths = {(std::filesystem::path(dir) / "payroll.db").string(),
                                    (std::filesystem::path(dir) / "reference.db").string()};
  return Init(paths);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty() || args[0] == "--help" || args[0] == "-h") {
    std::cout << kUsage;
    return args.empty() ? 2 : 0;
  }
  std::string command = args[0];
  args.erase(args.begin());
  try {
    if (command == "init") return Init(args);
    if (command == "demo") return Demo(args);
    std::cerr << "ormelix: unknown command '" << command << "'; expected one of: init, demo (see ormelix --help)\n";
    return 2;
  } catch (const ormelix::StoreError& error) {
    std::cerr << "ormelix: " << error.what() << "\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "ormelix: " << error.what() << "\n";
    return 1;
  }
}
