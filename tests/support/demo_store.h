// The demo stores of the ormelix program, for the command-line tests: built once
// per test program on first use (in a folder removed at its end), what the demo
// printed, and ormelix show run on them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/json_reader.h"
#include "support/run_tool.h"

namespace ormelix::test {

class DemoStoreTest : public ::testing::Test {
 protected:
  // The folder in which the demo was run; its stores lie in "store" below it.
  static const std::filesystem::path& DemoDir();
  // What ormelix demo printed and returned.
  static const ToolRun& Demo();
  // The folder of the demo's stores (on PostgreSQL its connection string), as
  // --store takes it.
  static std::string Store();
  // ormelix show --store STORE ARGS.
  static ToolRun Show(std::vector<std::string> args);
  // The same with --json: expects success and parses the output strictly (a key
  // twice in one object fails the parse).
  static JsonValue ShowJson(std::vector<std::string> args);
  // ormelix show month of an employee (ID or Personalnummer) and period, expecting
  // success; as text or as parsed JSON.
  static ToolRun Month(const std::string& employee, const std::string& period, bool json);
  static JsonValue MonthJson(const std::string& employee, const std::string& period);
};

}  // namespace ormelix::test
