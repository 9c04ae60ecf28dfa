#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <unordered_set>

#include "ormelix/store/exchange.h"
#include "ormelix/text.h"
#include "table_files.h"

namespace ormelix {

namespace fs = std::filesystem;

namespace {

using detail::Backend;
using detail::ParsedTable;

const SchemaTable* FindTable(std::string_view name, StoreKind& kind) {
  for (StoreKind each : {StoreKind::Payroll, StoreKind::Reference})
    for (const SchemaTable& table : SchemaTables(each))
      if (EqualsFolded(name, table.name)) {
        kind = each;
        return &table;
      }
  return nullptr;
}

const SchemaTable& TableNamed(const std::string& name, StoreKind kind) {
  for (const SchemaTable& table : SchemaTables(kind))
    if (table.name == name) return table;
  throw Error("no table " + name + " in the schema");
}

std::string ReadWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw ImportError(path, 0, "", "the file cannot be read");
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

long CountRows(Backend& backend, const std::string& table) {
  detail::QueryResult result = backend.Query("SELECT COUNT(*) AS [n] FROM [" + table + "]");
  double n = 0;
  if (!result.cells.empty()) result.cells[0].TryNumber(n);
  return static_cast<long>(n);
}

// A second row for a key of one row, found before the store refuses it, so that
// the message can name both lines.
void CheckOneRowPerKey(const ParsedTable& parsed, const SchemaTable& table, const std::string& file) {
  for (const std::vector<std::string>& key : detail::OneRowKeys(table)) {
    std::vector<std::size_t> at;
    for (const std::string& column : key)
      if (int found = parsed.Find(column); found >= 0) at.push_back(static_cast<std::size_t>(found));
    if (at.size() != key.size()) continue;  // the store fills or defaults it
    auto cell = [&](std::size_t row, std::size_t column) -> const Variant& { return parsed.Cell(row, column); };
    for (const detail::RepeatedKey& repeat : detail::RepeatedKeys(parsed.Rows(), at, cell)) {
      std::string shown;
      for (std::size_t i = 0; i < at.size(); ++i) shown += (i ? ", " : "") + key[i] + " " + cell(repeat.row, at[i]).Describe();
      throw ImportError(file, parsed.lines[repeat.row], key.front(),
                        "a second row for " + shown + " (the first is on line " +
                            std::to_string(parsed.lines[repeat.first]) + "); the table holds one row per key");
    }
  }
}

// The IDs of a table as they stand in the store (within the import's transaction).
using IdSet = std::unordered_set<std::string>;
IdSet StoredIds(Backend& backend, const std::string& table) {
  detail::QueryResult result = backend.Query("SELECT [ID] FROM [" + table + "]");
  IdSet ids;
  for (const Variant& value : result.cells) ids.insert(detail::KeyText(value));
  return ids;
}

// Every row whose column refers to a parent row (with a cascade) finds it.
void CheckParents(const ParsedTable& parsed, const SchemaTable& table, const std::string& file, Backend& backend) {
  for (const SchemaColumn& column : table.columns) {
    int at = parsed.Find(column.name);
    if (column.references.empty() || at < 0) continue;
    const IdSet parents = StoredIds(backend, column.references);
    for (std::size_t row = 0; row < parsed.Rows(); ++row) {
      const Variant& value = parsed.Cell(row, static_cast<std::size_t>(at));
      if (!value.IsMissing() && !parents.count(detail::KeyText(value)))
        throw ImportError(file, parsed.lines[row], column.name,
                          value.Describe() + " is the ID of no row of " + column.references +
                              " (in its file or in the store)");
    }
  }
}

// The tables a replace empties take, by their cascades, the rows below them:
// a table below that has no file of its own would lose its rows.
void CheckCascades(const std::vector<const TableFile*>& files, StoreKind kind, Backend& backend) {
  std::set<std::string> imported;
  for (const TableFile* file : files) imported.insert(file->table);
  for (const SchemaTable& table : SchemaTables(kind)) {
    if (imported.count(table.name)) continue;
    for (const SchemaColumn& column : table.columns) {
      if (!column.cascade || !imported.count(column.references) || CountRows(backend, table.name) == 0) continue;
      const TableFile* parent = nullptr;
      for (const TableFile* file : files)
        if (file->table == column.references) parent = file;
      throw ImportError(parent->path, 0, "",
                        "replacing " + column.references + " would delete the rows of " + table.name +
                            " below it, which has no file here; import it too (export the tables together)");
    }
  }
}

class StoreImport {
 public:
  StoreImport(const ImportTarget& target, std::vector<const TableFile*> files, const ImportOptions& options)
      : backend_(detail::BackendOf(target.store->Session())), kind_(target.kind), files_(std::move(files)),
        options_(options) {}

  void Begin() {
    backend_->BeginWrite();
    open_ = true;
  }
  void Commit() {
    backend_->CommitWrite();
    open_ = false;
  }
  void Rollback() noexcept {
    if (!open_) return;
    try {
      backend_->RollbackWrite();
    } catch (const Error&) {
      // The connection is gone: the server has rolled back.
    }
  }

