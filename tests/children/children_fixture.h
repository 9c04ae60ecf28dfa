// A session on a fresh payroll store with one employee, and helpers that write
// children and their entries the way a host does and read them back.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include "employee/employee_fixture.h"
#include "ormelix/children/kinder.h"

namespace ormelix::test {

class ChildrenTest : public EmployeeTest {
 protected:
  std::string employee = AddEmployee("Huber", 1);

  static Date D(int year, int month, int day) { return DateHelpers::DateSerial(year, month, day); }

  // A child of the employee (or of another one); gives its ID.
  std::string Child(const std::string& vorname, Variant gebdatum, const std::string& of = "") {
    return AddRow(db, "Mitarbeiter_Kinder",
                  {{"MitarbeiterID", of.empty() ? employee : of},
                   {"VorName", vorname},
                   {"Nachname", "Huber"},
                   {"VersNr", "1234 " + vorname},
                   {"GebDatum", gebdatum}});
  }

  // One entry of a child as a host writes it.
  struct Entry {
    std::int32_t zeitraum;
    int fb = eFBB_Familienbeihilfenbezieher;
    int fabo = eFABO_ganzer_FABO;
    bool avab = true;
    const char* kfz = "A";
    bool fabo18 = false;
    std::int32_t zuschlag_ab = 0;
  };
  std::string AddEntry(const std::string& kid, const Entry& e) {
    return AddRow(db, "Mitarbeiter_Kinder_ZB",
                  {{"KID", kid},
                   {"Zeitraum", e.zeitraum},
                   {"FB_Bezieher", e.fb},
                   {"FABO", e.fabo},
                   {"AVAB", e.avab},
                   {"KFZ", e.kfz},
                   {"FABO18", e.fabo18},
                   {"Kinderzuschlag_ab", e.zuschlag_ab}});
  }
  void AddEntries(const std::string& kid, std::initializer_list<Entry> entries) {
    for (const Entry& e : entries) AddEntry(kid, e);
  }

  // The employee's children, bound to the session and loaded.
  std::shared_ptr<LLohn_Kinder> Kinder() {
    auto kinder = std::make_shared<LLohn_Kinder>();
    kinder->InitKinder(manager, employee);
    kinder->Load();
    return kinder;
  }

  // The session's current period.
  void At(std::int32_t period) {
    manager->AktJahr = static_cast<std::int16_t>(period / 100);
    manager->AktMonat = static_cast<std::int16_t>(period % 100);
  }

  // The VorName of each child of a selection, joined by ", ".
  static std::string Names(const LLohn_Kinder::Auswahl& children) {
    std::string text;
    for (const auto& child : children) text += (text.empty() ? "" : ", ") + child->VorName;
    return text;
  }
};

}  // namespace ormelix::test
