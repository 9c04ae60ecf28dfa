#include "table_files.h"

#include "json_rows.h"
#include "ormelix/store/column_values.h"
#include "ormelix/store/csv.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {

// The columns a header (or the first row of a JSON file) names, as the schema
// names them.
std::vector<SchemaColumn> HeaderColumns(const std::vector<std::string>& names, const SchemaTable& table,
                                        const std::string& file, std::size_t line) {
  std::vector<SchemaColumn> columns;
  for (const std::string& name : names) {
    SchemaColumn column = WalkedColumn(table, name);
    if (column.name.empty())
      throw ImportError(file, line, name, "the table " + table.name + " has no column of that name");
    for (const SchemaColumn& seen : columns)
      if (seen.name == column.name) throw ImportError(file, line, name, "the column is named twice");
    columns.push_back(std::move(column));
  }
  if (columns.empty()) throw ImportError(file, line, "", "no columns are named");
  return columns;
}

Variant ParseCell(const SchemaColumn& column, const FileValue& value, const std::string& file, std::size_t line) {
  try {
    return ParseColumnValue(column, value);
  } catch (const ConversionError& error) {
    throw ImportError(file, line, column.name, error.what());
  }
}

ParsedTable ParseCsv(std::string_view text, const SchemaTable& table, const std::string& file) {
  ParsedTable parsed;
  CsvReader reader(text);
  std::vector<CsvField> fields;
  try {
    if (!reader.Next(fields)) throw ImportError(file, 1, "", "the file is empty; it begins with a header of column names");
    std::vector<std::string> names;
    for (const CsvField& field : fields) names.emplace_back(TrimBlanks(field.text));
    parsed.columns = HeaderColumns(names, table, file, reader.Line());
    while (reader.Next(fields)) {
      const std::size_t line = reader.Line();
      if (fields.size() != parsed.columns.size())
        throw ImportError(file, line, "", "the record has " + std::to_string(fields.size()) + " fields; the header names " +
                                              std::to_string(parsed.columns.size()) + " columns");
      for (std::size_t i = 0; i < fields.size(); ++i) {
        FileValue value{fields[i].quoted ? FileValue::Text : fields[i].text.empty() ? FileValue::Null : FileValue::Bare,
                        fields[i].text};
        parsed.cells.push_back(ParseCell(parsed.columns[i], value, file, line));
      }
      parsed.lines.push_back(line);
    }
  } catch (const CsvError& error) {
    std::string column = error.Field() <= parsed.columns.size() ? parsed.columns[error.Field() - 1].name : "";
    throw ImportError(file, error.Line(), column, error.Message());
  }
  return parsed;
}

ParsedTable ParseJson(std::string_view text, const SchemaTable& table, const std::string& file) {
  ParsedTable parsed;
  try {
    ReadJsonRows(text, [&](std::size_t line, std::vector<JsonMember>& members) {
      if (parsed.columns.empty()) {
        std::vector<std::string> names;
        for (const JsonMember& member : members) names.push_back(member.key);
        parsed.columns = HeaderColumns(names, table, file, line);
      }
      std::vector<Variant> row(parsed.columns.size());
      std::vector<bool> given(parsed.columns.size(), false);
      for (const JsonMember& member : members) {
        std::string name = WalkedColumn(table, member.key).name;
        if (name.empty())
          throw ImportError(file, member.line, member.key, "the table " + table.name + " has no column of that name");
        int at = parsed.Find(name);
        if (at < 0 || given[at])
          throw ImportError(file, member.line, member.key,
                            at < 0 ? "the first row has no such member (every row has the same members)"
                                   : "the member stands twice in the row");
        given[at] = true;
        row[at] = ParseCell(parsed.columns[at], member.value, file, member.line);
      }
      for (std::size_t i = 0; i < given.size(); ++i)
        if (!given[i]) throw ImportError(file, line, parsed.columns[i].name, "the row lacks this member of the first row");
      for (Variant& value : row) parsed.cells.push_back(std::move(value));
      parsed.lines.push_back(line);
    });
  } catch (const JsonRowsError& error) {
    throw ImportError(file, error.line, "", error.message);
  }
  return parsed;
}

void WriteCsv(std::ostream& out, const TableRows& rows, const std::vector<SchemaColumn>& columns) {
  std::string line;
  for (std::size_t i = 0; i < rows.names.size(); ++i) line += (i ? "," : "") + rows.names[i];
  out << line << "\r\n";
  for (std::size_t row = 0; row < rows.Rows(); ++row) {
    line.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i) line += ',';
      ValueText value = ColumnValueText(columns[i], rows.Cell(row, i));
      if (value.kind == ValueText::Text) AppendCsvQuoted(line, value.text);
      else line += value.text;
    }
    line += "\r\n";
    out << line;
  }
}

void WriteJson(std::ostream& out, const TableRows& rows, const std::vector<SchemaColumn>& columns) {
  out << "[";
  std::string line;
  for (std::size_t row = 0; row < rows.Rows(); ++row) {
    line = row ? ",\n{" : "\n{";
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i) line += ", ";
      AppendJsonString(line, columns[i].name);
      line += ": ";
      ValueText value = ColumnValueText(columns[i], rows.Cell(row, i));
      if (value.kind == ValueText::Null) line += "null";
      else if (value.kind == ValueText::Number) line += value.text;
      else AppendJsonString(line, value.text);
    }
    line += '}';
    out << line;
  }
  out << "\n]\n";
}

}  // namespace

std::vector<std::string> ParsedTable::Names() const {
  std::vector<std::string> names;
  for (const SchemaColumn& column : columns) names.push_back(column.name);
  return names;
}

int ParsedTable::Find(std::string_view name) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].name == name) return static_cast<int>(i);
  return -1;
}

ParsedTable ParseTableFile(std::string_view text, TableFileFormat format, const SchemaTable& table,
                           const std::string& file) {
  return format == TableFileFormat::Csv ? ParseCsv(text, table, file) : ParseJson(text, table, file);
}

void WriteTableFile(std::ostream& out, const TableRows& rows, TableFileFormat format) {
  std::vector<SchemaColumn> columns;
  for (const std::string& name : rows.names) columns.push_back(WalkedColumn(rows.table, name));
  if (format == TableFileFormat::Csv) WriteCsv(out, rows, columns);
  else WriteJson(out, rows, columns);
}

}  // namespace ormelix::detail
