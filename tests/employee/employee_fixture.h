// A session on a fresh payroll store with one employer, and helpers that put
// employees, career steps and pay rows into it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

namespace ormelix::test {

class EmployeeTest : public ::testing::Test {
 protected:
  TempDir dir;
  StoreConnectionPtr db = NewStore(dir);
  std::string employer = AddRow(db, "Mandanten", {{"Name", "Muster GmbH"}});
  ManagerPtr manager = OpenSession(db);

  // A session on the store with the employer selected, in March 2024.
  ManagerPtr OpenSession(const StoreConnectionPtr& store, std::int16_t year = 2024, std::int16_t month = 3) {
    auto session = clsManager::Create();
    session->SetAktDB(store);
    session->AktJahr = year;
    session->AktMonat = month;
    session->ChangeAktMandant(employer);
    return session;
  }
  // A second session on the same file, as another program run would see it.
  ManagerPtr ReopenedSession(std::int16_t year = 2024, std::int16_t month = 3) {
    return OpenSession(StoreConnection::Open(db->Session().StorePath()), year, month);
  }

  std::string AddEmployee(const std::string& family_name, std::int16_t personalnummer = 0,
                          const std::string& employer_id = "") {
    return AddRow(db, "Mitarbeiter",
                  {{"MandantenID", employer_id.empty() ? employer : employer_id},
                   {"Familienname", family_name},
                   {"Personalnummer", personalnummer}});
  }
  void AddStep(const std::string& employee, int schritt, Date datum) {
    AddRow(db, "Mitarbeiter_Laufbahn", {{"MitarbeiterID", employee}, {"Schritt", schritt}, {"Datum", datum}});
  }
  std::string AddPayRow(const std::string& employee, std::int32_t zeitraum) {
    return AddRow(db, "Mitarbeiter_Lohnzettel", {{"MitarbeiterID", employee}, {"Zeitraum", zeitraum}});
  }
  // A loaded employee object of the session, outside the list.
  std::shared_ptr<LLohn> Loaded(const ManagerPtr& session, const std::string& id) {
    auto lohn = std::make_shared<LLohn>();
    lohn->LoadMitarbeiter(*session, id, 1);
    return lohn;
  }
  // One column of one row, as stored.
  Variant Stored(const std::string& table, const std::string& where, const std::string& column) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where);
    return rs->Fields(column).ValueOrEmpty();
  }
  // Makes the store refuse to insert or change a row of the table for which the
  // condition on NEW holds, so that a save fails at the step that writes such a value.
  void RefuseRows(const std::string& table, const std::string& condition) {
    test::RefuseRows(db, table, condition);
  }
  Variant PayColumn(const std::string& employee, std::int32_t zeitraum, const std::string& column) {
    return Stored("Mitarbeiter_Lohnzettel",
                  "[MitarbeiterID]=" + ValueHelpers::SqlID(employee) + " AND [Zeitraum]=" + std::to_string(zeitraum),
                  column);
  }
};

}  // namespace ormelix::test
