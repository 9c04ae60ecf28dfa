// Move-only owners of SQLite's C handles; nothing of sqlite3.h leaves src/store/sqlite.
#pragma once

#include <sqlite3.h>

#include <utility>

namespace ormelix::detail::sqlite {

class DatabaseHandle {
 public:
  DatabaseHandle() = default;
  explicit DatabaseHandle(sqlite3* db) : db_(db) {}
  ~DatabaseHandle() { Reset(); }
  DatabaseHandle(DatabaseHandle&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}
  DatabaseHandle& operator=(DatabaseHandle&& other) noexcept {
    if (this != &other) {
      Reset();
      db_ = std::exchange(other.db_, nullptr);
    }
    return *this;
  }
  DatabaseHandle(const DatabaseHandle&) = delete;
  DatabaseHandle& operator=(const DatabaseHandle&) = delete;

  sqlite3* get() const { return db_; }
  explicit operator bool() const { return db_ != nullptr; }
  void Reset() {
    if (db_) sqlite3_close_v2(db_);
    db_ = nullptr;
  }

 private:
  sqlite3* db_ = nullptr;
};

class StatementHandle {
 public:
  StatementHandle() = default;
  explicit StatementHandle(sqlite3_stmt* stmt) : stmt_(stmt) {}
  ~StatementHandle() {
    if (stmt_) sqlite3_finalize(stmt_);
  }
  StatementHandle(StatementHandle&& other) noexcept : stmt_(std::exchange(other.stmt_, nullptr)) {}
  StatementHandle& operator=(StatementHandle&& other) noexcept {
    if (this != &other) {
      if (stmt_) sqlite3_finalize(stmt_);
      stmt_ = std::exchange(other.stmt_, nullptr);
    }
    return *this;
  }
  StatementHandle(const StatementHandle&) = delete;
  StatementHandle& operator=(const StatementHandle&) = delete;

  sqlite3_stmt* get() const { return stmt_; }

 private:
  sqlite3_stmt* stmt_ = nullptr;
};

}  // namespace ormelix::detail::sqlite
