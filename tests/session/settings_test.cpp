// The settings table of the store.
#include <gtest/gtest.h>

#include "ormelix/error.h"
#include "ormelix/session/manager.h"
#include "ormelix/session/messages.h"
#include "ormelix/session/settings.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class SettingsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetMessageSink([this](const std::string& message) { messages.push_back(message); });
    manager->SetAktDB(db);
  }
  void TearDown() override { SetMessageSink(nullptr); }

  clsSettings& settings() { return *manager->Settings(); }

  std::vector<std::string> messages;
  test::TempDir dir;
  StoreConnectionPtr db = test::NewStore(dir);
  std::shared_ptr<clsManager> manager = clsManager::Create();
};

TEST_F(SettingsTest, ValuesKeepTheirTypes) {
  settings().SetValue("Druck", "Kopien", Variant(3));
  settings().SetValue("Druck", "Rand", Variant(1.25));
  settings().SetValue("Druck", "Drucker", Variant("Büro"));
  settings().SetValue("Druck", "Farbe", Variant(true));
  EXPECT_EQ(settings().GetValue("Druck", "Kopien"), Variant(3));
  EXPECT_EQ(settings().GetValue("Druck", "Rand"), Variant(1.25));
  EXPECT_EQ(settings().GetValue("Druck", "Drucker"), Variant("Büro"));
  EXPECT_EQ(settings().GetValue("Druck", "Farbe"), Variant(-1));  // booleans are -1/0 in the store
  EXPECT_TRUE(messages.empty());
}

TEST_F(SettingsTest, AMissingKeyGivesTheDefaultInItsOwnType) {
  EXPECT_EQ(settings().GetValue("X", "Y", Variant(2.5)), Variant(2.5));
  EXPECT_EQ(settings().GetValue("X", "Y", Variant("text")), Variant("text"));
  EXPECT_TRUE(settings().GetValue("X", "Y").IsEmpty());
  EXPECT_FALSE(settings().ExistValue("X", "Y"));
}

TEST_F(SettingsTest, SetValueOnAnExistingRowChangesTheValueOnly) {
  settings().SetValue("S", "F", Variant(1), "Sub");
  settings().SetValue("S", "F", Variant(2), "Sub");
  EXPECT_EQ(test::CountRows(db, "Settings"), 1);
  EXPECT_EQ(settings().GetValue("S", "F", {}, "Sub"), Variant(2));
}

TEST_F(SettingsTest, WithoutASubFieldAnyRowOfSectionAndFieldMatches) {
  settings().SetValue("S", "F", Variant("first"), "A");
  settings().SetValue("S", "F", Variant("second"), "B");
  EXPECT_TRUE(settings().ExistValue("S", "F"));
  EXPECT_EQ(settings().GetValue("S", "F"), Variant("first"));
  EXPECT_EQ(settings().GetValue("S", "F", {}, "B"), Variant("second"));
  EXPECT_FALSE(settings().ExistValue("S", "F", "C"));
  settings().SetValue("S", "F", Variant("changed"));  // changes the first row, adds none
  EXPECT_EQ(test::CountRows(db, "Settings"), 2);
  EXPECT_EQ(settings().GetValue("S", "F", {}, "A"), Variant("changed"));
  settings().DeleteValue("S", "F", "B");
  EXPECT_FALSE(settings().ExistValue("S", "F", "B"));
  EXPECT_TRUE(settings().ExistValue("S", "F", "A"));
}

TEST_F(SettingsTest, ANullValueComesBackAsNullNotAsTheDefault) {
  settings().SetValue("S", "Leer", Variant::NullValue());
  EXPECT_TRUE(settings().GetValue("S", "Leer", Variant(7)).IsNull());
}

TEST_F(SettingsTest, EachAccessSeesWhatAnotherProgramWrote) {
  auto other = StoreConnection::Open(db->Session().StorePath());
  EXPECT_FALSE(settings().ExistValue("Shared", "Key"));
  auto rs = other->Session().OpenRecordset("SELECT * FROM [Settings]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  rs->Collect("Sections", "Shared");
  rs->Collect("Fields", "Key");
  rs->Collect("Values", 42);
  rs->Update();
  rs->Close();
  EXPECT_EQ(settings().GetValue("Shared", "Key"), Variant(42));
}

TEST_F(SettingsTest, AQuoteInANameBreaksTheFilterAndIsRaised) {
  EXPECT_THROW(settings().SetValue("O'Brien", "F", Variant(1)), StoreError);
  EXPECT_EQ(test::CountRows(db, "Settings"), 0);
}

TEST(SettingsWithoutStore, NoDatabaseGivesEmptyAndDoesNothing) {
  clsSettings settings;
  EXPECT_TRUE(settings.GetValue("S", "F", Variant(5)).IsEmpty());
  EXPECT_FALSE(settings.ExistValue("S", "F"));
  EXPECT_NO_THROW(settings.SetValue("S", "F", Variant(1)));
  EXPECT_NO_THROW(settings.DeleteValue("S", "F"));
  EXPECT_FALSE(settings.OpenSettings());
}

TEST(SettingsWithoutTable, AFailureToOpenIsShownWordForWordAndTheOperationGoesOn) {
  std::vector<std::string> messages;
  SetMessageSink([&](const std::string& message) { messages.push_back(message); });
  test::TempDir dir;
  auto reference = test::NewStore(dir, StoreKind::Reference);  // has no Settings table
  auto manager = clsManager::Create();
  manager->SetAktDB(reference);
  ASSERT_EQ(messages.size(), 1u);
  if (test::OnPostgres()) {  // the server's words, its SQLSTATE and the server
    EXPECT_EQ(messages[0].rfind("Beim Öffnen der Settings Tabelle ist ein Fehler aufgetreten.\n\nFehler: 0, relation "
                                "\"Settings\" does not exist (SQLSTATE 42P01, server ",
                                0),
              0u)
        << messages[0];
  } else {
    EXPECT_EQ(messages[0],
              "Beim Öffnen der Settings Tabelle ist ein Fehler aufgetreten.\n\nFehler: 1, no such table: Settings");
  }
  EXPECT_FALSE(manager->Settings()->ExistValue("S", "F"));
  EXPECT_EQ(messages.size(), 2u);
  SetMessageSink(nullptr);
}

}  // namespace
