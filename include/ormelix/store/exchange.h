/// \file
/// Tables out of a store and into one, one file per table: CSV (RFC 4180, a header
/// of column names, UTF-8) or JSON (an array of one object per row), as ormelix
/// export writes them; and, for import, also the CSV that mdbtools' mdb-export
/// writes of the tables of an older store. The values follow column_values.h:
/// Null and the empty text kept apart, dates as dates, booleans -1/0, IDs in braces.
///
/// An export records each table's row count and checksum (the checksum of copy.h)
/// in checksums.txt beside the files; an import checks each table it writes against
/// that record before it commits, so that an export imported into an empty store
/// gives a store with equal checksums, or nothing.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/store/copy.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"

namespace ormelix {

/// The form of a table file.
enum class TableFileFormat {
  Csv,   ///< TABLE.csv: RFC 4180, a header of column names
  Json,  ///< TABLE.json: an array of one object per row
};

/// The name of the checksum record of an export, beside its table files.
inline constexpr const char* kChecksumFile = "checksums.txt";

/// A table file that cannot be imported, naming the file, the line (from 1; 0 for
/// the file as a whole) and the column ("" for none). Nothing was written.
class ImportError : public Error {
 public:
  /// The fault `message` at that place; what() names all of it.
  ImportError(std::string file, std::size_t line, std::string column, const std::string& message);
  /// The file's path.
  const std::string& File() const noexcept { return file_; }
  /// The line, from 1; 0 for the file as a whole.
  std::size_t Line() const noexcept { return line_; }
  /// The column as the schema names it (or as the file does, when the schema has none), "" for none.
  const std::string& Column() const noexcept { return column_; }

 private:
  std::string file_;
  std::size_t line_;
  std::string column_;
};

/// The tables of a store as the schema names them (in any case); ImportError
/// (without a file) naming an unknown one.
std::vector<std::string> SchemaTableNames(const std::vector<std::string>& names, StoreKind kind);

/// What ExportTables writes.
struct ExportOptions {
  /// The tables to write (as the schema names them); empty for every table.
  std::vector<std::string> tables;
  TableFileFormat format = TableFileFormat::Csv;  ///< the form of the files
};

/// Writes the tables of the store (of options.tables those that belong to it) to
/// dir/TABLE.csv (or .json), new files readable by their owner only, read in one
/// snapshot of the store; gives each table's rows and checksum. StoreError when a
/// file of that name exists (nothing is overwritten) or cannot be written.
std::vector<TableCopy> ExportTables(const StoreConnectionPtr& store, StoreKind kind, const std::string& dir,
                                    const ExportOptions& options = {});

/// Writes dir/checksums.txt (a new file) with the rows and checksum of each table.
void WriteChecksums(const std::string& dir, const std::vector<TableCopy>& tables);
/// The record of dir/checksums.txt by table, empty when there is none.
std::map<std::string, TableCopy> ReadChecksums(const std::string& dir);

/// A table file of a folder.
struct TableFile {
  std::string path;                               ///< the file
  std::string table;                              ///< its table, as the schema names it
  StoreKind kind = StoreKind::Payroll;            ///< the store the table belongs to
  TableFileFormat format = TableFileFormat::Csv;  ///< its form, by its extension
};

/// The table files of a folder: TABLE.csv or TABLE.json for the tables of both
/// stores (the name in any case), in the schema's order. ImportError for another
/// file (but checksums.txt), a table with two files, and a folder with none.
std::vector<TableFile> FindTableFiles(const std::string& dir);

/// A store the files of its kind go into.
struct ImportTarget {
  StoreConnectionPtr store;             ///< the store
  StoreKind kind = StoreKind::Payroll;  ///< which of the two it is
};

/// How ImportTables works.
struct ImportOptions {
  /// A table that holds rows is refused unless its rows may be replaced.
  bool replace = false;
  /// Called per table and every few thousand rows: table, rows written, rows of it.
  std::function<void(const std::string& table, long done, long total)> progress;
};

/// Writes the files into the stores of their tables, in one transaction on each,
/// committed only when every file has been read and written: a column the schema
/// does not know, a value its column cannot hold (column_values.h), a second row
/// for a key of one row (ID, Nr, the keys the schema declares unique), a row whose
/// parent row (a cascading reference) is in neither the files nor the store, a
/// table that holds rows (without replace), a replace whose cascades would take
/// rows of a table without a file, and a table that does not read back as
/// checksums.txt records it stop the import with an ImportError, and nothing is
/// written. A file without Nr or ID gets them from the store. Gives the rows and
/// checksum of each table written.
std::vector<TableCopy> ImportTables(const std::vector<TableFile>& files, const std::vector<ImportTarget>& targets,
                                    const ImportOptions& options = {});

}  // namespace ormelix
