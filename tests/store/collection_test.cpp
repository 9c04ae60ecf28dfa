// The keyed collection and the indexed arrays every list and month property uses.
#include <gtest/gtest.h>

#include "ormelix/collection.h"
#include "ormelix/indexed_array.h"

using namespace ormelix;

namespace {

struct Thing {
  std::string name;
};

Collection<Thing> ThreeThings() {
  Collection<Thing> list("things");
  for (const char* name : {"a", "b", "c"}) list.Add(std::make_shared<Thing>(Thing{name}), std::string("K") + name);
  return list;
}

TEST(Collection, PositionsCountFromOneAndKeysIgnoreCase) {
  Collection<Thing> list = ThreeThings();
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Item(1)->name, "a");
  EXPECT_EQ(list.Item(3)->name, "c");
  EXPECT_EQ(list.Item("kb")->name, "b");
  EXPECT_EQ(list.Item(Variant(2.0))->name, "b");
  EXPECT_THROW(list.Item(0), KeyNotFound);
  EXPECT_THROW(list.Item(4), KeyNotFound);
  try {
    list.Item("Kz");
    FAIL();
  } catch (const KeyNotFound& error) {
    EXPECT_EQ(error.Key(), "Kz");
  }
}

TEST(Collection, InsertBeforeAndAfterAKeyAndRemove) {
  Collection<Thing> list = ThreeThings();
  list.Add(std::make_shared<Thing>(Thing{"x"}), "Kx", Variant("Kb"));
  list.Add(std::make_shared<Thing>(Thing{"y"}), "Ky", Variant(), Variant("Kc"));
  std::string order;
  for (const auto& thing : list) order += thing->name;
  EXPECT_EQ(order, "axbcy");
  list.Remove("KB");
  list.Remove(1);
  order.clear();
  for (const auto& thing : list) order += thing->name;
  EXPECT_EQ(order, "xcy");
  EXPECT_FALSE(list.HasKey("Kb"));
  EXPECT_THROW(list.Add(std::make_shared<Thing>(), "kx"), Error);  // duplicate key
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
}

TEST(Collection, LookupsHandOutTheSharedObject) {
  Collection<Thing> list = ThreeThings();
  list.Item("Ka")->name = "changed";
  EXPECT_EQ(list.Item(1)->name, "changed");
}

TEST(IndexedArray, RangesAreCheckedInGetterAndSetter) {
  MonthArray<float> salary("Gehalt");
  salary[0] = 1;
  salary(12) = 2;
  EXPECT_EQ(salary[12], 2);
  EXPECT_THROW(salary[13], std::out_of_range);
  EXPECT_THROW(salary(-1) = 5, std::out_of_range);
  try {
    salary[13];
  } catch (const std::out_of_range& error) {
    EXPECT_NE(std::string(error.what()).find("Gehalt(13)"), std::string::npos);
  }
  Month1Array<std::string> text("Sonstige_Abzuege_Text");
  EXPECT_THROW(text[0], std::out_of_range);
  MonthGrid3<float, 1, 6, 1, 5> grid("ZSL_Betrag");
  grid(6, 5, 12) = 3;
  EXPECT_EQ(grid(6, 5, 12), 3);
  EXPECT_THROW(grid(7, 1, 1), std::out_of_range);
  MonthGrid<bool, 1, 5> flags("ZSL_DBDZKST_frei");
  EXPECT_THROW(flags(0, 1), std::out_of_range);
}

TEST(IndexedArray, AGridTakesItsCellsAtTheFirstWrite) {
  MonthGrid3<std::string, 1, 6, 1, 5> texts("ZSL_Text");
  const auto& read_only = texts;
  EXPECT_EQ(read_only(3, 2, 7), "");
  EXPECT_FALSE(texts.Allocated());
  EXPECT_THROW(read_only(0, 2, 7), std::out_of_range);  // checked without cells too
  texts(3, 2, 7) = "Zulage";
  EXPECT_TRUE(texts.Allocated());
  EXPECT_EQ(read_only(3, 2, 7), "Zulage");
  EXPECT_EQ(read_only(3, 2, 8), "");
  MonthGrid3<std::string, 1, 6, 1, 5> copy = texts;
  texts(3, 2, 7) = "changed";
  EXPECT_EQ(copy(3, 2, 7), "Zulage");
}

}  // namespace
