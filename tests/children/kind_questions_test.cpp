// The three questions a child answers for the current period: since when the
// sole-earner allowance has run (Eingang), from when the child supplement runs
// (ZUab), and since when the entitlement has been off (Abgang).
#include <gtest/gtest.h>

#include <vector>

#include "children_fixture.h"

using namespace ormelix;

namespace {

class KindQuestionsTest : public test::ChildrenTest {};

TEST_F(KindQuestionsTest, EingangZUabAndAbgangForThePeriodOfTheSession) {
  struct Case {
    const char* what;
    std::vector<Entry> entries;
    std::int32_t period;
    std::int32_t eingang;
    bool avae;
    std::int32_t zuab;
    std::int32_t abgang;
  } cases[] = {
      {"no entries", {}, 202003, 0, true, 0, 0},
      {"only entry after the period, with AVAB", {{.zeitraum = 202006, .zuschlag_ab = 202007}}, 202003, 202006, true,
       202007, 0},
      {"only entry after the period, without AVAB", {{.zeitraum = 202006, .avab = false}}, 202003, 0, false, 0, 0},
      {"the earliest AVAB back to the start",
       {{.zeitraum = 201901, .zuschlag_ab = 201902}, {.zeitraum = 201906, .avab = false}, {.zeitraum = 202001}},
       202003, 201901, true, 0, 201906},
      {"the earliest AVAB since the last loss",
       {{.zeitraum = 201901}, {.zeitraum = 201906, .fb = 0, .avab = false}, {.zeitraum = 202001, .zuschlag_ab = 202002}},
       202003, 202001, true, 202002, 201906},
      {"a loss in force", {{.zeitraum = 201901}, {.zeitraum = 202001, .fb = 0, .fabo = 0}}, 202003, 0, false, 0, 202001},
      {"a loss still after the period", {{.zeitraum = 201901, .zuschlag_ab = 201903}, {.zeitraum = 202006, .fb = 0}},
       202003, 201901, true, 201903, 0},
      {"an entry without AVAB is passed over", {{.zeitraum = 201901}, {.zeitraum = 202001, .avab = false, .zuschlag_ab = 202005}},
       202003, 201901, true, 202005, 202001},
      {"a supplement month before the entry is kept as stored", {{.zeitraum = 202001, .zuschlag_ab = 201801}}, 202003,
       202001, true, 201801, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder_ZB]");
    db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder]");
    const std::string kid = Child("Lukas", D(2012, 4, 1));
    for (const Entry& e : c.entries) AddEntry(kid, e);
    At(c.period);
    auto child = Kinder()->Item(1);
    bool avae = !c.avae;
    EXPECT_EQ(child->Eingang(avae), c.eingang);
    EXPECT_EQ(avae, c.avae);
    EXPECT_EQ(child->ZUab(), c.zuab);
    EXPECT_EQ(child->Abgang(), c.abgang);
  }
}

TEST_F(KindQuestionsTest, TheQuestionsFollowTheSessionsPeriodWithoutAReload) {
  const std::string kid = Child("Lukas", D(2012, 4, 1));
  AddEntries(kid, {{.zeitraum = 202001, .zuschlag_ab = 202001}, {.zeitraum = 202301, .fb = 0, .avab = false}});
  At(202212);
  auto child = Kinder()->Item(1);
  EXPECT_EQ(child->Abgang(), 0);
  At(202301);
  EXPECT_EQ(child->Abgang(), 202301);
  bool avae = true;
  EXPECT_EQ(child->Eingang(avae), 0);
  EXPECT_FALSE(avae);
}

}  // namespace
