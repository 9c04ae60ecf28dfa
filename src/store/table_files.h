// Table files, the form of one table: written from the walk of a table, read into
// the rows of a table of the schema with each value checked against its column.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "ormelix/store/exchange.h"
#include "table_walk.h"

namespace ormelix::detail {

// The rows of a table file.
struct ParsedTable {
  std::vector<SchemaColumn> columns;  // in the file's order, as the schema names them
  std::vector<Variant> cells;         // row-major
  std::vector<std::size_t> lines;     // the line each row begins on

  std::size_t Rows() const { return lines.size(); }
  std::vector<std::string> Names() const;
  // The position of a column in the file, -1 when it has none.
  int Find(std::string_view name) const;
  const Variant& Cell(std::size_t row, std::size_t column) const { return cells[row * columns.size() + column]; }
};

// Reads a table file of the table; ImportError naming the file (as `file` says),
// line and column of the first fault.
ParsedTable ParseTableFile(std::string_view text, TableFileFormat format, const SchemaTable& table,
                           const std::string& file);

// Writes the rows of a table in the form.
void WriteTableFile(std::ostream& out, const TableRows& rows, TableFileFormat format);

}  // namespace ormelix::detail
