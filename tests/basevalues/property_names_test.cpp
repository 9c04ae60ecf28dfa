// The views of a tool key the base values by property name: every entry of the
// declarations has one, also the cells of the contribution matrix.
#include <gtest/gtest.h>

#include "ormelix/basevalues/basis_columns.h"

using namespace ormelix;
using namespace ormelix::modBasiswerte;

namespace {

template <class Target>
std::string Names(const ColumnSet<Target>& columns) {
  std::string names;
  for (const auto& decl : columns.Columns())
    if (decl.column) names += std::string(decl.property && !decl.property.name ? "?" : "") + decl.Name() + " ";
  return names;
}

TEST(BasePropertyNames, EveryColumnNamesItsProperty) {
  EXPECT_EQ(Names(ZeittabelleColumns()), "Zeitraum.Item Bezeichnung ");
  EXPECT_EQ(Names(DGWerteColumns()),
            "SV_Laufend SV_Sonderzahlung FALAST FALASTLGV Kommunalsteuer DZBL(eBasisBurgenland) DZBL(eBasisKärnten) "
            "DZBL(eBasisNiederösterreich) DZBL(eBasisOberösterreich) DZBL(eBasisSalzburg) DZBL(eBasisSteiermark) "
            "DZBL(eBasisTirol) DZBL(eBasisVoralberg) DZBL(eBasisWien) U_Bahn Produktivitaetsfaktor ");
  EXPECT_EQ(Names(DGWerte2016Columns()), "SV_Laufend SV_Sonderzahlung ");
  EXPECT_EQ(Names(DGMColumns()),
            "SA.GrenzbetragGeringBeschaeftigte.Prozent SA.GrenzbetragGeringBeschaeftigte.Obergrenze "
            "DGM.GrenzbetragMinderBeschaeftigte ");
  for (const std::string& names :
       {Names(BasiswerteColumns()), Names(SWColumns()), Names(SWWerteColumns()), Names(LSTColumns()),
        Names(LSTWerteColumns()), Names(SAColumns()), Names(SAWerteColumns()), Names(FBColumns()), Names(DGColumns()),
        Names(DGMWerteColumns()), Names(ALVColumns()), Names(PPColumns())})
    EXPECT_EQ(names.find('?'), std::string::npos) << names;
}

}  // namespace
