#include "basis_values.h"

#include <variant>

#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::test {

namespace {

using namespace modBasiswerte;
using Visit = std::function<void(const BasisValueKey&, PropertyRef)>;

// Every column that is both read and written, for one target (the object itself,
// or a row struct pointing into it).
template <class Target, class Arg>
void VisitColumns(const ColumnSet<Target>& columns, Arg&& arg, const char* table, int group, int index,
                  const Visit& visit) {
  Target& target = arg;
  for (const auto& decl : columns.Columns()) {
    if (!decl.column || decl.load == LoadAs::None || decl.save == SaveAs::None) continue;
    visit(BasisValueKey{table, group, index, decl.column}, decl.property(target));
  }
}

Variant ValueOf(PropertyRef ref) {
  return std::visit([](auto* p) -> Variant {
    if constexpr (std::is_same_v<std::remove_pointer_t<decltype(p)>, Variant>) return *p;
    else return Variant(*p);
  }, ref);
}

}  // namespace

std::string BasisValueKey::Describe() const {
  return table + " group " + std::to_string(group) + " index " + std::to_string(index) + " column " + column;
}

void VisitBasisValues(LBasis& table, const Visit& visit) {
  VisitColumns(ZeittabelleColumns(), table, "", 0, 0, visit);
  VisitColumns(SWColumns(), *table.SW(), "_SW", 0, 0, visit);
  for (const SWGruppe& group : SWGruppen())
    VisitColumns(SWWerteColumns(), *table.SW()->Gruppe(group.gruppe), "_SW_Werte", group.gruppe, 0, visit);
  VisitColumns(LSTColumns(), *table.LST(), "_LST", 0, 0, visit);
  int position = 0;
  for (const auto& band : *table.LST()) VisitColumns(LSTWerteColumns(), *band, "_LST_Werte", ++position, 0, visit);
  VisitColumns(SAColumns(), *table.SA(), "_SA", 0, 0, visit);
  for (eBasisSAVersicherungsgruppe group : SAGruppen())
    VisitColumns(SAWerteColumns(), *table.SA()->Gruppe(group), "_SA_Werte", group, 0, visit);
  for (int band = 1; band <= 4; ++band) VisitColumns(PPColumns(), PPRow{table.PP().get(), band}, "_PP", band, 0, visit);
  VisitColumns(FBColumns(), *table.FB(), "_FB", 0, 0, visit);
  VisitColumns(ALVColumns(), *table.ALV(), "_ALV", 0, 0, visit);
  VisitColumns(DGColumns(), *table.DG(), "_DG", 0, 0, visit);
  for (const DGZeile& row : DGZeilen())
    VisitColumns(row.is2016 ? DGWerte2016Columns() : DGWerteColumns(), DGRow{table.DG().get(), row.group, row.sortnr},
                 "_DG_Werte", row.group, row.sortnr, visit);
  VisitColumns(DGMColumns(), DGMHead{table.DGM().get(), table.SA().get()}, "_DG_Geringfügig", 0, 0, visit);
  for (int group : {24, 25})
    VisitColumns(DGMWerteColumns(), DGMRow{table.DGM().get(), group}, "_DG_Geringfügig_Werte", group, 0, visit);
}

BasisValues FillBasisValues(LBasis& table, int seed) {
  BasisValues filled;
  long counter = 0;
  VisitBasisValues(table, [&](const BasisValueKey& key, PropertyRef ref) {
    long n = seed + counter++;
    std::visit(
        [&](auto* p) {
          using T = std::remove_pointer_t<decltype(p)>;
          if constexpr (std::is_same_v<T, double>) *p = static_cast<double>(n * 101 + 7) / 100.0;
          else if constexpr (std::is_same_v<T, std::string>) *p = "Tabelle " + std::to_string(n);
          else if constexpr (std::is_same_v<T, std::int16_t>) *p = static_cast<std::int16_t>(n % 30000);
          else if constexpr (std::is_same_v<T, std::int32_t>) *p = static_cast<std::int32_t>(200000 + n);
          else throw std::logic_error("no fill for the column " + key.Describe());
        },
        ref);
    filled[key] = ValueOf(ref);
  });
  return filled;
}

BasisValues ReadBasisValues(LBasis& table) {
  BasisValues values;
  VisitBasisValues(table, [&](const BasisValueKey& key, PropertyRef ref) { values[key] = ValueOf(ref); });
  return values;
}

std::shared_ptr<clsManager> NewSession(const StoreConnectionPtr& db) {
  auto manager = clsManager::Create();
  manager->SetAktDB(db);
  return manager;
}

std::shared_ptr<clsManager> BasisStoreTest::Reopened() const {
  auto manager = NewSession(StoreConnection::Open(path));
  manager->Basis()->Load();
  return manager;
}

std::shared_ptr<clsBasisordner> BasisStoreTest::FolderWithTables(const std::string& name,
                                                                 std::initializer_list<int> periods) {
  auto folder = Basis().AddNew(name);
  for (int period : periods) folder->Zeittabellen()->AddNew(period, "Tabelle " + std::to_string(period));
  return folder;
}

Variant BasisStoreTest::StoredValue(const std::string& table, const std::string& column, const std::string& where) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where);
  EXPECT_EQ(rs->RecordCount(), 1) << table << " WHERE " << where;
  return rs->Fields(column).ValueOrEmpty();
}

void BasisStoreTest::SetStored(const std::string& table, const std::string& column, const Variant& value,
                               const std::string& where) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where, adOpenDynamic, adLockOptimistic);
  ASSERT_FALSE(rs->Eof()) << table << " WHERE " << where;
  for (; !rs->Eof(); rs->MoveNext()) {
    rs->Collect(column, value);
    rs->Update();
  }
}

std::string BasisStoreTest::SubRowID(const std::string& table, const LBasis& zeittabelle) {
  return ValueHelpers::ToText(StoredValue(table, "ID", "[ZeittabellenID]=" + zeittabelle.ID()));
}

}  // namespace ormelix::test
