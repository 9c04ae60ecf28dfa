// The monthly questions of the bonus selection: which children count for the family
// bonus and the sole-earner allowance, whose entitlement ended, and whose terms
// changed, each with its own, deliberately unequal test.
#include <gtest/gtest.h>

#include <vector>

#include "children_fixture.h"

using namespace ormelix;

namespace {

class BonusSelectionTest : public test::ChildrenTest {
 protected:
  // A child named after its case, with entries.
  std::string Case(const char* name, Variant birth, std::initializer_list<Entry> entries) {
    const std::string kid = Child(name, birth);
    AddEntries(kid, entries);
    return kid;
  }
};

TEST_F(BonusSelectionTest, TheMonthAChildTurns18StillCountsAndLaterOnesOnlyWithFABO18) {
  struct Age {
    const char* what;
    Variant birth;
    std::int32_t last;  // the last month that counts without FABO18; 0: none
  } ages[] = {
      {"born mid-month", D(2002, 3, 15), 202003},
      {"born on the first", D(2002, 3, 1), 202003},
      {"born on the last of the month", D(2002, 3, 31), 202003},
      {"born on 29 February", D(2004, 2, 29), 202202},
      {"born in the evening: the day number is the next day", D(2002, 3, 31) + 0.75, 202004},
      {"born in the morning", D(2002, 3, 31) + 0.25, 202003},
      {"born on the last of the year", D(2001, 12, 31), 201912},
      {"no birth date", Variant::NullValue(), 0},
  };
  for (const Age& age : ages) {
    SCOPED_TRACE(age.what);
    db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder]");
    const std::string kid = Case("Kind", age.birth, {{.zeitraum = 199901}});
    auto kinder = Kinder();
    if (age.last != 0) {
      EXPECT_EQ(kinder->GetFABOKinder(age.last).Count(), 1);
      EXPECT_EQ(kinder->GetFABOKinderOhneUnterhaltszahler(age.last).Count(), 1);
    }
    const std::int32_t after = age.last == 0 ? 199901 : age.last % 100 == 12 ? age.last + 89 : age.last + 1;
    EXPECT_EQ(kinder->GetFABOKinder(after).Count(), 0) << after;
    db->Session().ExecuteSql("UPDATE [Mitarbeiter_Kinder_ZB] SET [FABO18]=-1 WHERE [KID]=" + kid);
    EXPECT_EQ(kinder->GetFABOKinder(after).Count(), 1) << after;
  }
}

TEST_F(BonusSelectionTest, WhoDrawsTheAllowanceDecidesBetweenTheThreeFamilyBonusLists) {
  Case("eigen-ganz", D(2010, 1, 1), {{.zeitraum = 202001, .fb = 1, .fabo = 1}});
  Case("partner-halb", D(2010, 2, 1), {{.zeitraum = 202001, .fb = 2, .fabo = 2}});
  Case("unterhalt-halb", D(2010, 3, 1), {{.zeitraum = 202001, .fb = 3, .fabo = 2}});
  Case("wegfall", D(2010, 4, 1), {{.zeitraum = 202001, .fb = 0, .fabo = 1}});
  Case("kein-fabo", D(2010, 5, 1), {{.zeitraum = 202001, .fb = 1, .fabo = 0}});
  Case("unbekannt", D(2010, 6, 1), {{.zeitraum = 202001, .fb = 7, .fabo = 1}});
  Case("später", D(2010, 7, 1), {{.zeitraum = 202006, .fb = 1, .fabo = 1}});
  Case("ohne-eintrag", D(2010, 8, 1), {});
  auto kinder = Kinder();
  EXPECT_EQ(Names(kinder->GetFABOKinder(202003)), "eigen-ganz, partner-halb, unterhalt-halb, unbekannt");
  EXPECT_EQ(Names(kinder->GetFABOKinderOhneUnterhaltszahler(202003)), "eigen-ganz, partner-halb, unbekannt");
  EXPECT_EQ(Names(kinder->GetFABOKinderUnterhaltszahler(202003)), "unterhalt-halb");
  // What a question hands out are the children of the list, under their keys.
  auto found = kinder->GetFABOKinder(202003);
  EXPECT_EQ(found.Item(1), kinder->Item(1));
  EXPECT_EQ(found.Item(Variant(kinder->Item(2)->ID)), kinder->Item(2));
}

TEST_F(BonusSelectionTest, ALossOfTheBonusStaysReportedUntilANewerEntry) {
  Case("verloren", D(2000, 1, 1), {{.zeitraum = 202001}, {.zeitraum = 202003, .fb = 3, .fabo = 0}});
  Case("wieder", D(2010, 1, 1), {{.zeitraum = 202001}, {.zeitraum = 202003, .fabo = 0}, {.zeitraum = 202005, .fabo = 2}});
  Case("nie", D(2011, 1, 1), {{.zeitraum = 202001, .fabo = 0}, {.zeitraum = 202003, .fabo = 0}});
  auto kinder = Kinder();
  EXPECT_EQ(Names(kinder->GetFABOKinderWegfall(202002)), "");
  // The age and who draws the allowance play no part: "verloren" is over 18.
  EXPECT_EQ(Names(kinder->GetFABOKinderWegfall(202003)), "verloren, wieder");
  EXPECT_EQ(Names(kinder->GetFABOKinderWegfall(202004)), "verloren, wieder");
  EXPECT_EQ(Names(kinder->GetFABOKinderWegfall(202006)), "verloren");
}

