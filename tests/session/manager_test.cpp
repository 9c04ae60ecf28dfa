// The session: taking, closing and reopening stores, selecting employer and employee.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/error.h"
#include "ormelix/session/manager.h"
#include "ormelix/session/messages.h"
#include "ormelix/session/settings.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class ManagerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetMessageSink([this](const std::string& message) { messages.push_back(message); });
  }
  void TearDown() override { SetMessageSink(nullptr); }

  test::TempDir dir;
  std::vector<std::string> messages;
};

TEST_F(ManagerTest, CreationMakesTheChildrenAndTouchesNoDatabase) {
  auto manager = clsManager::Create();
  EXPECT_TRUE(manager->Settings());
  EXPECT_TRUE(manager->Mitarbeiter());
  EXPECT_TRUE(manager->Basis());
  EXPECT_TRUE(manager->Länder());
  EXPECT_FALSE(manager->AktMandant());
  EXPECT_FALSE(manager->AktDB());
  EXPECT_FALSE(manager->IsOpenDatabase());
  EXPECT_EQ(manager->AktDBPath(), "");
  EXPECT_EQ(manager->AktMitarbeiterID, "");
  EXPECT_EQ(manager->AktMitarbeiterIndex, 0);
  EXPECT_THROW(manager->ImportDBPath(), Error);  // no reference database at all
  EXPECT_TRUE(messages.empty());
}

TEST_F(ManagerTest, SettingAktDBDropsImportDBAndOpenAktDBKeepsIt) {
  auto manager = clsManager::Create();
  auto payroll = test::NewStore(dir);
  auto reference = test::NewStore(dir, StoreKind::Reference);
  manager->SetAktDB(payroll);
  manager->SetImportDB(reference);
  EXPECT_EQ(manager->ImportDBPath(), reference->Session().StorePath());
  auto other = test::NewStore(dir);
  manager->OpenAktDB(other);
  EXPECT_EQ(manager->ImportDB(), reference);
  EXPECT_FALSE(payroll->Session().IsOpen());  // the store held before was closed
  auto third = test::NewStore(dir);
  manager->SetAktDB(third);
  EXPECT_FALSE(manager->ImportDB());
  EXPECT_FALSE(other->Session().IsOpen());  // teardown closes the old store
  EXPECT_TRUE(messages.empty()) << messages.front();
}

TEST_F(ManagerTest, CloseAndReopenTheSameFile) {
  auto manager = clsManager::Create();
  manager->CloseAktDB();  // never opened: nothing happens
  EXPECT_THROW(manager->OpenAktDB(), Error);  // nothing to reopen yet
  auto db = test::NewStore(dir);
  std::string path = db->Session().StorePath();
  manager->OpenAktDB(db);
  EXPECT_TRUE(manager->IsOpenDatabase());
  EXPECT_EQ(manager->AktDBPath(), path);
  manager->Settings()->SetValue("Druck", "Drucker", Variant("HP"));
  manager->CloseAktDB();
  manager->CloseAktDB();  // twice is harmless
  EXPECT_FALSE(manager->IsOpenDatabase());
  EXPECT_EQ(manager->AktDBPath(), "");
  EXPECT_EQ(manager->AktDB(), db);  // stays set for the reopen
  manager->OpenAktDB();
  EXPECT_TRUE(manager->IsOpenDatabase());
  EXPECT_EQ(manager->AktDBPath(), path);
  EXPECT_EQ(manager->Settings()->GetValue("Druck", "Drucker").AsText(), "HP");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ManagerTest, TheEndOfTheSessionClosesTheStore) {
  auto db = test::NewStore(dir);
  {
    auto manager = clsManager::Create();
    manager->SetAktDB(db);
    EXPECT_TRUE(db->Session().IsOpen());
  }
  EXPECT_FALSE(db->Session().IsOpen());
}

