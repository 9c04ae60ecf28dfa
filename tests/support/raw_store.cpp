#include "raw_store.h"

#include <sqlite3.h>

#include <stdexcept>

#include "ormelix/store/sqlite_text.h"

namespace ormelix::test {

RawConnection::RawConnection(const std::string& path) {
  if (sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    std::string message = db_ ? sqlite3_errmsg(db_) : "out of memory";
    sqlite3_close(db_);
    throw std::runtime_error("cannot open " + path + ": " + message);
  }
  RegisterSqliteText(db_);
}

RawConnection::~RawConnection() { Close(); }

void RawConnection::Close() {
  if (db_) sqlite3_close(db_);
  db_ = nullptr;
}

void RawConnection::Run(const std::string& sql) {
  char* error = nullptr;
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    std::string message = error ? error : sqlite3_errmsg(db_);
    sqlite3_free(error);
    throw std::runtime_error(message + " in: " + sql);
  }
}

std::string RawConnection::Text(const std::string& sql) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK)
    throw std::runtime_error(std::string(sqlite3_errmsg(db_)) + " in: " + sql);
  std::string text;
  if (sqlite3_step(stmt) == SQLITE_ROW && sqlite3_column_text(stmt, 0))
    text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
  sqlite3_finalize(stmt);
  return text;
}

}  // namespace ormelix::test
