// The L16 fields of a child over a span of months: country, who draws the family
// allowance, and the first and last months of the whole and the half bonus, with
// the end at 18 and the open end of the span.
#include <gtest/gtest.h>

#include <vector>

#include "children_fixture.h"

using namespace ormelix;

namespace {

class L16Test : public test::ChildrenTest {
 protected:
  // "True A KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0": the result and every output.
  static std::string L16(const LLohn_Kind& child, std::int32_t von, std::int32_t bis) {
    std::string staat = "nicht gesetzt";
    bool wechsel = true, afbz = true, apfb = true, auhz = true;
    std::int16_t bg = -1, eg = -1, bh = -1, eh = -1;
    const bool result = child.GetL16Daten(von, bis, staat, wechsel, afbz, apfb, auhz, bg, eg, bh, eh);
    return std::string(result ? "True" : "False") + " '" + staat + "' KSTWE=" + std::to_string(wechsel) +
           " KAFBZ=" + std::to_string(afbz) + " KAPFB=" + std::to_string(apfb) + " KAUHZ=" + std::to_string(auhz) +
           " G" + std::to_string(bg) + "-" + std::to_string(eg) + " H" + std::to_string(bh) + "-" + std::to_string(eh);
  }
};

TEST_F(L16Test, TheFieldsOfASpanAcrossTurning18AndTheOpenEnd) {
  const Date child = D(2010, 1, 1);
  struct Case {
    const char* what;
    Variant birth;
    std::vector<Entry> entries;
    std::int32_t von, bis;
    const char* expected;
  } cases[] = {
      {"no entries", child, {}, 202001, 202012, "False '' KSTWE=0 KAFBZ=0 KAPFB=0 KAUHZ=0 G0-0 H0-0"},
      {"an entry before the span counts from its first month, open to its last", child, {{.zeitraum = 201901}},
       202001, 202012, "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
      {"whole, then half", child, {{.zeitraum = 202003, .fabo = 1}, {.zeitraum = 202007, .fabo = 2}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G3-6 H7-12"},
      {"the bonus ends with the month before an entry without one",
       child, {{.zeitraum = 202001}, {.zeitraum = 202005, .fabo = 0}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-4 H0-0"},
      {"turning 18 in June ends the bonus", D(2002, 6, 10), {{.zeitraum = 201901}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-6 H0-0"},
      {"turning 18 in June with FABO18", D(2002, 6, 10), {{.zeitraum = 201901, .fabo18 = true}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
      {"turning 18 overrides an end already set, by the last entry's bonus", D(2002, 9, 10),
       {{.zeitraum = 201901, .fabo = 2}, {.zeitraum = 202003, .fabo = 1}, {.zeitraum = 202007, .fabo = 2}}, 202001,
       202012, "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G3-6 H1-9"},
      {"turning 18 in the last month: the open end", D(2002, 12, 10), {{.zeitraum = 201901}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
      {"turned 18 before the span: its month still stands as the end", D(2000, 3, 1), {{.zeitraum = 201901}}, 202001,
       202012, "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-3 H0-0"},
      {"a second period of a kind does not extend the first",
       child, {{.zeitraum = 202001}, {.zeitraum = 202004, .fabo = 0}, {.zeitraum = 202008}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-3 H0-0"},
      {"a change in January gives end month 0, which stays open",
       child, {{.zeitraum = 202006, .fabo = 1}, {.zeitraum = 202101, .fabo = 2}}, 202006, 202105,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G6-0 H1-5"},
      {"countries A, D, A", child,
       {{.zeitraum = 202001, .kfz = "A"}, {.zeitraum = 202004, .kfz = "D"}, {.zeitraum = 202008, .kfz = "A"}}, 202001,
       202012, "True 'A' KSTWE=1 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
      {"'a' after 'A' is another country", child, {{.zeitraum = 202001, .kfz = "A"}, {.zeitraum = 202004, .kfz = "a"}},
       202001, 202012, "True 'a' KSTWE=1 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
      {"a second country only without entitlement is no change", child,
       {{.zeitraum = 202001, .kfz = "A"}, {.zeitraum = 202005, .fabo = 0, .kfz = "D"}}, 202001, 202012,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-4 H0-0"},
      {"who draws the allowance: the last entry with entitlement", child,
       {{.zeitraum = 202001, .fb = 1}, {.zeitraum = 202006, .fb = 3, .fabo = 2}, {.zeitraum = 202009, .fb = 0}},
       202001, 202012, "True 'A' KSTWE=0 KAFBZ=0 KAPFB=0 KAUHZ=1 G1-5 H6-8"},
      {"values outside the enumerations count, but set nothing", child, {{.zeitraum = 202001, .fb = 5, .fabo = 4}},
       202001, 202012, "True 'A' KSTWE=0 KAFBZ=0 KAPFB=0 KAUHZ=0 G0-0 H0-0"},
      {"only entries after the span", child, {{.zeitraum = 202101}}, 202001, 202012,
       "False '' KSTWE=0 KAFBZ=0 KAPFB=0 KAUHZ=0 G0-0 H0-0"},
      // Bad input is taken as it stands: no crash, and the walk's rules hold.
      {"a span whose end lies before its start", child, {{.zeitraum = 201901}}, 202006, 202003,
       "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G6-3 H0-0"},
      {"no birth date: 18 in December 1917, so the bonus ends in a December", Variant::NullValue(),
       {{.zeitraum = 201901}}, 202001, 202006, "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    db->Session().ExecuteSql("DELETE * FROM [Mitarbeiter_Kinder]");
    const std::string kid = Child("Lukas", c.birth);
    for (const Entry& e : c.entries) AddEntry(kid, e);
    EXPECT_EQ(L16(*Kinder()->Item(1), c.von, c.bis), c.expected);
  }
}

TEST_F(L16Test, OnlyTheChildsOwnEntriesCount) {
  const std::string lukas = Child("Lukas", D(2007, 8, 21));
  const std::string marie = Child("Marie", D(2019, 5, 10));
  AddEntries(lukas, {{.zeitraum = 202401, .fabo = 1}, {.zeitraum = 202503, .fabo = 2}});
  AddEntries(marie, {{.zeitraum = 202401, .fb = 2, .kfz = "D"}});
  auto kinder = Kinder();
  EXPECT_EQ(L16(*kinder->Item(Variant(lukas)), 202501, 202512), "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-2 H3-8");
  EXPECT_EQ(L16(*kinder->Item(Variant(marie)), 202501, 202512), "True 'D' KSTWE=0 KAFBZ=0 KAPFB=1 KAUHZ=0 G1-12 H0-0");
  EXPECT_EQ(L16(*kinder->Item(Variant(lukas)), 202401, 202412), "True 'A' KSTWE=0 KAFBZ=1 KAPFB=0 KAUHZ=0 G1-12 H0-0");
}

}  // namespace
