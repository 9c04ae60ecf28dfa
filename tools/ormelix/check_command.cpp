// ormelix check: whether a store is sound, one line per finding.
#include <iostream>

#include "commands.h"
#include "common/json.h"
#include "common/paths.h"
#include "common/stores.h"
#include "ormelix/store/check.h"
#include "ormelix/store/location.h"

namespace cli {

const char* const kCheckHelp =
    "usage: ormelix check STORE [--json]\n"
    "  Reads a store (and the reference store beside it) and reports what is not\n"
    "  sound, one line each: the store's own integrity (SQLite's integrity_check and\n"
    "  foreign_key_check; on PostgreSQL its catalog: indexes not valid, constraints not\n"
    "  validated, the text order), tables and columns the schema has and the store\n"
    "  lacks, rows whose owner is gone (a pay record without its employee, a short-time\n"
    "  or replacement row without its pay record, entitlements without their child, an\n"
    "  employee without an employer), a second row where one per key belongs, values\n"
    "  outside their column's range (a boolean not -1 or 0, a number out of its bits, a\n"
    "  period that is no YYYYMM, a text where a number belongs, an infinite amount, a\n"
    "  text that is no UTF-8), and a store file that others may read. STORE is as\n"
    "  --store of ormelix show takes it. Exit status 0 when the store is sound, 1 with\n"
    "  findings, 2 for bad input.\n"
    "  --json   one JSON document: {sound, stores: [{store, kind, tables, rows,\n"
    "           findings: [{kind, table, row, column, message}], more}]}\n";

namespace {

std::string Line(const std::string& store, const ormelix::CheckFinding& finding) {
  std::string line = store + ": ";
  if (!finding.table.empty()) line += finding.table + (finding.row.empty() ? "" : " " + finding.row);
  if (!finding.column.empty()) line += ", column " + finding.column;
  if (!finding.table.empty()) line += ": ";
  line += finding.message;
  for (char& c : line)
    if (c == '\n' || c == '\r') c = ' ';
  return line;
}

json::Value Json(const std::string& store, ormelix::StoreKind kind, const ormelix::StoreCheck& check) {
  json::Value out = json::Value::MakeObject();
  out.Set("store", store);
  out.Set("kind", kind == ormelix::StoreKind::Payroll ? "payroll" : "reference");
  out.Set("tables", check.tables);
  out.Set("rows", check.rows);
  json::Value& findings = out.Set("findings", json::Value::MakeArray());
  for (const ormelix::CheckFinding& finding : check.findings) {
    json::Value& item = findings.Push(json::Value::MakeObject());
    item.Set("kind", finding.kind);
    item.Set("table", finding.table);
    item.Set("row", finding.row);
    item.Set("column", finding.column);
    item.Set("message", finding.message);
  }
  out.Set("more", check.more);
  return out;
}

}  // namespace

int Check(Arguments args) {
  bool as_json = args.TakeFlag("json");
  std::optional<std::string> where = args.TakePositional();
  args.ExpectEnd("ormelix check STORE [--json]");
  if (!where) throw UsageError("check needs a store: ormelix check STORE [--json]");
  OpenedStores stores = OpenStoreFiles(*where, /*read_only=*/true);
  bool sound = true;
  json::Value document = json::Value::MakeObject();
  json::Value list = json::Value::MakeArray();
  std::string text;
  for (auto [connection, kind, location] :
       {std::tuple{stores.payroll, ormelix::StoreKind::Payroll, stores.where.payroll},
        std::tuple{stores.reference, ormelix::StoreKind::Reference, stores.where.reference}}) {
    if (!connection) continue;
    ormelix::StoreCheck check = ormelix::CheckStore(connection, kind);
    std::string shown = stores.where.server ? ormelix::ShownLocation(location) : Shown(location);
    sound = sound && check.Sound();
    list.Push(Json(shown, kind, check));
    for (const ormelix::CheckFinding& finding : check.findings) text += Line(shown, finding) + "\n";
    if (check.more) text += shown + ": " + std::to_string(check.more) + " findings more, not shown\n";
    if (check.Sound())
      text += shown + ": sound (" + std::to_string(check.tables) + " tables, " + std::to_string(check.rows) + " rows)\n";
  }
  document.Set("sound", sound);
  document.Set("stores", std::move(list));
  std::cout << (as_json ? document.Dump() : text);
  return sound ? 0 : 1;
}

}  // namespace cli
