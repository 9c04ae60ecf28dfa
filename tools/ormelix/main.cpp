// ormelix: the command-line host of the library.
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"
#include "common/paths.h"
#include "ormelix/error.h"
#include "ormelix/session/messages.h"

namespace {

const char* const kUsage =
    "usage: ormelix COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  init PAYROLL REFERENCE   create an empty payroll store and an empty reference store\n"
    "  demo [DIR]               build a demo store with Austrian figures of 2024 and 2025 and\n"
    "                           walk one employee's month through it\n"
    "  show [--store PATH] WHAT show a store read-only: employers, employees, base, month,\n"
    "                           career, l16, countries\n"
    "  copy SRC DST             copy a store from SQLite to PostgreSQL or back\n"
    "  export STORE DIR         write every table to a CSV (or JSON) file of its own\n"
    "  import DIR STORE         read such files (or mdb-export's CSV) into a store\n"
    "  backup STORE FILE        a consistent copy of a live SQLite store, verified\n"
    "  check STORE              the store's integrity and the soundness of its rows\n"
    "\n"
    "ormelix COMMAND --help describes a command and its options; ormelix --version names\n"
    "the version. Bad input gives one line on standard error and exit status 2.\n";

struct Command {
  const char* name;
  int (*run)(cli::Arguments);
  const char* help;
};

const Command kCommands[] = {
    {"init", cli::Init, cli::kInitHelp},
    {"demo", cli::Demo, cli::kDemoHelp},
    {"show", cli::Show, cli::kShowHelp},
    {"copy", cli::Copy, cli::kCopyHelp},
    {"export", cli::Export, cli::kExportHelp},
    {"import", cli::Import, cli::kImportHelp},
    {"backup", cli::Backup, cli::kBackupHelp},
    {"check", cli::Check, cli::kCheckHelp},
};

void Fail(const std::string& command, std::string message) {
  for (char& c : message)
    if (c == '\n' || c == '\r') c = ' ';
  std::cerr << "ormelix " << command << ": " << message << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty()) {
    std::cerr << kUsage;
    return 2;
  }
  if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
    std::cout << kUsage;
    return 0;
  }
  if (words[0] == "--version" || words[0] == "version") {
    if (words.size() > 1) {
      Fail(words[0], "takes no arguments; unexpected '" + words[1] + "'");
      return 2;
    }
    std::cout << "ormelix (OrmelixCore) " ORMELIX_VERSION "\n";
    return 0;
  }
  ormelix::SetMessageSink([](const std::string& message) {
    std::string line = message;
    for (char& c : line)
      if (c == '\n') c = ' ';
    std::cerr << "ormelix: " << line << "\n";
  });
  std::string name = words[0];
  cli::Arguments args(std::vector<std::string>(words.begin() + 1, words.end()));
  for (const Command& command : kCommands) {
    if (name != command.name) continue;
    if (args.Help()) {
      std::cout << command.help;
      return 0;
    }
    // Whatever stops a command (bad input, a store that cannot be read, a stored
    // value that is no value of its column) is one line and exit status 2.
    try {
      return command.run(std::move(args));
    } catch (const std::filesystem::filesystem_error& error) {
      Fail(name, "cannot use '" + cli::Shown(error.path1()) + "': " + error.code().message());
    } catch (const std::exception& error) {
      Fail(name, error.what());
    }
    return 2;
  }
  std::cerr << "ormelix: unknown command '" << name << "'; expected init, demo, show, copy, export, import, backup or check (see ormelix --help)\n";
  return 2;
}
