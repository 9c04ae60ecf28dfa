#include "ormelix/store/check.h"

#include <sys/stat.h>

#include <cstdio>
#include <unordered_map>
#include <unordered_set>

#include "ormelix/error.h"
#include "ormelix/store/column_values.h"
#include "ormelix/text.h"
#include "table_walk.h"

namespace ormelix {

namespace {

using detail::Backend;
using detail::TableRows;

// The columns that name the row a row belongs to: without it, the row has no
// meaning (and no load ever reads it again).
struct Owner {
  const char* column;
  const char* table;
  const char* what;
};
constexpr Owner kOwners[] = {
    {"MandantenID", "Mandanten", "employer"},
    {"MitarbeiterID", "Mitarbeiter", "employee"},
    {"LohnzettelID", "Mitarbeiter_Lohnzettel", "pay record"},
    {"KID", "Mitarbeiter_Kinder", "child"},
};

class Checker {
 public:
  Checker(Backend& backend, StoreCheck& check) : backend_(backend), check_(check) {}

  void Add(CheckFinding finding) {
    if (check_.findings.size() < StoreCheck::kMaxFindings) check_.findings.push_back(std::move(finding));
    else ++check_.more;
  }

  // The tables the schema has, with their columns; false for a table missing.
  bool SchemaOf(const SchemaTable& table) {
    std::shared_ptr<const detail::ColumnLayout> layout;
    try {
      layout = backend_.Describe("SELECT * FROM [" + table.name + "]");
    } catch (const StoreError& error) {
      Add({"schema", table.name, "", "", "the table is missing (" + error.BackendMessage() + ")"});
      return false;
    }
    for (const std::string& name : detail::WalkedColumns(table))
      if (layout->Lookup(name) < 0) Add({"schema", table.name, "", name, "the column is missing"});
    return true;
  }

  void OwnerIds(const std::vector<const SchemaTable*>& present) {
    for (const Owner& owner : kOwners)
      for (const SchemaTable* table : present)
        if (table->name == owner.table) {
          std::unordered_set<std::string>& ids = owners_[owner.table];
          for (const Variant& id : backend_.Query("SELECT [ID] FROM [" + table->name + "]").cells)
            ids.insert(detail::KeyText(id));
        }
  }

  void Rows(const TableRows& rows) {
    std::vector<SchemaColumn> columns;
    for (const std::string& name : rows.names) columns.push_back(detail::WalkedColumn(rows.table, name));
    for (std::size_t row = 0; row < rows.Rows(); ++row)
      for (std::size_t i = 0; i < columns.size(); ++i) {
        std::string problem = ColumnValueProblem(columns[i], rows.Cell(row, i));
        if (!problem.empty()) Add({"range", rows.table.name, rows.RowName(row), columns[i].name, problem});
      }
    Owners(rows);
    Keys(rows);
  }

 private:
  void Owners(const TableRows& rows) {
    for (const Owner& owner : kOwners) {
      auto ids = owners_.find(owner.table);
      int column = -1;
      for (std::size_t i = 0; i < rows.names.size(); ++i)
        if (rows.names[i] == owner.column) column = static_cast<int>(i);
      if (ids == owners_.end() || column < 0 || rows.table.name == owner.table) continue;
      for (std::size_t row = 0; row < rows.Rows(); ++row) {
        const Variant& id = rows.Cell(row, static_cast<std::size_t>(column));
        if (id.IsText() && !id.AsText().empty() && ids->second.count(detail::KeyText(id))) continue;
        std::string what = id.IsMissing() || (id.IsText() && id.AsText().empty())
                               ? std::string("the row has no ") + owner.what + " (" + owner.column + " is empty)"
                               : std::string("the row's ") + owner.what + " " + id.Describe() + " is not in " + owner.table;
        Add({"owner", rows.table.name, rows.RowName(row), owner.column, what});
      }
    }
  }

  void Keys(const TableRows& rows) {
    for (const SchemaIndex& index : rows.table.indexes) {
      if (!index.unique) continue;
      std::vector<std::size_t> at;
      for (const std::string& column : index.columns)
        for (std::size_t i = 0; i < rows.names.size(); ++i)
          if (rows.names[i] == column) at.push_back(i);
      auto cell = [&](std::size_t row, std::size_t column) -> const Variant& { return rows.Cell(row, column); };
      for (const detail::RepeatedKey& repeat : detail::RepeatedKeys(rows.Rows(), at, cell)) {
        std::string key;
        for (std::size_t i = 0; i < at.size(); ++i)
          key += (i ? ", " : "") + index.columns[i] + " " + rows.Cell(repeat.row, at[i]).Describe();
        Add({"key", rows.table.name, rows.RowName(repeat.row), "",
             "a second row for " + key + " (the first is " + rows.RowName(repeat.first) +
                 "); the table holds one row per key"});
      }
    }
  }

  Backend& backend_;
  StoreCheck& check_;
  std::unordered_map<std::string, std::unordered_set<std::string>> owners_;
};

// A store file (and its side files) whose mode lets others than its owner and
// its group read or write it: one finding that names each such file.
void CheckAccess(const std::string& path, Checker& checker) {
  std::string open;
  for (const char* side : {"", "-wal", "-shm", "-journal"}) {
    struct stat status {};
    std::string file = path + side;
    if (::stat(file.c_str(), &status) != 0 || (status.st_mode & (S_IROTH | S_IWOTH)) == 0) continue;
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", static_cast<unsigned>(status.st_mode & 07777));
    open += (open.empty() ? "" : ", ") + file + " (mode " + mode + ")";
  }
  if (!open.empty())
    checker.Add({"access", "", "", "",
                 "others may read " + open + ", which hold salaries, bank accounts and children; chmod o-rwx "
                 "them (600 for the owner alone, 660 for a group of clerks)"});
}

}  // namespace

StoreCheck CheckStore(const StoreConnectionPtr& store, StoreKind kind) {
  std::shared_ptr<Backend> backend = detail::BackendOf(store->Session());
  StoreCheck check;
  Checker checker(*backend, check);
  for (const std::string& problem : backend->IntegrityProblems()) checker.Add({"integrity", "", "", "", problem});
  if (backend->Dialect() == detail::SqlDialect::Sqlite && backend->Path() != ":memory:")
    CheckAccess(backend->Path(), checker);
  std::vector<const SchemaTable*> present;
  for (const SchemaTable& table : SchemaTables(kind))
    if (checker.SchemaOf(table)) present.push_back(&table);
  StoreReadSnapshot snapshot(&store->Session());
  checker.OwnerIds(present);
  for (const SchemaTable* table : present) {
    TableRows rows(*backend, *table);
    ++check.tables;
    check.rows += static_cast<long>(rows.Rows());
    checker.Rows(rows);
  }
  return check;
}

}  // namespace ormelix