TEST_F(BonusSelectionTest, ChangesAreThoseOfEntriesBeginningInTheMonthEachWithItsOwnTest) {
  Case("fabo", D(2010, 1, 1), {{.zeitraum = 202001, .fabo = 1}, {.zeitraum = 202003, .fabo = 2}});
  Case("bezieher", D(2010, 2, 1), {{.zeitraum = 202001, .fb = 1}, {.zeitraum = 202003, .fb = 2}});
  Case("klein-gross", D(2010, 3, 1), {{.zeitraum = 202001, .kfz = "a"}, {.zeitraum = 202003, .kfz = "A"}});
  Case("gross-klein", D(2010, 4, 1), {{.zeitraum = 202001, .kfz = "A"}, {.zeitraum = 202003, .kfz = "a"}});
  Case("land", D(2010, 5, 1), {{.zeitraum = 202001, .kfz = "A"}, {.zeitraum = 202003, .kfz = "D"}});
  Case("erst", D(2010, 6, 1), {{.zeitraum = 202003, .kfz = "D"}});
  Case("vorher-ohne-fabo", D(2010, 7, 1), {{.zeitraum = 202001, .fabo = 0}, {.zeitraum = 202003, .kfz = "D"}});
  // The family bonus asks nothing of who draws the allowance now: a bonus with
  // FB_Bezieher Wegfall is a change of FB_Bezieher.
  Case("jetzt-wegfall", D(2010, 8, 1), {{.zeitraum = 202001}, {.zeitraum = 202003, .fb = 0, .kfz = "D"}});
  Case("gleich", D(2010, 9, 1), {{.zeitraum = 202001}, {.zeitraum = 202003}});
  auto kinder = Kinder();
  EXPECT_EQ(Names(kinder->GetFABOKinderAenderung(202003)), "fabo, bezieher, klein-gross, land, jetzt-wegfall");
  EXPECT_EQ(Names(kinder->GetAVAEKinderAenderung(202003)), "land, vorher-ohne-fabo");
  for (std::int32_t other : {202002, 202004}) {
    EXPECT_EQ(Names(kinder->GetFABOKinderAenderung(other)), "") << other;
    EXPECT_EQ(Names(kinder->GetAVAEKinderAenderung(other)), "") << other;
  }
}

TEST_F(BonusSelectionTest, SoleEarnerAllowanceCountsChildrenWithoutEntriesAndLossesOfExactlyTheMonth) {
  Case("mit", D(2010, 1, 1), {{.zeitraum = 202001}});
  Case("ohne-eintrag", D(2010, 2, 1), {});
  Case("ohne-avab", D(2010, 3, 1), {{.zeitraum = 202001}, {.zeitraum = 202003, .avab = false}});
  Case("wegfall", D(2010, 4, 1), {{.zeitraum = 202001}, {.zeitraum = 202003, .fb = 0}});
  Case("erwachsen", D(1990, 1, 1), {{.zeitraum = 202001, .fabo = 0}});  // no age rule here
  auto kinder = Kinder();
  // The children without entries come first, then the list's hits in its order.
  EXPECT_EQ(Names(kinder->GetAVAEKinder(202002)), "ohne-eintrag, erwachsen, mit, ohne-avab, wegfall");
  EXPECT_EQ(Names(kinder->GetAVAEKinder(202003)), "ohne-eintrag, erwachsen, mit");
  EXPECT_EQ(Names(kinder->GetAVAEKinderWegfall(202003)), "ohne-avab, wegfall");
  // A month without an entry of its own reports nothing, even after a loss.
  EXPECT_EQ(Names(kinder->GetAVAEKinderWegfall(202004)), "");
  // A child without entries stands in no other result.
  for (const auto& list : {kinder->GetFABOKinder(202003), kinder->GetFABOKinderWegfall(202003),
                           kinder->GetFABOKinderAenderung(202003), kinder->GetAVAEKinderWegfall(202003),
                           kinder->GetAVAEKinderAenderung(202003)})
    EXPECT_FALSE(list.HasKey(kinder->Item(3)->ID));

  // An entry stored since the load for a child that had none: the child is in the
  // answer once.
  AddEntry(kinder->Item(3)->ID, {.zeitraum = 202001});
  EXPECT_EQ(Names(kinder->GetAVAEKinder(202003)), "ohne-eintrag, erwachsen, mit");
}

}  // namespace
