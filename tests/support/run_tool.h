// Runs the ormelix binary of this build and captures what it says.
#pragma once

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

}  // namespace ormelix::test
