// A PostgreSQL store reached over a network (a relay on 127.0.0.1 that holds
// back what passes it): a server or network that stops answering fails the
// statement after the statement timeout, with a message that says so and names
// the statement and the server, never a hang; the next statement connects anew.
// Runs in the PostgreSQL run only.
#include <gtest/gtest.h>

#include <chrono>

#include "latency_relay.h"
#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

class ServerNetwork : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!test::OnPostgres()) GTEST_SKIP() << "a test of the PostgreSQL run";
    db = test::NewStore(dir);
    const std::string server = test::TestServer();
    relay = std::make_unique<relay::LatencyRelay>(LocationParameter(server, "host") + "/.s.PGSQL." +
                                                  LocationParameter(server, "port"));
  }
  test::TempDir dir;
  StoreConnectionPtr db;
  std::unique_ptr<relay::LatencyRelay> relay;

  // The store, reached through the relay over TCP.
  std::string ThroughRelay() const {
    return WithLocationParameter(WithLocationParameter(db->Session().StorePath(), "host", "127.0.0.1"), "port",
                                 std::to_string(relay->Port()));
  }
  static long Count(const StoreConnectionPtr& store) { return test::CountRows(store, "Mandanten"); }
};

using Clock = std::chrono::steady_clock;

TEST_F(ServerNetwork, AServerThatStopsAnsweringFailsTheStatementAfterTheTimeoutAndTheNextOneConnectsAnew) {
  test::AddRow(db, "Mandanten", {{"Name", "Eins"}});
  auto remote = StoreConnection::Open(ThroughRelay(), "statement_timeout=400");
  EXPECT_EQ(Count(remote), 1);
  relay->Hold(true);
  const Clock::time_point start = Clock::now();
  try {
    Count(remote);
    ADD_FAILURE() << "a statement was answered by a server that does not answer";
  } catch (const StoreError& e) {
    const std::string what = e.what();
    EXPECT_NE(what.find("did not answer in time"), std::string::npos) << what;
    EXPECT_NE(what.find("400 ms"), std::string::npos) << what;
    EXPECT_NE(what.find("Mandanten"), std::string::npos) << what;  // the statement
    EXPECT_NE(what.find("127.0.0.1"), std::string::npos) << what;  // the server
  }
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
  EXPECT_GE(waited, 390);
  EXPECT_LT(waited, 5000);
  relay->Hold(false);
  test::AddRow(db, "Mandanten", {{"Name", "Zwei"}});
  EXPECT_EQ(Count(remote), 2);  // on a new connection
}

TEST_F(ServerNetwork, ConnectingToAServerThatNeverAnswersFailsAfterTheConnectTimeout) {
  relay->Hold(true);
  const Clock::time_point start = Clock::now();
  try {
    StoreConnection::Open(WithLocationParameter(ThroughRelay(), "connect_timeout", "2"));
    ADD_FAILURE() << "a store opened on a server that does not answer";
  } catch (const StoreError& e) {
    const std::string what = e.what();
    EXPECT_NE(what.find("cannot open store"), std::string::npos) << what;
    EXPECT_NE(what.find("timeout"), std::string::npos) << what;
  }
  EXPECT_LT(std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start).count(), 10);
}

TEST_F(ServerNetwork, StatementsThroughTheRelayAnswerAsDirectOnes) {
  auto remote = StoreConnection::Open(ThroughRelay());
  test::AddRow(remote, "Mandanten", {{"Name", "Über das Netz"}});
  EXPECT_EQ(test::CountRows(db, "Mandanten", "[Name]='über das netz'"), 1);
  EXPECT_GT(detail::RoundTrips(remote->Session()), 0u);
}

}  // namespace
