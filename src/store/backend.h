// The narrow interface a store backend implements. The recordset, the filter and
// the helpers are written against it; SQLite is the first backend.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ormelix/store/variant.h"
#include "sql_dialect.h"

namespace ormelix::detail {

enum class Affinity { Text, Integer, Real, Any };

struct ColumnInfo {
  std::string name;   // as the statement names it (alias or column)
  std::string table;  // the table it comes from, "" for an expression
  Affinity affinity = Affinity::Any;
};

struct QueryResult {
  std::vector<ColumnInfo> columns;
  std::vector<Variant> cells;  // row-major, columns.size() per row
};

// The column every writable table carries to tell its rows apart.
inline constexpr const char* kRowKeyColumn = "Nr";

class Backend {
 public:
  virtual ~Backend() = default;

  // Opens an existing store, or with create a new, empty one (which must not exist).
  virtual void Open(const std::string& path, const std::string& connect, bool create = false) = 0;
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;
  virtual std::string Path() const = 0;
  virtual std::string Connect() const = 0;

  // Runs a SELECT in the domain's dialect and fetches all its rows.
  virtual QueryResult Query(std::string_view jet_sql) = 0;
  // Runs an action statement in the domain's dialect; gives the rows it touched.
  virtual long Execute(std::string_view jet_sql) = 0;

  // Runs statements of the backend's own dialect, as they stand (schema creation).
  virtual void ExecuteNative(const std::string& script) = 0;

  // Writes for updatable recordsets. InsertRow gives the stored row as
  // "SELECT * FROM table" shows it (with the key and defaults the store filled).
  virtual QueryResult InsertRow(const std::string& table, const std::vector<std::string>& columns,
                                const std::vector<Variant>& values) = 0;
  virtual void UpdateRow(const std::string& table, const Variant& row_key, const std::vector<std::string>& columns,
                         const std::vector<Variant>& values) = 0;
  virtual void DeleteRow(const std::string& table, const Variant& row_key) = 0;

  // The value as the store would hand it back from a column of that affinity.
  virtual Variant Normalize(const Variant& value, Affinity affinity) const = 0;

  // Translation of the domain's SQL, cached per distinct text.
  const TranslatedSql& Translate(std::string_view jet_sql);

 protected:
  explicit Backend(SqlDialect dialect) : dialect_(dialect) {}

 private:
  SqlDialect dialect_;
  std::unordered_map<std::string, TranslatedSql> translations_;
};

std::shared_ptr<Backend> MakeSqliteBackend();

}  // namespace ormelix::detail
