// A store one network away: a pay month's save (the pay row, its replacement
// benefits, its short-time row) waits for the server three times however many
// statements it sends; a statement refused in the middle keeps what came before
// it, as on SQLite; a connection lost in the middle of a save leaves the rows as
// they were, and one lost in the middle of a load's read-ahead fails the load
// naming the server and the statement, with the employees read before it in the
// list.
#include <gtest/gtest.h>

#include "employee_fixture.h"
#include "ormelix/benefits/ersatzleistungen.h"
#include "ormelix/error.h"
#include "ormelix/shorttime/kurzarbeit.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class ServerSaveTest : public test::EmployeeTest {
 protected:
  std::string id = test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Neuanlage", -1}});
  std::string row = AddPayRow(id, 202403);

  std::shared_ptr<LLohn> WithBenefits(int count) {
    auto lohn = Loaded(manager, id);
    for (int n = 0; n < count; ++n) {
      auto benefit = std::make_shared<LLohn_Ersatzleistung>();
      benefit->Zeitraum = 202404 + n;
      lohn->SV_EL_Laufend(3)->Add(benefit);
    }
    return lohn;
  }
  std::uint64_t Waits(const std::function<void()>& action) {
    const std::uint64_t before = detail::RoundTrips(db->Session());
    action();
    return detail::RoundTrips(db->Session()) - before;
  }
  std::string Location() const { return db->Session().StorePath(); }
  // Terminates the session's own connection from the server's side when a row of
  // the table is written.
  void TerminateOnWrite(const std::string& table) {
    test::RunOnServer(Location(),
                      "CREATE OR REPLACE FUNCTION end_session() RETURNS trigger LANGUAGE plpgsql AS "
                      "$$BEGIN PERFORM pg_terminate_backend(pg_backend_pid()); RETURN NEW; END$$");
    test::RunOnServer(Location(), "CREATE TRIGGER end_session BEFORE INSERT OR UPDATE ON \"" + table +
                                      "\" FOR EACH ROW EXECUTE FUNCTION end_session()");
  }
  static std::string Caught(const std::function<void()>& action) {
    try {
      action();
    } catch (const StoreError& e) {
      return e.what();
    }
    ADD_FAILURE() << "no StoreError";
    return "";
  }
};

TEST_F(ServerSaveTest, AMonthsSaveWaitsForTheServerThreeTimes) {
  if (!test::OnPostgres()) GTEST_SKIP() << "an SQLite store has no server to wait for";
  for (int benefits : {0, 2}) {
    auto lohn = WithBenefits(benefits);
    lohn->Update(*manager, ucTableLohnzettel, 3);  // its statements prepared, its short-time row made
    lohn->Gehalt(3) = 2500.5f + static_cast<float>(benefits);
    lohn->Kurzarbeit(3)->SVBG = 10;
    // The row looked for (with the lock), then its update in three steps, the
    // benefits deleted and inserted and the short-time row looked for, then its
    // update with the commit.
    EXPECT_EQ(Waits([&] { lohn->Update(*manager, ucTableLohnzettel, 3); }), 3u) << benefits << " benefits";
    EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 2500.5 + benefits);
    EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel_EL"), benefits);
    EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel_Kurzarbeit", "[SVBG]=10"), 1);
  }
}

TEST_F(ServerSaveTest, AStatementRefusedInTheMiddleKeepsWhatCameBeforeAndNamesIt) {
  auto lohn = WithBenefits(2);
  lohn->Gehalt(3) = 1234;
  RefuseRows("Mitarbeiter_Lohnzettel_Kurzarbeit", test::OnPostgres() ? "true" : "1");
  const std::string what = Caught([&] { lohn->Update(*manager, ucTableLohnzettel, 3); });
  EXPECT_NE(what.find("refused by the test"), std::string::npos) << what;
  EXPECT_NE(what.find("Mitarbeiter_Lohnzettel_Kurzarbeit"), std::string::npos) << what;
  // The pay row and the benefits were written before it; the short-time row is not.
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 1234);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel_EL"), 2);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel_Kurzarbeit"), 0);
}

TEST_F(ServerSaveTest, AConnectionLostInTheMiddleOfASaveLeavesTheRowsAsTheyWere) {
  if (!test::OnPostgres()) GTEST_SKIP() << "an SQLite store has no connection to lose";
  auto lohn = WithBenefits(2);
  lohn->Update(*manager, ucTableLohnzettel, 3);
  lohn->Gehalt(3) = 999;
  lohn->SV_EL_Laufend(3)->Clear();
  TerminateOnWrite("Mitarbeiter_Lohnzettel_Kurzarbeit");
  const std::string what = Caught([&] { lohn->Update(*manager, ucTableLohnzettel, 3); });
  EXPECT_TRUE(what.find("SQLSTATE 57P01") != std::string::npos || what.find("SQLSTATE 08006") != std::string::npos)
      << what;
  EXPECT_NE(what.find("server " + Location()), std::string::npos) << what;
  // The statement the connection was lost at: the short-time row's, or the
  // commit sent with it (the server ends the connection where it next looks).
  EXPECT_TRUE(what.find("Mitarbeiter_Lohnzettel_Kurzarbeit") != std::string::npos ||
              what.find("[COMMIT]") != std::string::npos)
      << what;
  // Nothing of the save: the pay row and its benefits as they were (a new
  // connection reads them).
  test::RunOnServer(Location(), "DROP TRIGGER end_session ON \"Mitarbeiter_Lohnzettel_Kurzarbeit\"");
  EXPECT_EQ(ToAmount(PayColumn(id, 202403, "Gehalt")), 0);
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_Lohnzettel_EL"), 2);
}

TEST_F(ServerSaveTest, AConnectionLostInTheMiddleOfAReadAheadFailsTheLoadNamingServerAndStatement) {
  if (!test::OnPostgres()) GTEST_SKIP() << "an SQLite store has no connection to lose";
  for (int k = 0; k < 5; ++k) test::AddRow(db, "Mitarbeiter", {{"MandantenID", employer}, {"Neuanlage", -1}});
  auto rs = db->Session().OpenRecordset("SELECT pg_backend_pid() AS [pid]");
  const std::string pid = ToText(rs->Fields("pid"));
  rs->Close();
  manager->Mitarbeiter()->SetReadAhead(2);
  manager->Mitarbeiter()->SetProgress([&](long done, long) {
    if (done == 2) test::RunOnServer(Location(), "SELECT pg_terminate_backend(" + pid + ")");
  });
  const std::string what = Caught([&] { manager->Mitarbeiter()->Load(2024, lcPersonalnummer); });
  EXPECT_TRUE(what.find("SQLSTATE 57P01") != std::string::npos || what.find("SQLSTATE 08006") != std::string::npos)
      << what;
  EXPECT_NE(what.find("server " + Location()), std::string::npos) << what;
  EXPECT_NE(what.find("(the keys read ahead)"), std::string::npos) << what;
  EXPECT_EQ(manager->Mitarbeiter()->Count(), 2);  // those read ahead before, loaded whole
  manager->Mitarbeiter()->SetProgress({});
  manager->Mitarbeiter()->Load(2024, lcPersonalnummer);  // the next load connects anew
  EXPECT_EQ(manager->Mitarbeiter()->Count(), 6);
}

}  // namespace
