// Runs the ormelix binary of this build and captures what it says.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ormelix::test {

struct ToolRun {
  int status = -1;
  std::string out;
  std::string err;
};

// Runs ormelix with the arguments (each passed as one word) in the folder.
ToolRun RunTool(const std::vector<std::string>& args, const std::string& folder = ".");

// The same as a user without privileges (nobody), so that permissions count:
// when the tests run as root, through setpriv. Empty when that cannot be done
// (root without setpriv), with the reason in `why_not`.
std::optional<ToolRun> RunToolUnprivileged(const std::vector<std::string>& args, const std::string& folder,
                                           std::string& why_not);

}  // namespace ormelix::test
