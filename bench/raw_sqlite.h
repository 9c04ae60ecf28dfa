// What the benchmarks' raw sqlite3 baselines share: filling a table with generated
// rows, prepared statements bound per key, and rows read whole into plain structs.
#pragma once

#include <sqlite3.h>

#include <map>
#include <string>
#include <vector>

#include "ormelix/store/value_helpers.h"
#include "ormelix/store/variant.h"

namespace bench {

using ormelix::Variant;

struct Column {
  std::string name;
  bool text;
  bool integer;  // a whole-number column: PostgreSQL keeps no fraction there
};

inline std::vector<Column> Columns(sqlite3* db, const std::string& table) {
  std::vector<Column> columns;
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db, ("PRAGMA table_info(\"" + table + "\")").c_str(), -1, &stmt, nullptr);
  while (sqlite3_step(stmt) == SQLITE_ROW) {
    std::string name = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1));
    std::string type = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 2));
    columns.push_back({name, type == "TEXT", type.find("INT") != std::string::npos || type == "BOOLEAN"});
  }
  sqlite3_finalize(stmt);
  return columns;
}

// Inserts rows into a table, setting every column but Nr: the given values by name,
// a fresh ID where none is given, every other column a value made from the row
// number.
class Inserter {
 public:
  Inserter(sqlite3* db, const std::string& table) : columns_(Columns(db, table)) {
    std::string names, marks;
    for (const Column& column : columns_) {
      if (column.name == "Nr") continue;
      names += (names.empty() ? "\"" : ",\"") + column.name + "\"";
      marks += marks.empty() ? "?" : ",?";
      used_.push_back(column);
    }
    sqlite3_prepare_v2(db, ("INSERT INTO \"" + table + "\" (" + names + ") VALUES (" + marks + ")").c_str(), -1,
                       &stmt_, nullptr);
  }
  ~Inserter() { sqlite3_finalize(stmt_); }

  void Insert(int row, const std::map<std::string, Variant>& given) {
    for (std::size_t i = 0; i < used_.size(); ++i) {
      int slot = static_cast<int>(i) + 1;
      auto found = given.find(used_[i].name);
      if (found == given.end() && used_[i].name == "ID") {
        sqlite3_bind_text(stmt_, slot, ormelix::ValueHelpers::NewID().c_str(), -1, SQLITE_TRANSIENT);
      } else if (found != given.end() && found->second.IsNull()) {
        sqlite3_bind_null(stmt_, slot);
      } else if (found != given.end() && found->second.IsText()) {
        sqlite3_bind_text(stmt_, slot, found->second.AsText().c_str(), -1, SQLITE_TRANSIENT);
      } else if (found != given.end()) {
        double number = 0;
        found->second.TryNumber(number);
        sqlite3_bind_double(stmt_, slot, number);
      } else if (used_[i].text) {
        sqlite3_bind_text(stmt_, slot, ("Text " + std::to_string(row % 97)).c_str(), -1, SQLITE_TRANSIENT);
      } else if (used_[i].integer) {
        sqlite3_bind_int(stmt_, slot, (row % 7 == 0) ? -1 : row % 1000 + static_cast<int>(i % 5));
      } else {
        sqlite3_bind_double(stmt_, slot, (row % 7 == 0) ? -1 : (row % 1000) * 0.25 + static_cast<double>(i % 5));
      }
    }
    sqlite3_step(stmt_);
    sqlite3_reset(stmt_);
  }

 private:
  std::vector<Column> columns_;
  std::vector<Column> used_;
  sqlite3_stmt* stmt_ = nullptr;
};

struct RawRow {
  std::vector<double> numbers;
  std::vector<std::string> texts;
};

class Statement {
 public:
  Statement(sqlite3* db, const char* sql) { sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr); }
  ~Statement() { sqlite3_finalize(stmt_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  sqlite3_stmt* get() const { return stmt_; }
  void Bind(const std::string& text) {
    sqlite3_reset(stmt_);
    sqlite3_bind_text(stmt_, 1, text.c_str(), static_cast<int>(text.size()), SQLITE_STATIC);
  }

 private:
  sqlite3_stmt* stmt_ = nullptr;
};

// Every column of the current row: texts as strings, everything else as a number.
inline void ReadRow(sqlite3_stmt* stmt, RawRow& row) {
  row.numbers.clear();
  row.texts.clear();
  for (int i = 0; i < sqlite3_column_count(stmt); ++i) {
    if (sqlite3_column_type(stmt, i) == SQLITE_TEXT)
      row.texts.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)));
    else
      row.numbers.push_back(sqlite3_column_double(stmt, i));
  }
}

}  // namespace bench
