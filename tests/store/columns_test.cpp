// Column declarations: entries with conversions of their own, and checkpoints.
#include <gtest/gtest.h>

#include <cctype>

#include "ormelix/error.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/value_helpers.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

struct Person {
  std::string name;
  std::string upper;  // kept in upper case, stored as the name in lower case
};

void LoadUpper(Person& p, const Field& field) {
  p.upper = ValueHelpers::ToText(field);
  for (char& c : p.upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}
Variant SaveLower(Person& p) {
  std::string lower = p.upper;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return Variant(lower);
}

const ColumnSet<Person>& PersonColumns() {
  static const ColumnSet<Person> columns{
      {"Name", Member<&Person::name>, LoadAs::Text, SaveAs::Direct},
      ColumnSet<Person>::Checkpoint(),
      ColumnSet<Person>::Custom("Zusatz", &LoadUpper, &SaveLower),
  };
  return columns;
}

TEST(ColumnSet, ACustomEntryReadsAndWritesThroughItsOwnFunctions) {
  test::TempDir dir;
  auto db = test::NewStore(dir);
  Person person{"Muster", "FILIALE"};
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Mandanten]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  PersonColumns().Save(person, *rs);  // a new row: the checkpoint does not store it yet
  EXPECT_EQ(test::CountRows(db, "Mandanten"), 0);
  rs->Update();
  rs->Close();
  auto read = db->Session().OpenRecordset("SELECT * FROM [Mandanten]");
  EXPECT_EQ(ValueHelpers::ToText(read->Fields("Zusatz")), "filiale");
  Person loaded;
  PersonColumns().Load(loaded, *read);
  EXPECT_EQ(loaded.name, "Muster");
  EXPECT_EQ(loaded.upper, "FILIALE");
  EXPECT_THROW(LoadProperty(read->Fields("Zusatz"), LoadAs::Custom, &loaded.name), ConversionError);
}

}  // namespace
