// A session on a fresh payroll store with one employer and one employee, beside a
// reference store with a catalogue of exit reasons, and helpers that write career
// rows the way a host does and read careers back.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "employee/employee_fixture.h"
#include "ormelix/career/laufbahnen.h"

namespace ormelix::test {

class CareerTest : public EmployeeTest {
 protected:
  StoreConnectionPtr reference = NewStore(dir, StoreKind::Reference);
  std::string employee = AddEmployee("Huber", 1);

  CareerTest() {
    manager->SetImportDB(reference);
    // The catalogue has no ID to write through a recordset by.
    reference->Session().ExecuteSql(
        "INSERT INTO [DM_Austrittsgründe] ([Code], [Kürzel], [Grund]) VALUES (0, 'K', 'Kein Grund')");
    reference->Session().ExecuteSql(
        "INSERT INTO [DM_Austrittsgründe] ([Code], [Kürzel], [Grund]) VALUES (5, 'EL', 'Einvernehmliche Lösung')");
  }

  static Date D(int year, int month, int day) { return DateHelpers::DateSerial(year, month, day); }

  // Writes a step row of the employee with further columns; gives its ID.
  std::string Step(int schritt, Date datum, std::initializer_list<std::pair<const char*, Variant>> more = {}) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn]", adOpenDynamic, adLockOptimistic);
    rs->AddNew();
    rs->Collect("MitarbeiterID", employee);
    rs->Collect("Schritt", schritt);
    rs->Collect("Datum", datum);
    for (const auto& [column, value] : more) rs->Collect(column, value);
    rs->Update();
    return ValueHelpers::ToText(rs->Fields("ID"));
  }
  void AccountChange(std::int32_t zeitraum) {
    AddRow(db, "Mitarbeiter_Beitragskonto", {{"MitarbeiterID", employee}, {"Zeitraum", zeitraum}});
  }

  // The employee's career, bound to the session and loaded.
  std::shared_ptr<LLohn_Laufbahnen> Career() {
    auto career = std::make_shared<LLohn_Laufbahnen>();
    career->InitLaufbahnen(manager, employee);
    career->Load();
    return career;
  }

  // "2020-03-01 1" per step, the day and the kind, joined by ", ".
  static std::string Describe(const LLohn_Laufbahn& step) {
    return DateHelpers::FormatDate(step.Datum) + " " + std::to_string(step.Schritt);
  }
  static std::string Describe(const LLohn_Laufbahnen& list) {
    std::string text;
    for (const auto& step : list) text += (text.empty() ? "" : ", ") + Describe(*step);
    return text;
  }
};

}  // namespace ormelix::test
