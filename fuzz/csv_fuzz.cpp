// The reading of table files: any bytes go through the CSV reader, and through
// the reading of a CSV or JSON table file against tables of several kinds of
// columns (texts and booleans and dates, whole numbers and amounts and periods,
// untyped values, a table keyed by a number), and are read or refused with the
// reader's own failures (CsvError, ImportError), never undefined behaviour.
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "ormelix/store/csv.h"
#include "ormelix/store/exchange.h"
#include "store/table_files.h"

using namespace ormelix;

namespace {

const SchemaTable& Table(StoreKind kind, const std::string& name) {
  for (const SchemaTable& table : SchemaTables(kind))
    if (table.name == name) return table;
  __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const SchemaTable* const kTables[] = {
      &Table(StoreKind::Payroll, "Mandanten"), &Table(StoreKind::Payroll, "Mitarbeiter_Lohnzettel"),
      &Table(StoreKind::Payroll, "Settings"), &Table(StoreKind::Reference, "Länder")};
  fuzz::Input input(data, size);
  std::string_view text = input.Rest();
  try {
    CsvReader reader(text);
    std::vector<CsvField> fields;
    while (reader.Next(fields)) {
    }
  } catch (const CsvError&) {
  }
  // As import takes a file by its name, the input is read as JSON when it looks
  // like it (an array) and as CSV otherwise.
  std::size_t first = text.find_first_not_of(" \t\r\n", text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0);
  const TableFileFormat format =
      first != std::string_view::npos && text[first] == '[' ? TableFileFormat::Json : TableFileFormat::Csv;
  for (const SchemaTable* table : kTables) {
    try {
      detail::ParsedTable parsed = detail::ParseTableFile(text, format, *table, "fuzz");
      if (parsed.cells.size() != parsed.Rows() * parsed.columns.size()) __builtin_trap();
    } catch (const ImportError&) {
    }
  }
  return 0;
}
