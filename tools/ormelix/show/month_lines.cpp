#include "show/month_lines.h"

#include <string>
#include <vector>

#include "common/table.h"
#include "common/values.h"
#include "ormelix/employee/mod_database.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using modDatabase::LohnartenLine;

namespace {

const char* GroupName(int group) {
  static const char* const names[] = {"",
                                      "lfd. Bezüge LSt-pfl., SV-pfl.",
                                      "lfd. Bezüge LSt-frei, SV-frei",
                                      "lfd. Bezüge LSt-frei, SV-pfl.",
                                      "lfd. Bezüge LSt-pfl., SV-frei",
                                      "Zulagen § 68 LSt-frei, SV-pfl.",
                                      "Zulagen § 68 LSt-frei, SV-frei",
                                      "Sonstige Abzüge",
                                      "Aufwandsentschädigung"};
  return names[group];
}

// A line of the month with its values, or nothing when all of them are blank.
struct FilledLine {
  LohnartenLine row;
  std::vector<ColumnValue> values;
};

std::vector<FilledLine> FilledLines(LLohn& lohn, int month) {
  std::vector<FilledLine> lines;
  for (int group = 1; group <= MaxAnzahl; ++group) {
    for (int line = 1; line <= 5; ++line) {
      LohnartenLine row{&lohn, group, line, month};
      auto values = ColumnValues(modDatabase::LohnartenColumns(group), row);
      for (const ColumnValue& value : values) {
        if (IsBlank(value)) continue;
        lines.push_back({row, std::move(values)});
        break;
      }
    }
  }
  return lines;
}

// The value of a column in a line; "" where it is blank or the group has no such
// column, but for the amount.
std::string Cell(const FilledLine& line, const std::string& column) {
  for (const ColumnValue& value : line.values)
    if (value.column == column) return IsBlank(value) && column != "Betrag" ? "" : ValueText(value);
  return "";
}

// The markings set on a line (the flag columns of its group), by column name.
std::string Markings(const FilledLine& line) {
  std::string marked;
  for (const ColumnValue& value : line.values)
    if (value.column.rfind("ZSL_", 0) == 0 && !IsBlank(value)) marked += (marked.empty() ? "" : ", ") + value.column;
  return marked;
}

}  // namespace

void AddLinesTransferYear(json::Value& document, LLohn& lohn, int month) {
  json::Value& lines = document.Set("Lohnarten", json::Value::MakeArray());
  for (const FilledLine& line : FilledLines(lohn, month)) {
    json::Value object = json::Value::MakeObject();
    object.Set("Lohnarttyp", line.row.group);
    object.Set("SortNr", line.row.line);
    AddValues(object, line.values);
    lines.Push(std::move(object));
  }
  document.Set("Uebertritt", ColumnsJson(modDatabase::UebertritteColumns(), *lohn.Uebertritt(month)));
  document.Set("Jahresdaten", ColumnsJson(modDatabase::JahresdatenColumns(), *lohn.Jahresdaten()));
}

void PrintLinesTransferYear(std::ostream& out, LLohn& lohn, int year, int month) {
  const auto lines = FilledLines(lohn, month);
  out << "\nLohnarten\n";
  if (lines.empty()) {
    out << "  keine Zeilen in diesem Monat\n";
  } else {
    TextTable table;
    table.Column("Gruppe");
    table.Column("Zeile", TextTable::Right);
    table.Column("Bezeichnung");
    for (const char* header : {"Anzahl", "Satz", "Betrag", "Zuschlag %"}) table.Column(header, TextTable::Right);
    table.Column("Markierung");
    for (const FilledLine& line : lines)
      table.Row({std::to_string(line.row.group) + " " + GroupName(line.row.group), std::to_string(line.row.line),
                 Cell(line, "Bezeichnung"), Cell(line, "Anzahl"), Cell(line, "Satz"), Cell(line, "Betrag"),
                 Cell(line, "Zuschlag_Prozent"), Markings(line)});
    table.Print(out, "  ");
  }
  auto transfer = ColumnValues(modDatabase::UebertritteColumns(), *lohn.Uebertritt(month));
  bool none = true;
  for (const ColumnValue& value : transfer) none = none && IsBlank(value);
  if (none) out << "\nÜbertritt\n  kein Übertritt in diesem Monat\n";
  else PrintPairs(out, "Übertritt", transfer);
  PrintPairs(out, "Jahresdaten " + std::to_string(year) + " (leere Felder ausgelassen; alle mit --json)",
             ColumnValues(modDatabase::JahresdatenColumns(), *lohn.Jahresdaten()), true);
}

}  // namespace cli
