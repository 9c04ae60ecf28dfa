// Column declarations: entries with conversions of their own, and checkpoints.
#include <gtest/gtest.h>

#include <cctype>
#include <memory>

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

// What a tool keys a value by: the property's name as the object model has it,
// derived from the member itself, so that it cannot drift from the code.
struct Firma {
  std::string Straße;
  std::shared_ptr<Person> Inhaber;
  const std::shared_ptr<Person>& Chef() const { return Inhaber; }
};
enum eOrt { eOrtWien = 9, eOrtKärnten = 2 };

TEST(PropertyNames, AreTheMembersNamesAsTheCodeSpellsThem) {
  EXPECT_EQ(NameOf<&Firma::Straße>(), "Straße");
  EXPECT_EQ(NameOf<&Firma::Chef>(), "Chef");
  EXPECT_EQ(NameOf<eOrtKärnten>(), "eOrtKärnten");
  EXPECT_STREQ((kMemberPath<&Firma::Chef, &Person::name>), "Chef.name");
  EXPECT_STREQ((kIndexedName<&Firma::Chef, eOrtWien>), "Chef(eOrtWien)");

  const ColumnSet<Firma> columns{
      {"Strasse", Member<&Firma::Straße>, LoadAs::Text, SaveAs::Direct},
      {"Inhaber", Named<Firma>("Chef.name", [](Firma& f) -> PropertyRef { return &f.Inhaber->name; }), LoadAs::Text,
       SaveAs::Direct},
      {"Ohne", [](Firma& f) -> PropertyRef { return &f.Straße; }, LoadAs::Text, SaveAs::None},
      ColumnSet<Firma>::Custom("Tage", nullptr, nullptr, "Kalender.Tage"),
  };
  std::vector<std::string> names;
  for (const auto& decl : columns.Columns()) names.push_back(decl.Name());
  // A property reached by a plain function has no name of its own: the column's stands.
  EXPECT_EQ(names, (std::vector<std::string>{"Straße", "Chef.name", "Ohne", "Kalender.Tage"}));
  Firma firma{"Ring 1", std::make_shared<Person>(Person{"Anna", ""})};
  EXPECT_EQ(*std::get<std::string*>(columns.Columns()[1].property(firma)), "Anna");
}

}  // namespace
