// The employer's year data: loaded only by a change of year, kept over a year
// without a row, and saved only as a new row.
#include "employer_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class JahresdatenTest : public test::EmployerTest {
 protected:
  std::string AddYear(const std::string& employer, int year, int bundesland) {
    return test::AddRow(db, "Mandanten_Jahresdaten",
                        {{"MandantenID", employer},
                         {"Jahr", year},
                         {"SVAbgabe_Geringfuegig_am_Jahresende", true},
                         {"MVAbgabe_Geringfuegig_am_Jahresende", false},
                         {"DZBundesland", bundesland},
                         {"DBSenkung", true},
                         {"Abrechnungsart", 2}});
  }
};

TEST_F(JahresdatenTest, OnlyAChangeOfYearLoadsAndAYearWithoutRowKeepsTheYearBefore) {
  auto session = Session(first);
  auto& employer = *session->AktMandant();
  auto year = employer.Jahresdaten();
  std::string row2024 = AddYear(first, 2024, 9);
  session->ChangeAktMandant(first);  // a full load does not touch the year data
  EXPECT_EQ(year->ID, "");
  EXPECT_EQ(year->Jahr(), 0);

  employer.ChangeYear(2023);  // first change into a year without a row
  EXPECT_EQ(year->ID, "");
  EXPECT_EQ(year->DZBundesland, 0);
  EXPECT_EQ(year->Jahr(), 2023);

  employer.ChangeYear(2024);
  EXPECT_EQ(year->ID, row2024);
  EXPECT_TRUE(year->SVAbgabe_GF_am_Jahresende);
  EXPECT_FALSE(year->MVAbgabe_GF_am_Jahresende);
  EXPECT_EQ(year->DZBundesland, 9);
  EXPECT_TRUE(year->DBSenkung);
  EXPECT_EQ(year->Abrechnungsart, eMAVorschreibebetrieb);

  employer.ChangeYear(2025);  // no row: the values and the key of 2024 stay
  EXPECT_EQ(year->ID, row2024);
  EXPECT_EQ(year->DZBundesland, 9);
  EXPECT_EQ(year->Jahr(), 2025);

  session->ChangeAktMandant(second);  // another employer still shows this year data
  EXPECT_EQ(year->ID, row2024);
}

TEST_F(JahresdatenTest, ANewRowGetsEmployerAndYearAndALoadedRowCannotBeSaved) {
  auto session = Session(first);
  auto& employer = *session->AktMandant();
  employer.ChangeYear(2024);
  auto year = employer.Jahresdaten();
  year->DZBundesland = 9;
  year->Abrechnungsart = eMASelbstabrechner;
  year->MVAbgabe_GF_am_Jahresende = true;
  ASSERT_TRUE(year->Update(&employer));
  std::string where = "[ID]=" + year->ID;
  EXPECT_EQ(Stored("Mandanten_Jahresdaten", where, "MandantenID"), Variant(first));
  EXPECT_EQ(ValueHelpers::ToInteger(Stored("Mandanten_Jahresdaten", where, "Jahr")), 2024);
  EXPECT_EQ(ValueHelpers::ToLong(Stored("Mandanten_Jahresdaten", where, "Abrechnungsart")), 1);
  EXPECT_TRUE(ValueHelpers::ToFlag(Stored("Mandanten_Jahresdaten", where, "MVAbgabe_Geringfuegig_am_Jahresende")));

  auto later = Session(first);
  later->AktMandant()->ChangeYear(2024);
  auto loaded = later->AktMandant()->Jahresdaten();
  EXPECT_EQ(loaded->DZBundesland, 9);
  EXPECT_EQ(loaded->Abrechnungsart, eMASelbstabrechner);
  loaded->DZBundesland = 3;
  try {
    loaded->Update(later->AktMandant().get());
    FAIL() << "the statement was accepted";
  } catch (const StoreError& error) {
    EXPECT_NE(error.Subject().find("SELECT * FROM [Mandanten_Jahresdaten] WHERE [ID]=" + year->ID + " [Jahr]=2024"),
              std::string::npos)
        << error.Subject();
  }
  EXPECT_EQ(ValueHelpers::ToInteger(Stored("Mandanten_Jahresdaten", where, "DZBundesland")), 9);
}

TEST_F(JahresdatenTest, ARecordWithoutKeyOverwritesTheFirstRowAndLeavesItsYear) {
  std::string other = AddYear(second, 2023, 1);
  auto session = Session(first);
  auto& employer = *session->AktMandant();
  employer.ChangeYear(2025);
  employer.Jahresdaten()->DZBundesland = 5;
  ASSERT_TRUE(employer.Jahresdaten()->Update(&employer));
  EXPECT_EQ(employer.Jahresdaten()->ID, other);
  EXPECT_EQ(test::CountRows(db, "Mandanten_Jahresdaten"), 1);
  EXPECT_EQ(ValueHelpers::ToInteger(Stored("Mandanten_Jahresdaten", Of(second), "Jahr")), 2023);
  EXPECT_EQ(ValueHelpers::ToInteger(Stored("Mandanten_Jahresdaten", Of(second), "DZBundesland")), 5);
}

}  // namespace
