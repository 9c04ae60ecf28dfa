#include "old_store.h"

#include <sqlite3.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace ormelix::test {

namespace {

struct Raw {
  sqlite3* db = nullptr;
  explicit Raw(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
      throw std::runtime_error("cannot open " + path);
  }
  ~Raw() { sqlite3_close(db); }
  void Run(const std::string& sql) {
    char* error = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
      std::string message = error ? error : "";
      sqlite3_free(error);
      throw std::runtime_error(message + " in: " + sql);
    }
  }
};

}  // namespace

void MakeOldStore(const std::string& path, StoreKind kind) {
  std::string file = std::string(ORMELIX_TEST_DATA_DIR) +
                     (kind == StoreKind::Payroll ? "/payroll_store_v0.sql" : "/reference_store_v0.sql");
  std::ifstream in(file);
  if (!in) throw std::runtime_error("cannot read " + file);
  std::stringstream ddl;
  ddl << in.rdbuf();
  Raw raw(path);
  raw.Run("BEGIN;\n" + ddl.str() + "\nCOMMIT;");
}

void RunRawSql(const std::string& path, const std::string& sql) { Raw(path).Run(sql); }

int UserVersion(const std::string& path) {
  Raw raw(path);
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(raw.db, "PRAGMA user_version", -1, &stmt, nullptr);
  int version = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : -1;
  sqlite3_finalize(stmt);
  return version;
}

}  // namespace ormelix::test
