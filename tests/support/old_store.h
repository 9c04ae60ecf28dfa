// Stores in the layout the library made before text columns declared the text
// order (user_version 0), written with SQLite directly, as an older library left
// them on disk.
#pragma once

#include <string>

#include "ormelix/store/schema.h"

namespace ormelix::test {

// Creates the store at path from the kept DDL of that layout.
void MakeOldStore(const std::string& path, StoreKind kind = StoreKind::Payroll);
// Runs SQL of SQLite's own dialect on the file, with no text order registered
// (as the older library did).
void RunRawSql(const std::string& path, const std::string& sql);
// The store's user_version.
int UserVersion(const std::string& path);

}  // namespace ormelix::test
