// A connection of SQLite's own to a store file, beside the library's: another
// program that holds a lock, changes the layout as an older library left it, or
// checks the file. The store's text order is registered on it.
#pragma once

#include <string>

struct sqlite3;

namespace ormelix::test {

class RawConnection {
 public:
  explicit RawConnection(const std::string& path);
  ~RawConnection();
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  // Runs statements; std::runtime_error with SQLite's message on failure.
  void Run(const std::string& sql);
  // The first column of the first row as text ("" for none).
  std::string Text(const std::string& sql);
  void Close();

 private:
  sqlite3* db_ = nullptr;
};

}  // namespace ormelix::test
