#include "maintenance.h"

#include <chrono>
#include <filesystem>
#include <thread>

#include "../private_file.h"
#include "handles.h"
#include "ormelix/error.h"

namespace ormelix::detail::sqlite {

namespace {

std::string Text(sqlite3_stmt* stmt, int column) {
  const unsigned char* text = sqlite3_column_text(stmt, column);
  return text ? reinterpret_cast<const char*>(text) : "";
}

// Each row of a PRAGMA as the texts of its columns.
std::vector<std::vector<std::string>> Rows(sqlite3* db, const char* sql) {
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &raw, nullptr) != SQLITE_OK)
    throw StoreError("statement refused by the store", sql, sqlite3_errmsg(db), sqlite3_extended_errcode(db));
  StatementHandle stmt(raw);
  std::vector<std::vector<std::string>> rows;
  int rc;
  while ((rc = sqlite3_step(stmt.get())) == SQLITE_ROW) {
    std::vector<std::string>& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(stmt.get()); ++i) row.push_back(Text(stmt.get(), i));
  }
  if (rc != SQLITE_DONE)
    throw StoreError("statement refused by the store", sql, sqlite3_errmsg(db), sqlite3_extended_errcode(db));
  return rows;
}

}  // namespace

std::vector<std::string> IntegrityProblems(sqlite3* db) {
  std::vector<std::string> problems;
  for (const auto& row : Rows(db, "PRAGMA integrity_check(100)"))
    if (!row.empty() && row[0] != "ok") problems.push_back("integrity_check: " + row[0]);
  // table, rowid, parent table, number of the reference
  for (const auto& row : Rows(db, "PRAGMA foreign_key_check"))
    if (row.size() >= 3)
      problems.push_back("foreign_key_check: the row " + row[1] + " of " + row[0] + " refers to no row of " + row[2]);
  return problems;
}

void Backup(sqlite3* source, const std::string& file) {
  CreatePrivateFile(file);
  sqlite3* raw = nullptr;
  int rc = sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  DatabaseHandle target(raw);
  std::string message;
  if (rc == SQLITE_OK) {
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source, "main");
    if (!backup) {
      rc = sqlite3_errcode(target.get());
    } else {
      // The whole store in one step, so that it is one state of it. A writer that
      // holds a lock SQLite cannot read past is waited for a little.
      for (int attempt = 0; attempt < 100; ++attempt) {
        rc = sqlite3_backup_step(backup, -1);
        if (rc != SQLITE_BUSY && rc != SQLITE_LOCKED) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
      int finished = sqlite3_backup_finish(backup);
      if (rc == SQLITE_DONE) rc = finished;
    }
    if (rc != SQLITE_OK) message = sqlite3_errmsg(target.get());
  }
  if (rc == SQLITE_OK) return;
  if (message.empty()) message = sqlite3_errstr(rc);
  target.Reset();
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  throw StoreError("cannot make the backup", file, message, rc);
}

}  // namespace ormelix::detail::sqlite