  // Empties or checks the tables, then writes every file.
  void Write(const std::map<std::string, TableCopy>& recorded, std::vector<TableCopy>& written) {
    std::vector<const SchemaTable*> tables;
    for (const TableFile* file : files_) {
      tables.push_back(&TableNamed(file->table, kind_));
      long rows = CountRows(*backend_, file->table);
      if (rows > 0 && !options_.replace)
        throw ImportError(file->path, 0, "",
                          "the table " + file->table + " of " + backend_->Path() +
                              " holds rows already; import goes into empty tables (or give --replace)");
    }
    if (options_.replace) {
      CheckCascades(files_, kind_, *backend_);
      detail::EmptyTables(*backend_, tables);
    }
    for (std::size_t i = 0; i < files_.size(); ++i) written.push_back(WriteTable(*files_[i], *tables[i], recorded));
  }

 private:
  TableCopy WriteTable(const TableFile& file, const SchemaTable& table, const std::map<std::string, TableCopy>& recorded) {
    const std::string text = ReadWhole(file.path);
    const ParsedTable parsed = detail::ParseTableFile(text, file.format, table, file.path);
    CheckOneRowPerKey(parsed, table, file.path);
    CheckParents(parsed, table, file.path, *backend_);
    CopyOptions steps;
    steps.progress = options_.progress;
    const std::size_t width = parsed.columns.size();
    detail::InsertTableRows(
        *backend_, table, parsed.Names(), parsed.Rows(),
        [&](std::size_t row, std::vector<Variant>& cells) {
          cells.insert(cells.end(), parsed.cells.begin() + static_cast<long>(row * width),
                       parsed.cells.begin() + static_cast<long>((row + 1) * width));
        },
        steps);
    TableCopy sum = detail::TableRows(*backend_, table).Sum();
    auto record = recorded.find(table.name);
    if (record != recorded.end() && (record->second.rows != sum.rows || record->second.checksum != sum.checksum))
      throw ImportError(file.path, 0, "",
                        "the table reads back with " + std::to_string(sum.rows) + " rows and checksum " +
                            std::to_string(sum.checksum) + ", but " + kChecksumFile + " records " +
                            std::to_string(record->second.rows) + " rows and checksum " +
                            std::to_string(record->second.checksum) +
                            " (a file changed since the export? take its line out of " + kChecksumFile +
                            " to import it as it is now)");
    return sum;
  }

  std::shared_ptr<Backend> backend_;
  StoreKind kind_;
  std::vector<const TableFile*> files_;
  const ImportOptions& options_;
  bool open_ = false;
};

}  // namespace

ImportError::ImportError(std::string file, std::size_t line, std::string column, const std::string& message)
    : Error(file + (line ? " line " + std::to_string(line) : std::string()) +
            (column.empty() ? std::string() : ", column " + ShortenForMessage(column, 60)) + ": " + message),
      file_(std::move(file)),
      line_(line),
      column_(std::move(column)) {}

std::vector<TableFile> FindTableFiles(const std::string& dir) {
  std::vector<TableFile> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(dir)) {
    std::string name = entry.path().filename().string();
    if (!entry.is_regular_file() || name.empty() || name[0] == '.' || name == kChecksumFile) continue;
    std::string extension = FoldCase(entry.path().extension().string());
    TableFile file;
    file.path = entry.path().string();
    const SchemaTable* table = FindTable(entry.path().stem().string(), file.kind);
    if (!table || (extension != ".csv" && extension != ".json"))
      throw ImportError(file.path, 0, "",
                        "the file names no table of the stores; expected TABLE.csv or TABLE.json for a table of the "
                        "schema (as ormelix export writes them), and " + std::string(kChecksumFile));
    file.table = table->name;
    file.format = extension == ".csv" ? TableFileFormat::Csv : TableFileFormat::Json;
    for (const TableFile& other : files)
      if (other.table == file.table)
        throw ImportError(file.path, 0, "", "the table " + file.table + " has a second file here, " + other.path);
    files.push_back(std::move(file));
  }
  if (files.empty()) throw ImportError(dir, 0, "", "the folder holds no table files (TABLE.csv or TABLE.json)");
  auto order = [](const TableFile& file) {
    const std::vector<SchemaTable>& tables = SchemaTables(file.kind);
    auto at = std::find_if(tables.begin(), tables.end(), [&](const SchemaTable& t) { return t.name == file.table; });
    return std::make_pair(file.kind == StoreKind::Reference, at - tables.begin());
  };
  std::sort(files.begin(), files.end(), [&](const TableFile& a, const TableFile& b) { return order(a) < order(b); });
  return files;
}

std::vector<TableCopy> ImportTables(const std::vector<TableFile>& files, const std::vector<ImportTarget>& targets,
                                    const ImportOptions& options) {
  std::vector<StoreImport> imports;
  for (const ImportTarget& target : targets) {
    std::vector<const TableFile*> own;
    for (const TableFile& file : files)
      if (file.kind == target.kind) own.push_back(&file);
    if (!own.empty()) imports.emplace_back(target, std::move(own), options);
  }
  for (const TableFile& file : files)
    if (std::none_of(targets.begin(), targets.end(), [&](const ImportTarget& t) { return t.kind == file.kind; }))
      throw ImportError(file.path, 0, "", "no store is given for the table " + file.table);
  std::map<std::string, TableCopy> recorded =
      files.empty() ? std::map<std::string, TableCopy>{} : ReadChecksums(fs::path(files.front().path).parent_path().string());
  std::vector<TableCopy> written;
  try {
    for (StoreImport& import : imports) import.Begin();
    for (StoreImport& import : imports) import.Write(recorded, written);
    for (StoreImport& import : imports) import.Commit();
  } catch (...) {
    for (StoreImport& import : imports) import.Rollback();
    throw;
  }
  return written;
}

}  // namespace ormelix
