#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ormelix/store/exchange.h"
#include "ormelix/text.h"
#include "private_file.h"
#include "table_files.h"

namespace ormelix {

namespace {

std::string FileOf(const std::string& dir, const std::string& table, TableFileFormat format) {
  return (std::filesystem::path(dir) / (table + (format == TableFileFormat::Csv ? ".csv" : ".json"))).string();
}

// A new file of mode 0600 for writing; StoreError naming it if it exists.
std::ofstream NewPrivateFile(const std::string& path) {
  detail::CreatePrivateFile(path);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) throw StoreError("cannot write the file", path);
  return out;
}

void Close(std::ofstream& out, const std::string& path) {
  out.close();
  if (!out) throw StoreError("cannot write the file", path, "the disk may be full");
}

}  // namespace

std::vector<std::string> SchemaTableNames(const std::vector<std::string>& names, StoreKind kind) {
  std::vector<std::string> found;
  for (const SchemaTable& table : SchemaTables(kind))
    for (const std::string& name : names)
      if (EqualsFolded(name, table.name)) found.push_back(table.name);
  return found;
}

std::vector<TableCopy> ExportTables(const StoreConnectionPtr& store, StoreKind kind, const std::string& dir,
                                    const ExportOptions& options) {
  std::shared_ptr<detail::Backend> backend = detail::BackendOf(store->Session());
  std::vector<std::string> wanted = SchemaTableNames(options.tables, kind);
  std::vector<TableCopy> written;
  // Every table as the store stood at the first read, though clerks save meanwhile.
  StoreReadSnapshot snapshot(&store->Session());
  for (const SchemaTable& table : SchemaTables(kind)) {
    if (!options.tables.empty() && std::find(wanted.begin(), wanted.end(), table.name) == wanted.end()) continue;
    const std::string path = FileOf(dir, table.name, options.format);
    detail::TableRows rows(*backend, table);
    std::ofstream out = NewPrivateFile(path);
    detail::WriteTableFile(out, rows, options.format);
    Close(out, path);
    written.push_back(rows.Sum());
  }
  return written;
}

void WriteChecksums(const std::string& dir, const std::vector<TableCopy>& tables) {
  const std::string path = (std::filesystem::path(dir) / kChecksumFile).string();
  std::ofstream out = NewPrivateFile(path);
  out << "# The tables of an ormelix export: table, rows, checksum of all values.\n"
         "# ormelix import checks each table it reads against its line here.\n";
  for (const TableCopy& table : tables) out << table.table << '\t' << table.rows << '\t' << table.checksum << '\n';
  Close(out, path);
}

std::map<std::string, TableCopy> ReadChecksums(const std::string& dir) {
  const std::string path = (std::filesystem::path(dir) / kChecksumFile).string();
  std::map<std::string, TableCopy> record;
  std::ifstream in(path);
  std::size_t number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    TableCopy table;
    if (!std::getline(fields, table.table, '\t') || !(fields >> table.rows >> table.checksum))
      throw ImportError(path, number, "", "expected a table, its rows and its checksum, separated by tabs");
    record[table.table] = table;
  }
  return record;
}

}  // namespace ormelix
