// The questions the pay calculation asks of a career: the step at a month's
// boundary, entry and suspension months, the position walkers, entries and exits.
#include <gtest/gtest.h>

#include "career_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class LaufbahnQueriesTest : public test::CareerTest {
 protected:
  std::string At(std::int32_t period, bool ab1, bool kleinergleich) {
    return Describe(*career_->Laufbahnschritt(period, ab1, kleinergleich));
  }
  std::shared_ptr<LLohn_Laufbahnen> career_;
};

TEST_F(LaufbahnQueriesTest, TheStepAtAMonthsBoundaryInItsThreeModes) {
  Step(eLBEintritt, D(2020, 2, 29));  // a leap day
  Step(eLBDVRuht, D(2020, 3, 1));
  Step(eLBAustritt, D(2020, 3, 31));
  career_ = Career();
  struct Case {
    std::int32_t period;
    bool ab1, kleinergleich;
    const char* expected;
  } cases[] = {
      {202003, false, false, "2020-03-31 3"}, {202003, false, true, "2020-03-31 3"},  // up to the last day
      {202003, true, true, "2020-03-01 2"},                                           // up to the first, included
      {202003, true, false, "2020-02-29 1"},                                          // before the first
      {202002, false, false, "2020-02-29 1"}, {202002, true, true, " 0"},             // nothing: a blank step
      {202002, true, false, " 0"},            {202004, true, false, "2020-03-31 3"},
      {201912, false, false, " 0"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(At(c.period, c.ab1, c.kleinergleich), c.expected) << c.period << " " << c.ab1 << c.kleinergleich;
  EXPECT_EQ(Describe(*career_->LaufbahnschrittDate(D(2020, 3, 30))), "2020-03-01 2");

  Step(eLBEintritt, D(2020, 3, 31));  // of one day, the highest Nr; but not in the loaded list
  EXPECT_THROW(career_->Laufbahnschritt(202003, false, false), KeyNotFound);
  career_ = Career();
  EXPECT_EQ(At(202003, false, false), "2020-03-31 1");
  EXPECT_EQ(Describe(*LLohn_Laufbahnen().Laufbahnschritt(202003, false, false)), " 0");  // no session
}

TEST_F(LaufbahnQueriesTest, EntryAndSuspensionMonths) {
  const std::string entry = Step(eLBEintritt, D(2020, 1, 15));
  const std::string early_rest = Step(eLBDVRuht, D(2020, 3, 2));
  Step(eLBDVRuht, D(2020, 3, 20));
  const std::string back = Step(eLBEintritt, D(2020, 3, 25));
  Step(eLBAustritt, D(2020, 6, 10));
  career_ = Career();
  LLohn_Laufbahnen::StepPtr found;
  EXPECT_TRUE(career_->IsEintritt(202001, found));
  EXPECT_EQ(found->ID, entry);
  EXPECT_TRUE(career_->IsEintritt(202002, found));  // no step in the month: the entry before decides
  EXPECT_EQ(found->ID, entry);
  EXPECT_TRUE(career_->IsDVRuht(202003, found));    // the whole month is walked: the earlier one stays
  EXPECT_EQ(found->ID, early_rest);
  EXPECT_TRUE(career_->IsEintritt(202003, found));
  EXPECT_EQ(found->ID, back);
  EXPECT_TRUE(career_->IsEintritt(202006, found));  // only an exit in the month: the day before decides
  EXPECT_EQ(found->ID, back);
  EXPECT_FALSE(career_->IsEintritt(202007, found));
  EXPECT_EQ(found->ID, "");
  EXPECT_FALSE(career_->IsDVRuht(202004, found));
  EXPECT_FALSE(career_->IsEintritt(201912, found));
  EXPECT_FALSE(LLohn_Laufbahnen().IsEintritt(202001, found));
}

TEST_F(LaufbahnQueriesTest, ThePositionWalkers) {
  const eLaufbahnschritte kinds[] = {eLBEintritt, eLBDVRuht, eLBDVRuht, eLBAustritt, eLBDVRuht, eLBEintritt};
  for (int i = 0; i < 6; ++i) Step(kinds[i], D(2020, 1, 1 + i));
  career_ = Career();
  EXPECT_EQ(career_->NextAbmeldungImZeitraum(1), 3);
  EXPECT_EQ(career_->NextAbmeldungImZeitraum(3), 0);  // an exit alone is no hit
  EXPECT_EQ(career_->NextAbmeldungImZeitraum(4), 5);
  EXPECT_EQ(career_->PreviousAbmeldungImZeitraum(6), 5);
  EXPECT_EQ(career_->PreviousAbmeldungImZeitraum(4), 2);  // the last one passed, going down
  EXPECT_EQ(career_->NextEintritt(1), 6);
  EXPECT_EQ(career_->NextAustritt(1), 4);
  EXPECT_EQ(career_->AustrittImZeitraum(4), 0);
  EXPECT_EQ(career_->PreviousEintritt(4), 1);
  EXPECT_EQ(career_->PreviousEintritt(5), 6);   // starts one place after pIndex
  EXPECT_EQ(career_->PreviousAustritt(2), 0);
  EXPECT_EQ(career_->PreviousAustritt(3), 4);
  for (std::int16_t below : {0, -3}) {
    EXPECT_EQ(career_->NextEintritt(below), 0);
    EXPECT_EQ(career_->PreviousEintritt(below), 0);
    EXPECT_EQ(career_->PreviousAbmeldungImZeitraum(below), 0);
  }
  EXPECT_THROW(career_->PreviousEintritt(6), KeyNotFound);  // from Count the first read is past the end
  EXPECT_THROW(career_->PreviousAbmeldungImZeitraum(9), KeyNotFound);
}

TEST_F(LaufbahnQueriesTest, EntriesAndExitsWithTheirFallBacks) {
  const std::string june = Step(eLBEintritt, D(2020, 6, 1));
  const std::string exit = Step(eLBAustritt, D(2021, 3, 31));
  const std::string again = Step(eLBEintritt, D(2022, 1, 10));
  const std::string last_exit = Step(eLBAustritt, D(2023, 9, 30));
  career_ = Career();
  EXPECT_EQ(career_->Eintritt(202001)->ID, june);  // none up to the month: the earliest entry
  EXPECT_EQ(career_->Eintritt(202112)->ID, june);
  EXPECT_EQ(career_->Eintritt(202201)->ID, again);
  EXPECT_EQ(career_->EintrittDate(static_cast<std::int32_t>(D(2022, 1, 9)))->ID, june);
  EXPECT_EQ(career_->Austritt(202104, true)->ID, exit);        // the latest before the month
  EXPECT_EQ(career_->Austritt(202103, true)->ID, exit);        // none before: the earliest of all
  EXPECT_EQ(career_->Austritt(202103, false)->ID, exit);       // the earliest from the first on
  EXPECT_EQ(career_->Austritt(202104, false)->ID, last_exit);
  EXPECT_EQ(career_->Austritt(202401, false)->ID, last_exit);  // none from then on: the latest
  EXPECT_EQ(career_->Letzten_Eintritt()->ID, again);
  EXPECT_EQ(career_->Letzten_Austritt()->ID, last_exit);

  LLohn_Laufbahnen unbound;
  EXPECT_EQ(unbound.Letzten_Eintritt()->ID, "");
  EXPECT_EQ(unbound.Letzten_Austritt(), nullptr);
  EXPECT_EQ(unbound.Eintritt(202001)->ID, "");
  auto nobody = std::make_shared<LLohn_Laufbahnen>();
  nobody->InitLaufbahnen(manager, AddEmployee("Ohne Laufbahn"));
  EXPECT_EQ(nobody->Letzten_Austritt()->ID, "");  // no rows: a blank step
  EXPECT_THROW(career_->Eintritt(2020), Error);  // no yyyymm
}

}  // namespace
