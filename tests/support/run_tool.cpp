#include "run_tool.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace ormelix::test {

namespace {

std::string Quote(const std::string& word) {
  std::string out = "'";
  for (char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

ToolRun Run(const std::string& prefix, const std::vector<std::string>& args, const std::string& folder) {
  static int counter = 0;
  std::filesystem::path base = std::filesystem::temp_directory_path() /
                               ("ormelix-tool-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
  std::string command = "cd " + Quote(folder) + " && " + prefix + Quote(ORMELIX_TOOL_PATH);
  for (const std::string& arg : args) command += " " + Quote(arg);
  command += " >" + Quote(base.string() + ".out") + " 2>" + Quote(base.string() + ".err") + " </dev/null";
  int raw = std::system(command.c_str());
  ToolRun run;
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  run.out = ReadFile(base.string() + ".out");
  run.err = ReadFile(base.string() + ".err");
  std::filesystem::remove(base.string() + ".out");
  std::filesystem::remove(base.string() + ".err");
  return run;
}

}  // namespace

ToolRun RunTool(const std::vector<std::string>& args, const std::string& folder) { return Run("", args, folder); }

std::optional<ToolRun> RunToolUnprivileged(const std::vector<std::string>& args, const std::string& folder,
                                           std::string& why_not) {
  if (::geteuid() != 0) return Run("", args, folder);
  if (std::system("command -v setpriv >/dev/null 2>&1") != 0) {
    why_not = "the tests run as root and setpriv (util-linux) is not installed, so no unprivileged user can be taken";
    return std::nullopt;
  }
  return Run("setpriv --reuid=65534 --regid=65534 --clear-groups ", args, folder);
}

}  // namespace ormelix::test
