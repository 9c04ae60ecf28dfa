// Files that hold a store's data (a store, its backup, its exported tables) are
// made readable and writable by their owner only: they hold salaries, social-
// security numbers, bank accounts and children. SQLite gives a store's side files
// (-wal, -shm, -journal) the mode of the store file, so they follow.
#pragma once

#include <string>

namespace ormelix::detail {

// The mode of every file the library makes for a store's data.
inline constexpr unsigned kPrivateFileMode = 0600;

// Makes a new, empty file of mode 0600, whatever the umask. StoreError naming the
// path when something lies there already or the file cannot be made.
void CreatePrivateFile(const std::string& path);

}  // namespace ormelix::detail
