// The steps of a range of months (with their selections and the pairs made around
// changes of contribution account) and the steps of one month.
#include <gtest/gtest.h>

#include "career_fixture.h"

using namespace ormelix;

namespace {

class LaufbahnRangesTest : public test::CareerTest {
 protected:
  std::string Range(std::int32_t von, std::int32_t bis, eAusgabeLaufbahnen selection, bool bkz = false) {
    return Describe(*Career()->LaufbahnschritteImZeitraum(von, bis, bkz, selection));
  }
};

TEST_F(LaufbahnRangesTest, SelectionsLeaveOutWholeEmployments) {
  Step(eLBEintritt, D(2019, 1, 1));
  Step(eLBAustritt, D(2019, 6, 30));
  Step(eLBEintritt, D(2019, 8, 1), {{"BefristetBeschäftigt", true}});
  Step(eLBAustritt, D(2019, 10, 31));
  Step(eLBEintritt, D(2019, 11, 1), {{"FallweiseBeschäftigt", true}});
  Step(eLBAustritt, D(2019, 11, 30));
  Step(eLBEintritt, D(2020, 1, 1));
  EXPECT_EQ(Range(201901, 202012, eALBAlle),
            "2019-01-01 1, 2019-06-30 3, 2019-08-01 1, 2019-10-31 3, 2019-11-01 1, 2019-11-30 3, 2020-01-01 1");
  EXPECT_EQ(Range(201901, 202012, eALBNurNormalBeschäftigt), "2019-01-01 1, 2019-06-30 3, 2020-01-01 1");
  EXPECT_EQ(Range(201901, 202012, eALBNurBefristetBeschäftigt), "2019-08-01 1, 2019-10-31 3");
  EXPECT_EQ(Range(201901, 202012, eALBNurFallweiseBeschäftigt), "2019-11-01 1, 2019-11-30 3");
  EXPECT_EQ(Range(201901, 202012, static_cast<eAusgabeLaufbahnen>(7)), "");
  // The range begins with the last step before the first of the month; for the
  // fixed-term and casual selections with the step in force on the first.
  EXPECT_EQ(Range(201908, 201910, eALBAlle), "2019-06-30 3, 2019-08-01 1, 2019-10-31 3");
  EXPECT_EQ(Range(201908, 201910, eALBNurBefristetBeschäftigt), "2019-08-01 1, 2019-10-31 3");
  EXPECT_EQ(Range(201912, 201912, eALBAlle), "2019-11-30 3");
}

TEST_F(LaufbahnRangesTest, AnEmploymentOfOneDayBeforeTheRangeIsDroppedAtTheHead) {
  Step(eLBEintritt, D(2018, 1, 1));
  Step(eLBAustritt, D(2018, 1, 1));
  Step(eLBEintritt, D(2020, 5, 1));
  EXPECT_EQ(Range(202001, 202012, eALBAlle), "2020-05-01 1");
  EXPECT_EQ(Range(201801, 202012, eALBAlle), "2018-01-01 1, 2018-01-01 3, 2020-05-01 1");  // in the range: kept
  EXPECT_EQ(Describe(*Career()->LaufbahnschritteImMonat(202005)), "2020-05-01 1");
}

TEST_F(LaufbahnRangesTest, PairsAroundChangesOfContributionAccount) {
  Step(eLBEintritt, D(2020, 1, 15), {{"AbfertigungNeu", true}, {"AbfertigungNeuProzent", 1.53}});
  Step(eLBDVRuht, D(2020, 6, 10));
  Step(eLBEintritt, D(2020, 9, 1), {{"AbfertigungNeu", false}, {"AbfertigungNeuProzent", 2.0}});
  for (std::int32_t period : {202003, 202006, 202008, 202011, 202101}) AccountChange(period);
  auto career = Career();
  auto list = career->LaufbahnschritteImZeitraum(202001, 202012, true, eALBAlle);
  // The row of June stands ahead of the suspension of 10 June. The walk passes its
  // fixed bound after the first neighbours, so August brings no pair; the tail
  // looks past the last step only, up to the end of the range.
  EXPECT_EQ(Describe(*list),
            "2020-01-15 1, 2020-02-29 92, 2020-03-01 91, 2020-05-31 92, 2020-06-01 91, 2020-06-10 2, "
            "2020-09-01 1, 2020-10-31 92, 2020-11-01 91");
  const LLohn_Laufbahn& begin = *list->Item(3);
  EXPECT_EQ(begin.Index, 0);
  EXPECT_TRUE(begin.AbfertigungNeu);
  EXPECT_EQ(begin.AbfertigungNeuProzent, 1.53);
  EXPECT_EQ(begin.AbfertigungNeuDatum, D(2020, 3, 1));
  EXPECT_TRUE(list->Item(5)->AbfertigungNeu);  // handed on from the pair before
  EXPECT_FALSE(list->Item(9)->AbfertigungNeu);
  EXPECT_EQ(list->Item(9)->AbfertigungNeuProzent, 2.0);
  EXPECT_EQ(list->Item(1), career->Item(1));  // the steps of the career, not copies
  EXPECT_EQ(list->Laufbahnschritt(202003, false, false)->ID, "");  // the list has no session

  // From May on, the last change of account at or before the first of May heads the list.
  EXPECT_EQ(Describe(*career->LaufbahnschritteImZeitraum(202005, 202012, true, eALBAlle)),
            "2020-03-01 91, 2020-05-31 92, 2020-06-01 91, 2020-06-10 2, 2020-09-01 1, 2020-10-31 92, 2020-11-01 91");
  EXPECT_EQ(Range(202001, 202012, eALBAlle, false), "2020-01-15 1, 2020-06-10 2, 2020-09-01 1");
}

TEST_F(LaufbahnRangesTest, AChangeOfAccountWithoutStepsComesFromTheTail) {
  AccountChange(202003);
  AccountChange(201906);  // before the range
  EXPECT_EQ(Range(202001, 202012, eALBAlle, true), "2020-02-29 92, 2020-03-01 91");
}

TEST_F(LaufbahnRangesTest, TheStepsOfAMonth) {
  Step(eLBEintritt, D(2019, 1, 1));
  Step(eLBAustritt, D(2019, 12, 31));
  Step(eLBEintritt, D(2020, 3, 10));
  Step(eLBDVRuht, D(2020, 5, 1));
  Step(eLBAustritt, D(2020, 8, 31));
  auto career = Career();
  // The exit before the month goes; the entry of the month brings its later exit.
  auto march = career->LaufbahnschritteImMonat(202003);
  EXPECT_EQ(Describe(*march), "2020-03-10 1, 2020-08-31 3");
  EXPECT_EQ(march->Laufbahnschritt(202003, false, false), career->Item(3));  // bound to the session
  EXPECT_EQ(Describe(*career->LaufbahnschritteImMonat(202006)), "2020-05-01 2");
  EXPECT_EQ(Describe(*career->LaufbahnschritteImMonat(202009)), "");  // only the exit before it

  auto before = career->LaufbahnschritteImMonat(201806);
  EXPECT_EQ(before->Count(), 0);
  EXPECT_EQ(before->Letzten_Austritt(), nullptr);  // no session

  LLohn_Laufbahnen unbound;
  EXPECT_EQ(unbound.LaufbahnschritteImMonat(202003), nullptr);
  EXPECT_EQ(unbound.LaufbahnschritteImZeitraum(202001, 202012, false, eALBAlle), nullptr);
}

}  // namespace
