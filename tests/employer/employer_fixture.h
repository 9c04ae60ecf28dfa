// A payroll store with two employers and a reference store beside it, and
// sessions on them as separate program runs would open them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ormelix/employer/mandant.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

namespace ormelix::test {

class EmployerTest : public ::testing::Test {
 protected:
  TempDir dir;
  StoreConnectionPtr db = NewStore(dir);
  StoreConnectionPtr reference = NewStore(dir, StoreKind::Reference);
  std::string first = AddRow(db, "Mandanten", {{"Name", "Erste GmbH"}});
  std::string second = AddRow(db, "Mandanten", {{"Name", "Zweite KG"}});

  // A new session on both stores with the employer selected.
  ManagerPtr Session(const std::string& employer) {
    auto session = clsManager::Create();
    session->OpenAktDB(StoreConnection::Open(db->Session().StorePath()));
    session->SetImportDB(StoreConnection::Open(reference->Session().StorePath()));
    session->ChangeAktMandant(employer);
    return session;
  }
  // A column of the only row that the condition selects, as stored.
  Variant Stored(const std::string& table, const std::string& where, const std::string& column) {
    auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where);
    return rs->Fields(column).ValueOrEmpty();
  }
  static std::string Of(const std::string& employer) { return "[MandantenID]=" + ValueHelpers::SqlID(employer); }
};

}  // namespace ormelix::test
