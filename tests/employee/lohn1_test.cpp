// The working record of a pay calculation: its index ranges, the children it makes
// for every index, and that a dropped record frees itself with every child (run
// under AddressSanitizer, the leak checker looks at the whole process too).
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <vector>

#include "ormelix/employee/lohn1.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

using namespace ormelix;

namespace {

void ExpectRangeFailure(const std::function<void()>& access, const std::string& names) {
  try {
    access();
    ADD_FAILURE() << names << " did not fail";
  } catch (const std::out_of_range& failure) {
    EXPECT_NE(std::string(failure.what()).find(names), std::string::npos) << failure.what();
  }
}

TEST(LLohn1, EachPropertyKeepsToItsOwnIndexRange) {
  LLohn1 lohn1;
  ExpectRangeFailure([&] { lohn1.Brutto(13) = 1; }, "Brutto(13)");
  ExpectRangeFailure([&] { (void)lohn1.AIV_ERS(6); }, "AIV_ERS(6)");
  ExpectRangeFailure([&] { (void)lohn1.sumN70(3); }, "sumN70(3)");
  ExpectRangeFailure([&] { (void)lohn1.SV_N70_Laufend(3, 0); }, "SV_N70_Laufend(3)");
  ExpectRangeFailure([&] { (void)lohn1.SV_N70_Sonder_DG(0, 13); }, "SV_N70_Sonder_DG(13)");
  ExpectRangeFailure([&] { (void)lohn1.PendlerEuro(-1); }, "PendlerEuro(-1)");
  ExpectRangeFailure([&] { (void)lohn1.Sechstel(13); }, "Sechstel(13)");
  ExpectRangeFailure([&] { lohn1.SetUebertritt(-1, nullptr); }, "Uebertritt(-1)");

  lohn1.Brutto(0) = 1.5;
  lohn1.AIV_ERS(5) = 2.5;
  lohn1.SV_N70_Laufend(2, 12) = 3.5;
  lohn1.sumN70(0) = 4.5;
  EXPECT_EQ(lohn1.Brutto(0), 1.5);
  EXPECT_EQ(lohn1.AIV_ERS(5), 2.5);
  EXPECT_EQ(lohn1.SV_N70_Laufend(2, 12), 3.5);
  EXPECT_EQ(lohn1.SV_N70_Laufend(1, 12), 0);  // the cells of a 2-D property are its own
  EXPECT_EQ(lohn1.SV_N70_Sonder(2, 12), 0);
  EXPECT_EQ(lohn1.sumN70(0), 4.5);
}

TEST(LLohn1, AFreshRecordHasItsOwnChildrenAtEveryIndexAllAtZero) {
  LLohn1 lohn1;
  std::set<const void*> seen;
  for (int i = 0; i <= 12; ++i) {
    const auto& sechstel = lohn1.Sechstel(i);
    const auto& uebertritt = lohn1.Uebertritt(i);
    ASSERT_TRUE(sechstel && uebertritt) << i;
    ASSERT_TRUE(uebertritt->Datum1() && uebertritt->Datum2()) << i;
    for (const void* child : {static_cast<const void*>(sechstel.get()), static_cast<const void*>(uebertritt.get()),
                              static_cast<const void*>(uebertritt->Datum1().get()),
                              static_cast<const void*>(uebertritt->Datum2().get())})
      EXPECT_TRUE(seen.insert(child).second) << "a child is shared at index " << i;
    EXPECT_EQ(sechstel->Owner(), &lohn1);
    EXPECT_EQ(uebertritt->Owner(), &lohn1);
    EXPECT_EQ(uebertritt->Datum1()->Owner(), &lohn1);
    EXPECT_EQ(uebertritt->Datum2()->Owner(), &lohn1);
    EXPECT_EQ(sechstel->ueberhang_JG, 0);
    EXPECT_EQ(uebertritt->Datum2()->Ende, 0);
  }
}

TEST(LLohn1, AReplacedChildIsTheCallersOwnAndGetsNoOwner) {
  LLohn1 lohn1;
  auto werte = std::make_shared<LLohn1_Werte>();
  werte->grenze = 12.5f;
  lohn1.SetSechstel(4, werte);
  EXPECT_EQ(lohn1.Sechstel(4), werte);
  EXPECT_EQ(lohn1.Sechstel(4)->Owner(), nullptr);
  auto datum = std::make_shared<LLohn1_UebertrittDatum>();
  lohn1.Uebertritt(4)->SetDatum1(datum);
  EXPECT_EQ(lohn1.Uebertritt(4)->Datum1()->Owner(), nullptr);
  EXPECT_EQ(lohn1.Uebertritt(4)->Datum2()->Owner(), &lohn1);
  lohn1.SetUebertritt(5, nullptr);
  EXPECT_FALSE(lohn1.Uebertritt(5));
}

TEST(LLohn1, ADroppedRecordFreesItselfAndEveryChild) {
  std::weak_ptr<LLohn1> record;
  std::vector<std::weak_ptr<const void>> children;
  std::shared_ptr<LLohn1_Uebertritt> kept;
  {
    auto lohn1 = std::make_shared<LLohn1>();
    record = lohn1;
    for (int i = 0; i <= 12; ++i) {
      children.push_back(lohn1->Sechstel(i));
      children.push_back(lohn1->Uebertritt(i));
      children.push_back(lohn1->Uebertritt(i)->Datum1());
      children.push_back(lohn1->Uebertritt(i)->Datum2());
    }
    lohn1->SV_N70_Laufend_DG(1, 6) = 7;  // a 2-D property takes its cells at the first write
    kept = lohn1->Uebertritt(7);
  }
  EXPECT_TRUE(record.expired());
  int alive = 0;
  for (const auto& child : children) alive += child.expired() ? 0 : 1;
  EXPECT_EQ(alive, 3);  // only the transfer the caller keeps, with its two Datum objects
  EXPECT_EQ(kept->Owner(), nullptr);  // and it no longer names the record that is gone
  EXPECT_EQ(kept->Datum1()->Owner(), nullptr);
  kept.reset();
  for (const auto& child : children) EXPECT_TRUE(child.expired());
#if defined(__SANITIZE_ADDRESS__)
  EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0) << "the leak checker found memory no one holds";
#endif
}

}  // namespace
