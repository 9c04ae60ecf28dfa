// The views of a tool key the employee's values by property name: every entry of
// the declarations has one, and the crossings show under their own property.
#include <gtest/gtest.h>

#include <set>

#include "ormelix/employee/mod_database.h"

using namespace ormelix;

namespace {

template <class Target>
std::vector<std::string> Unnamed(const ColumnSet<Target>& columns) {
  std::vector<std::string> unnamed;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.property && !decl.property.name) unnamed.push_back(decl.column);
  return unnamed;
}

TEST(EmployeePropertyNames, EveryColumnOfTheRecordsNamesItsProperty) {
  EXPECT_TRUE(Unnamed(modDatabase::MitarbeiterColumns()).empty());
  EXPECT_TRUE(Unnamed(modDatabase::BankverbindungColumns()).empty());
  EXPECT_TRUE(Unnamed(modDatabase::LohnzettelColumns()).empty());
  std::map<std::string, std::string> names;  // column -> property, of the columns read
  for (const auto& decl : modDatabase::LohnzettelColumns().Columns())
    if (decl.column && decl.load != LoadAs::None) names[decl.column] += std::string(decl.Name()) + " ";
  // The crossing: one column read into two properties, each under its own name.
  EXPECT_EQ(names["MinderLaufendBasisGesamt"], "MinderLaufendBasisGesamt MinderSonderBasisGesamt ");
  EXPECT_EQ(names["Überstunden_50"], "Ueberst__50 ");
  EXPECT_EQ(names["EL_OffeneUrlaubstage"], "Mitarbeiter.OffeneUT ");
  EXPECT_EQ(names["Sechstel_Summe"], "Sechstel.JahresSumme ");
  EXPECT_EQ(names["FB_Tage"], "FB_Fallweise.Tage ");
  std::set<std::string> master;
  for (const auto& decl : modDatabase::MitarbeiterColumns().Columns())
    if (decl.column) master.insert(decl.Name());
  EXPECT_TRUE(master.count("Mitarbeiter.FName"));
  EXPECT_TRUE(master.count("Geb_Datum"));
}

}  // namespace
