// The master record and the bank row: what a load leaves, what a save writes.
#include <gtest/gtest.h>

#include "employee_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class MitarbeiterRecordTest : public test::EmployeeTest {
 protected:
  Variant Column(const std::string& id, const std::string& column) {
    return Stored("Mitarbeiter", "[ID]=" + SqlID(id), column);
  }
};

TEST_F(MitarbeiterRecordTest, ForstarbeiterLandWFCountsOnlyWithForstarbeiterLand) {
  const std::string id = test::AddRow(
      db, "Mitarbeiter", {{"MandantenID", employer}, {"ForstarbeiterLand", false}, {"ForstarbeiterLandWF", true}});
  auto lohn = Loaded(manager, id);
  EXPECT_EQ(lohn->op_ForstarbeiterLandWF, 0);
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_EQ(ToLong(Column(id, "ForstarbeiterLandWF")), 0);  // the next save writes False over it
  db->Session().ExecuteSql("UPDATE [Mitarbeiter] SET [ForstarbeiterLand]=-1, [ForstarbeiterLandWF]=-1");
  lohn->Refresh(*manager, ucTableMitarbeiter);
  EXPECT_EQ(lohn->op_ForstarbeiterLand, -1);
  EXPECT_EQ(lohn->op_ForstarbeiterLandWF, -1);
}

TEST_F(MitarbeiterRecordTest, TheRowIsWrittenInTwoStepsAndTheFirstStaysWhenTheSecondFails) {
  const std::string id = AddEmployee("Vorher");
  auto lohn = Loaded(manager, id);
  lohn->Mitarbeiter()->FName = "Nachher";  // first half
  lohn->Anonymize = true;                  // second half, refused by the store
  RefuseRows("Mitarbeiter", "NEW.\"Anonymize\" <> 0");
  EXPECT_THROW(lohn->Update(*manager, ucTableMitarbeiter), StoreError);
  EXPECT_EQ(ToText(Column(id, "Familienname")), "Nachher");
  EXPECT_EQ(ToLong(Column(id, "Anonymize")), 0);
}

TEST_F(MitarbeiterRecordTest, BasisIDIsStoredAsNullUnlessItIsAnID) {
  const std::string id = AddEmployee("Basis");
  auto lohn = Loaded(manager, id);
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_TRUE(Column(id, "BasisID").IsNull());
  lohn->BasisID = "kein Ordner";
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_TRUE(Column(id, "BasisID").IsNull());
  EXPECT_EQ(Loaded(manager, id)->BasisID, "");
  const std::string folder = NewID();
  lohn->BasisID = folder;
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_EQ(Loaded(manager, id)->BasisID, folder);
}

TEST_F(MitarbeiterRecordTest, SVNRAnforderungsIDIsWrittenInItsSqlIDForm) {
  const std::string id = AddEmployee("Anforderung");
  auto lohn = Loaded(manager, id);
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_EQ(ToText(Column(id, "SVNRAnforderungsID")), SqlID(""));  // an empty one: the ID of no row
  EXPECT_FALSE(DateHelpers::IsID(Column(id, "SVNRAnforderungsID")));
}

TEST_F(MitarbeiterRecordTest, NullsLoadAsEmptyValuesAndADateZeroIsWrittenBackAsZero) {
  const std::string id = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}});
  auto lohn = Loaded(manager, id);
  lohn->Mitarbeiter()->FName = "vorher";
  lohn->Refresh(*manager, ucTableMitarbeiter);
  EXPECT_EQ(lohn->Mitarbeiter()->FName, "");
  EXPECT_EQ(lohn->Mitarbeiter()->Pensionsstichtag, 0);
  EXPECT_EQ(lohn->Geb_Datum, 0);
  EXPECT_TRUE(Column(id, "Geburtsdatum").IsNull());
  lohn->Update(*manager, ucTableMitarbeiter);
  for (const char* column : {"Geburtsdatum", "Pensionsstichtag", "Arbeitsbewilligung_Bis"}) {
    EXPECT_FALSE(Column(id, column).IsNull()) << column;
    EXPECT_EQ(ToDate(Column(id, column)), 0) << column;
  }
}

TEST_F(MitarbeiterRecordTest, ForstarbeiterKULKIsReadAsANumberAndWrittenAsAFlag) {
  const std::string id = AddEmployee("Forst");
  auto lohn = Loaded(manager, id);
  lohn->op_ForstarbeiterKULK = 5;
  lohn->Update(*manager, ucTableMitarbeiter);
  EXPECT_EQ(ToLong(Column(id, "ForstarbeiterKULK")), -1);
  EXPECT_EQ(Loaded(manager, id)->op_ForstarbeiterKULK, -1);
}

TEST_F(MitarbeiterRecordTest, SavingAnEmployeeWhoseRowHasGoneInsertsNothing) {
  const std::string id = AddEmployee("Weg");
  auto lohn = Loaded(manager, id);
  db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter]");
  lohn->Mitarbeiter()->FName = "Wieder da?";
  EXPECT_NO_THROW(lohn->Update(*manager, ucTableMitarbeiter));
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter"), 0);
  auto missing = Loaded(manager, id);  // a load finding no row leaves the object
  EXPECT_EQ(missing->Mitarbeiter()->FName, "");
}

TEST_F(MitarbeiterRecordTest, TheFirstBankSaveCreatesTheRowAndLaterOnesChangeIt) {
  const std::string id = AddEmployee("Bank");
  auto lohn = Loaded(manager, id);
  lohn->BankName = "Erste Bank";
  lohn->IBAN = "AT611904300234573201";
  lohn->Barauszahler = true;
  lohn->Update(*manager, ucTableBankverbindung);
  lohn->BIC = "GIBAATWWXXX";
  lohn->Update(*manager, ucTableBankverbindung);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Bankverbindung"), 1);
  EXPECT_EQ(ToText(Stored("Mitarbeiter_Bankverbindung", "[MitarbeiterID]=" + SqlID(id), "BIC")), "GIBAATWWXXX");
  auto reloaded = Loaded(manager, id);
  EXPECT_EQ(reloaded->BankName, "Erste Bank");
  EXPECT_EQ(reloaded->IBAN, "AT611904300234573201");
  EXPECT_TRUE(reloaded->Barauszahler);
}

}  // namespace