TEST_F(ManagerTest, ChildrenOutlivingTheSessionFailCleanly) {
  std::shared_ptr<clsMitarbeiter> list;
  {
    auto manager = clsManager::Create();
    list = manager->Mitarbeiter();
  }
  EXPECT_EQ(list->Count(), 0);
  EXPECT_EQ(list->Item(Variant("")), list->Item(Variant("no id")));  // the blank employee
}

TEST_F(ManagerTest, ChangeAktMandantLoadsReusesAndDrops) {
  auto db = test::NewStore(dir);
  auto manager = clsManager::Create();
  manager->SetAktDB(db);
  // A saved employer has a provision-fund row, whose load reads the reference store.
  manager->SetImportDB(test::NewStore(dir, StoreKind::Reference));
  // An employer object without an ID would overwrite the first row of a table
  // with rows, so the second employer's row is put in first and then saved.
  clsMandant a, b;
  a.InitLohnDB(db);
  a.Name = "A GmbH";
  a.Update();
  b.InitLohnDB(db);
  ASSERT_TRUE(b.LoadMandant(test::AddRow(db, "Mandanten"), false));
  b.Name = "B KG";
  b.Update();

  manager->ChangeAktMandant(a.ID());
  auto employer = manager->AktMandant();
  ASSERT_TRUE(employer);
  EXPECT_EQ(employer->Name, "A GmbH");
  manager->ChangeAktMandant(b.ID());
  EXPECT_EQ(manager->AktMandant(), employer);  // the same object, with B's data
  EXPECT_EQ(employer->Name, "B KG");
  EXPECT_EQ(employer->ID(), b.ID());

  manager->ChangeAktMandant(ValueHelpers::NewID());  // not in the store: nothing changes
  EXPECT_EQ(employer->Name, "B KG");
  EXPECT_EQ(employer->ID(), b.ID());

  manager->ChangeAktMandant("");
  EXPECT_FALSE(manager->AktMandant());
  manager->ChangeAktMandant(a.ID());
  EXPECT_NE(manager->AktMandant(), employer);  // a new object after a drop
  EXPECT_EQ(manager->AktMandant()->Jahr(), 0);
  EXPECT_EQ(manager->AktMandant()->Name, "A GmbH");
}

TEST_F(ManagerTest, ChangeAktMitarbeiter) {
  auto manager = clsManager::Create();
  manager->AktMitarbeiterIndex = 4;
  std::string unknown = ValueHelpers::NewID();
  try {
    manager->ChangeAktMitarbeiter(unknown);
    FAIL() << "an ID that is not in the list must fail";
  } catch (const KeyNotFound& error) {
    EXPECT_EQ(error.Key(), unknown);
  }
  EXPECT_EQ(manager->AktMitarbeiterID, unknown);  // already set when the lookup failed
  EXPECT_EQ(manager->AktMitarbeiterIndex, 4);
  manager->ChangeAktMitarbeiter("");
  EXPECT_EQ(manager->AktMitarbeiterID, "");
  EXPECT_EQ(manager->AktMitarbeiterIndex, 0);
}

TEST_F(ManagerTest, DevelopmentModeComesFromTheUsersIniFile) {
  const char* old = std::getenv("XDG_CONFIG_HOME");
  std::string saved = old ? old : "";
  setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1);
  auto manager = clsManager::Create();
  EXPECT_EQ(manager->DevelopmentMode(), 0);  // no file
  std::filesystem::create_directories(dir.Path() / "Ormelix");
  {
    std::ofstream ini(dir.Path() / "Ormelix" / "Ormelix.ini");
    ini << "[Other]\nEntwicklungsmodus=5\n\n[Debug]\n Entwicklungsmodus = 1 \n";
  }
  EXPECT_EQ(manager->DevelopmentMode(), 1);
  {
    std::ofstream ini(dir.Path() / "Ormelix" / "Ormelix.ini");
    ini << "[Debug]\nEntwicklungsmodus=ja\n";
  }
  EXPECT_THROW(manager->DevelopmentMode(), ConversionError);
  if (old) setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
  else unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
