// The raw sqlite3 loader of the employee benchmarks: the statements the library
// runs for Mitarbeiter.Load (the employer's employees, all career steps, the
// replacement benefits of the year; then per employee its career steps with their
// exit reasons looked up in the catalogue, which it reads per employee as the
// library does, its children and per child their entitlement rows, its master row,
// its bank row, its wage-type rows, its pay rows with the replacement benefits (in
// period order) and the short-time row of each, its transfers, its year data and
// its document password), prepared once and bound per employee, every column of
// those rows kept in plain structs. It filters the year with hash maps of its own.
#pragma once

#include <sqlite3.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "employee_store.h"
#include "raw_sqlite.h"

namespace bench {


struct RawReason {
  double code = 0;
  std::string kuerzel;
  std::string text;
};

// A career row with its reason from the catalogue (code -1 when there is none).
struct RawStep {
  RawRow row;
  int reason_index = 0;
  int reason_code = -1;
  std::string reason_kuerzel;
  std::string reason_text;
};

// A child with its entitlement rows.
struct RawChild {
  RawRow row;
  std::vector<RawRow> entries;
};

struct RawEmployee {
  std::string id;
  int index = 0;
  std::vector<RawStep> career;
  std::vector<RawChild> children;
  RawRow master;
  RawRow bank;
  std::vector<RawRow> lines;  // the wage-type rows of the year
  std::vector<RawRow> months = std::vector<RawRow>(13);
  std::vector<RawRow> transfers = std::vector<RawRow>(13);
  std::vector<std::vector<RawRow>> benefits = std::vector<std::vector<RawRow>>(13);  // of each pay row
  std::vector<RawRow> shorttime = std::vector<RawRow>(13);
  RawRow year;
  RawRow password;
};

struct Step {
  int schritt;
  double datum;
};

// The exit reason of a career step from the catalogue, as the library finds it:
// its code, its index (code + 1), abbreviation and text.
inline void TakeReason(const std::vector<RawReason>& catalogue, double code, RawStep& step) {
  for (const RawReason& reason : catalogue) {
    if (reason.code != code) continue;
    step.reason_code = static_cast<int>(code);
    step.reason_index = step.reason_code + 1;
    step.reason_kuerzel = reason.kuerzel;
    step.reason_text = reason.text;
    return;
  }
}

// The employee's career rows by date, each with its reason looked up in the
// catalogue, which is read anew per employee as the library does.
inline void RawCareer(Statement& steps, Statement& reasons, const std::string& id, RawEmployee& employee) {
  std::vector<RawReason> catalogue;
  sqlite3_reset(reasons.get());
  while (sqlite3_step(reasons.get()) == SQLITE_ROW)
    catalogue.push_back({sqlite3_column_double(reasons.get(), 0),
                         reinterpret_cast<const char*>(sqlite3_column_text(reasons.get(), 1)),
                         reinterpret_cast<const char*>(sqlite3_column_text(reasons.get(), 2))});
  steps.Bind(id);
  const int grund = 5;  // Nr, ID, MitarbeiterID, Schritt, Datum, Grund
  while (sqlite3_step(steps.get()) == SQLITE_ROW) {
    RawStep& step = employee.career.emplace_back();
    ReadRow(steps.get(), step.row);
    if (sqlite3_column_type(steps.get(), grund) == SQLITE_NULL) continue;
    TakeReason(catalogue, sqlite3_column_double(steps.get(), grund), step);
  }
}

// The employee's children by birth date, and per child its entitlement rows by period.
inline void RawChildren(Statement& children, Statement& entries, const std::string& id, RawEmployee& employee) {
  children.Bind(id);
  while (sqlite3_step(children.get()) == SQLITE_ROW) {
    RawChild& child = employee.children.emplace_back();
    ReadRow(children.get(), child.row);
    const std::string kid = reinterpret_cast<const char*>(sqlite3_column_text(children.get(), 1));
    entries.Bind(kid);
    while (sqlite3_step(entries.get()) == SQLITE_ROW) ReadRow(entries.get(), child.entries.emplace_back());
  }
}

inline std::vector<RawEmployee> RawLoad(sqlite3* db, sqlite3* reference, const std::string& employer) {
  Statement employees(db, "SELECT * FROM \"Mitarbeiter\" WHERE \"MandantenID\"=? ORDER BY \"Personalnummer\" ASC");
  Statement career(db, "SELECT * FROM \"Mitarbeiter_Laufbahn\" ORDER BY \"Datum\" DESC, \"Nr\" DESC");
  Statement replacements(db,
                         "SELECT \"MitarbeiterID\", \"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\" AS \"Zeitraum\" FROM "
                         "\"Mitarbeiter_Lohnzettel\" INNER JOIN \"Mitarbeiter_Lohnzettel_EL\" ON "
                         "\"Mitarbeiter_Lohnzettel\".\"ID\"=\"Mitarbeiter_Lohnzettel_EL\".\"LohnzettelID\" WHERE "
                         "\"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\">=? AND \"Mitarbeiter_Lohnzettel_EL\".\"Zeitraum\"<=?");
  Statement steps(db,
                  "SELECT * FROM \"Mitarbeiter_Laufbahn\" WHERE \"MitarbeiterID\"=? ORDER BY \"Datum\" ASC, \"Nr\" ASC");
  Statement reasons(reference, "SELECT * FROM \"DM_Austrittsgründe\"");
  Statement children(db,
                     "SELECT * FROM \"Mitarbeiter_Kinder\" WHERE \"MitarbeiterID\"=? ORDER BY \"GebDatum\" ASC");
  Statement child_entries(db, "SELECT * FROM \"Mitarbeiter_Kinder_ZB\" WHERE \"KID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement master(db, "SELECT * FROM \"Mitarbeiter\" WHERE \"ID\"=?");
  Statement bank(db, "SELECT * FROM \"Mitarbeiter_Bankverbindung\" WHERE \"MitarbeiterID\"=?");
  Statement lines(db, "SELECT * FROM \"Mitarbeiter_Lohnarten\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\", \"SortNr\"");
  Statement pay(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement benefits(
      db, "SELECT * FROM \"Mitarbeiter_Lohnzettel_EL\" WHERE \"LohnzettelID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement shorttime(db, "SELECT * FROM \"Mitarbeiter_Lohnzettel_Kurzarbeit\" WHERE \"LohnzettelID\"=?");
  Statement transfers(db, "SELECT * FROM \"Mitarbeiter_Übertritte\" WHERE \"MitarbeiterID\"=? ORDER BY \"Zeitraum\" ASC");
  Statement year(db, "SELECT * FROM \"Mitarbeiter_Jahresdaten\" WHERE \"MitarbeiterID\"=? AND \"Jahr\"=?");
  Statement password(db, "SELECT * FROM \"Mitarbeiter_PDFEncrypt\" WHERE \"MitarbeiterID\"=?");

  // Newest step up to the year's end per employee; employees with a benefit in the year.
  const double year_end = DateHelpers::DateSerial(kYear, 12, 31);
  const double year_start = DateHelpers::DateSerial(kYear, 1, 1);
  std::unordered_map<std::string, Step> last_step;
  while (sqlite3_step(career.get()) == SQLITE_ROW) {
    double datum = sqlite3_column_double(career.get(), 4);
    if (datum > year_end) continue;
    last_step.try_emplace(reinterpret_cast<const char*>(sqlite3_column_text(career.get(), 2)),
                          Step{sqlite3_column_int(career.get(), 3), datum});
  }
  std::unordered_map<std::string, bool> has_replacement;
  sqlite3_bind_int(replacements.get(), 1, kYear * 100 + 1);
  sqlite3_bind_int(replacements.get(), 2, kYear * 100 + 12);
  while (sqlite3_step(replacements.get()) == SQLITE_ROW)
    has_replacement[reinterpret_cast<const char*>(sqlite3_column_text(replacements.get(), 0))] = true;

  std::vector<RawEmployee> result;
  employees.Bind(employer);
  const int neuanlage = sqlite3_column_count(employees.get()) - 2;  // Neuanlage, Anonymize
  while (sqlite3_step(employees.get()) == SQLITE_ROW) {
    std::string id = reinterpret_cast<const char*>(sqlite3_column_text(employees.get(), 1));
    auto step = last_step.find(id);
    bool exit = step != last_step.end() && step->second.schritt == 3;
    double entry_date = step != last_step.end() && !exit ? step->second.datum : 0;
    double exit_date = exit ? step->second.datum : 0;
    if (!((entry_date > 0 && exit_date == 0) || exit_date >= year_start ||
          sqlite3_column_int(employees.get(), neuanlage) != 0 || has_replacement.count(id)))
      continue;
    RawEmployee& employee = result.emplace_back();
    employee.id = id;
    employee.index = static_cast<int>(result.size());
    RawCareer(steps, reasons, id, employee);
    RawChildren(children, child_entries, id, employee);
    master.Bind(id);
    if (sqlite3_step(master.get()) == SQLITE_ROW) ReadRow(master.get(), employee.master);
    bank.Bind(id);
    if (sqlite3_step(bank.get()) == SQLITE_ROW) ReadRow(bank.get(), employee.bank);
    lines.Bind(id);
    while (sqlite3_step(lines.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(lines.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
        ReadRow(lines.get(), employee.lines.emplace_back());
    }
    pay.Bind(id);
    while (sqlite3_step(pay.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(pay.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12) {
        const auto month = static_cast<std::size_t>(zeitraum % 100);
        ReadRow(pay.get(), employee.months[month]);
        const std::string row = reinterpret_cast<const char*>(sqlite3_column_text(pay.get(), 1));
        benefits.Bind(row);
        while (sqlite3_step(benefits.get()) == SQLITE_ROW) ReadRow(benefits.get(), employee.benefits[month].emplace_back());
        shorttime.Bind(row);
        if (sqlite3_step(shorttime.get()) == SQLITE_ROW) ReadRow(shorttime.get(), employee.shorttime[month]);
      }
    }
    transfers.Bind(id);
    while (sqlite3_step(transfers.get()) == SQLITE_ROW) {
      int zeitraum = sqlite3_column_int(transfers.get(), 3);
      if (zeitraum / 100 == kYear && zeitraum % 100 >= 1 && zeitraum % 100 <= 12)
        ReadRow(transfers.get(), employee.transfers[static_cast<std::size_t>(zeitraum % 100)]);
    }
    year.Bind(id);
    sqlite3_bind_int(year.get(), 2, kYear);
    if (sqlite3_step(year.get()) == SQLITE_ROW) ReadRow(year.get(), employee.year);
    password.Bind(id);
    if (sqlite3_step(password.get()) == SQLITE_ROW) ReadRow(password.get(), employee.password);
  }
  return result;
}

// The raw loader's connections to a store and its reference store, opened as a
// plain sqlite3 program opens them (with the store's text order), closed at the end.
struct RawConnections {
  explicit RawConnections(const Store& store) : db(Open(store.path)), reference(Open(store.reference)) {}
  ~RawConnections() {
    sqlite3_close(reference);
    sqlite3_close(db);
  }
  RawConnections(const RawConnections&) = delete;
  RawConnections& operator=(const RawConnections&) = delete;

  static sqlite3* Open(const std::string& path) {
    sqlite3* connection = nullptr;
    sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    RegisterSqliteText(connection);
    return connection;
  }

  sqlite3* db;
  sqlite3* reference;
};


}  // namespace bench
