// Helpers of the base-value tests: a session on a fresh payroll store, and a walk
// over every stored value of a dated table, driven by the column declarations of
// the table routines (so that a value added to a declaration is filled, saved and
// compared without a test being touched).
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <ostream>
#include <memory>
#include <string>

#include "ormelix/basevalues/basis.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/variant.h"
#include "support/test_store.h"

namespace ormelix {
// Readable failures of comparisons of store values.
inline void PrintTo(const Variant& value, std::ostream* out) { *out << value.Describe(); }
}  // namespace ormelix

namespace ormelix::test {

// Where a stored value lies: the table (without the "Basiswerte_Zeittabelle"
// prefix), the row's group (DNGruppe, VGruppe, band position or SortNr of PP; 0
// for a table of one row), the row's length of apprenticeship, and the column.
struct BasisValueKey {
  std::string table;
  int group = 0;
  int index = 0;
  std::string column;

  auto operator<=>(const BasisValueKey&) const = default;
  std::string Describe() const;
};

using BasisValues = std::map<BasisValueKey, Variant>;

// Calls visit for every column that the declarations read and write, of the table
// row and of all eight sub-objects (the wage-tax bands as they are in the list).
void VisitBasisValues(LBasis& table, const std::function<void(const BasisValueKey&, PropertyRef)>& visit);
// Sets every such value to a distinct number (two decimals; whole numbers for the
// 16- and 32-bit ones, a text for Bezeichnung), counting from seed, and gives them.
BasisValues FillBasisValues(LBasis& table, int seed);
// The values as they stand in memory.
BasisValues ReadBasisValues(LBasis& table);

// A session (clsManager) with this payroll store as AktDB.
std::shared_ptr<clsManager> NewSession(const StoreConnectionPtr& db);

// A session on a fresh payroll store in a file of its own, and the means to look
// at the same file from a second session.
class BasisStoreTest : public ::testing::Test {
 protected:
  TempDir dir;
  std::string path = dir.File("payroll.db");
  StoreConnectionPtr db = CreateStore(path, StoreKind::Payroll);
  std::shared_ptr<clsManager> session = NewSession(db);

  clsBasisdaten& Basis() { return *session->Basis(); }
  // A new session on the store opened anew, with the base values loaded.
  std::shared_ptr<clsManager> Reopened() const;
  // A folder with dated tables of these periods (saved with zeroes).
  std::shared_ptr<clsBasisordner> FolderWithTables(const std::string& name, std::initializer_list<int> periods);
  // A value of the only row of a table that matches the condition.
  Variant StoredValue(const std::string& table, const std::string& column, const std::string& where);
  // Sets a column of the rows that match the condition, behind the library's back.
  void SetStored(const std::string& table, const std::string& column, const Variant& value, const std::string& where);
  // The ID of the row of a sub-table that belongs to a dated table.
  std::string SubRowID(const std::string& table, const LBasis& zeittabelle);
};

}  // namespace ormelix::test
