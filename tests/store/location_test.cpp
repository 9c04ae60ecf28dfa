// Store locations: files and connection strings, and passwords that never show.
#include <gtest/gtest.h>

#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "ormelix/store/store.h"

using namespace ormelix;

namespace {

TEST(Location, FilesAndBothFormsOfConnectionStringAreToldApart) {
  for (const char* server : {"postgres://lohn@db:5432/payroll", "postgresql://db/payroll", "POSTGRES://db",
                             "host=/run/postgresql dbname=payroll", "dbname = payroll"})
    EXPECT_TRUE(IsServerLocation(server)) << server;
  for (const char* file : {"payroll.db", "/tmp/a=b/payroll.db", "./x=1", ":memory:", ""})
    EXPECT_FALSE(IsServerLocation(file)) << file;
}

TEST(Location, APasswordNeverShows) {
  struct Case {
    const char* location;
    const char* shown;
  } const cases[] = {
      {"postgres://lohn:geheim@db:5432/payroll", "postgres://lohn@db:5432/payroll"},
      {"postgres://lohn:ge%40heim@db/payroll?schema=x", "postgres://lohn@db/payroll?schema=x"},
      {"postgres://db/payroll?password=geheim&sslmode=disable", "postgres://db/payroll?sslmode=disable"},
      {"host=db password=geheim dbname=payroll", "host=db dbname=payroll"},
      {"host=db password='ge heim' dbname=payroll", "host=db dbname=payroll"},
      {"payroll.db", "payroll.db"},
  };
  for (const Case& c : cases) EXPECT_EQ(ShownLocation(c.location), c.shown) << c.location;
  EXPECT_EQ(LocationParameter("postgres://lohn:ge%40heim@db/payroll", "password"), "ge@heim");
  EXPECT_EQ(LocationParameter("host=db password='ge heim'", "password"), "ge heim");
}

TEST(Location, ParametersAreSetReplacedAndTakenOut) {
  EXPECT_EQ(WithLocationParameter("postgres://db/payroll", "schema", "ref"), "postgres://db/payroll?schema=ref");
  EXPECT_EQ(WithLocationParameter("postgres://db/p?schema=a&sslmode=disable", "schema", "b"),
            "postgres://db/p?sslmode=disable&schema=b");
  EXPECT_EQ(WithLocationParameter("host=db schema=a", "schema", ""), "host=db");
  EXPECT_EQ(WithLocationParameter("host=db", "options", "-c x=1"), "host=db options='-c x=1'");
  EXPECT_EQ(LocationParameter(WithLocationParameter("host=db", "options", "it's"), "options"), "it's");
  // For libpq itself the schema goes onto the search path, after options it had.
  EXPECT_EQ(LibpqConnectionString("host=db schema=lohn options='-c x=1'"),
            "host=db options='-c x=1 -csearch_path=lohn'");
  EXPECT_EQ(LibpqConnectionString("postgres://db/p?schema=lohn"), "postgres://db/p?options=-csearch_path%3Dlohn");
  EXPECT_EQ(LibpqConnectionString("host=db"), "host=db");
}

TEST(Location, AServerThatCannotBeReachedIsAStoreErrorWithoutThePassword) {
  // A socket folder where no server listens.
  std::string location = "host=/nonexistent-ormelix-socket port=5999 dbname=payroll user=lohn password=geheim99";
  try {
    StoreConnection::Open(location);
    FAIL();
  } catch (const StoreError& error) {
    std::string what = error.what();
    EXPECT_EQ(what.find("geheim99"), std::string::npos) << what;
    EXPECT_NE(what.find("host=/nonexistent-ormelix-socket port=5999 dbname=payroll user=lohn"), std::string::npos)
        << what;
    EXPECT_NE(what.find("SQLSTATE 08001"), std::string::npos) << what;
  }
}

}  // namespace
