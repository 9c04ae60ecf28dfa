// The commands of ormelix. Each takes the words after its name and gives the exit
// status; bad input is a cli::UsageError (exit 2).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli.h"
#include "ormelix/session/manager.h"

namespace cli {

int Init(Arguments args);
int Demo(Arguments args);
int Show(Arguments args);

extern const char* const kInitHelp;
extern const char* const kDemoHelp;
extern const char* const kShowHelp;

// A session on a payroll store (and the reference store beside it, if there is
// one), opened read-only. `where` is the payroll file or the folder that holds
// payroll.db. A missing path is a UsageError; a file that is no store a StoreError.
std::shared_ptr<ormelix::clsManager> OpenStores(const std::string& where, bool read_only);

}  // namespace cli
