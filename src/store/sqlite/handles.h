// Owners of SQLite's C handles; nothing of sqlite3.h leaves src/store/sqlite.
#pragma once

#include <sqlite3.h>

#include "../unique_handle.h"

namespace ormelix::detail::sqlite {

using DatabaseHandle = UniqueHandle<sqlite3, sqlite3_close_v2>;
using StatementHandle = UniqueHandle<sqlite3_stmt, sqlite3_finalize>;

}  // namespace ormelix::detail::sqlite
