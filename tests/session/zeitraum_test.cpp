// Period keys: clsZeitraum with its settled quirks, and GetZeitraum of the session.
#include <gtest/gtest.h>

#include "ormelix/session/manager.h"
#include "ormelix/session/zeitraum.h"
#include "ormelix/store/date_helpers.h"

using namespace ormelix;
using DateHelpers::DateSerial;

TEST(Zeitraum, AddSetsTheKeyWithPaddedParts) {
  clsZeitraum z;
  z.Add(6, 2024);
  EXPECT_EQ(z.Item, 202406);
  EXPECT_EQ(z.GetMonth(), 6);
  EXPECT_EQ(z.GetYear(), 2024);
  EXPECT_EQ(z.GetDate(), DateSerial(2024, 6, 1));
  z.Add(13, 2024);  // no range check
  EXPECT_EQ(z.Item, 202413);
  z.Add(1, 999);  // "0999" & "01" read as a number drops the zero
  EXPECT_EQ(z.Item, 99901);
  EXPECT_EQ(z.GetYear(), 9990);
  EXPECT_EQ(z.GetMonth(), 1);
}

TEST(Zeitraum, AddDateWritesOneDigitMonthsWithoutALeadingZero) {
  clsZeitraum z;
  z.AddDate(DateSerial(2024, 3, 15));
  EXPECT_EQ(z.Item, 20243);
  EXPECT_EQ(z.GetMonth(), 43);
  EXPECT_EQ(z.GetYear(), 2024);
  EXPECT_EQ(DateHelpers::Year(z.GetDate()), 2027);  // month 43 of 2024 lies in 2027
  for (int month : {10, 11, 12}) {
    z.AddDate(DateSerial(2024, month, 15));
    EXPECT_EQ(z.Item, 202400 + month);
    EXPECT_EQ(z.GetMonth(), month);
  }
}

TEST(Zeitraum, ANewObjectReadsZeroEverywhere) {
  clsZeitraum z;
  EXPECT_EQ(z.Item, 0);
  EXPECT_EQ(z.GetMonth(), 0);
  EXPECT_EQ(z.GetYear(), 0);
}

TEST(Zeitraum, GetZeitraumOfTheSession) {
  auto manager = clsManager::Create();
  EXPECT_EQ(manager->GetZeitraum(0), 0);  // year and month 0: no check
  manager->AktJahr = 2024;
  manager->AktMonat = 3;
  EXPECT_EQ(manager->GetZeitraum(0), 202403);
  EXPECT_EQ(manager->GetZeitraum(7), 202407);  // whatever AktMonat holds
  manager->AktMonat = 11;
  EXPECT_EQ(manager->GetZeitraum(), 202411);
}
