#include "ormelix/countries/laender.h"

#include "ormelix/error.h"
#include "ormelix/store/value_helpers.h"
#include "ormelix/text.h"

namespace ormelix {

using namespace ValueHelpers;

namespace {

constexpr std::int16_t kEndYear = 2022;
constexpr std::int16_t kEndMonth = 8;

std::shared_ptr<clsLand> ReadLand(const Recordset& rs) {
  auto land = std::make_shared<clsLand>();
  land->ID = ToLong(rs.Fields("ID"));
  land->Code = ToLong(rs.Fields("HVB"));
  land->Kurzbezeichnung = ToText(rs.Fields("Kurzbezeichnung"));
  land->Bezeichnung = ToText(rs.Fields("Bezeichnung"));
  land->ISO_A3 = ToText(rs.Fields("ISOA3"));
  land->ISO_A2 = ToText(rs.Fields("ISOA2"));
  land->KFZ = ToText(rs.Fields("KFZ"));
  // Through its text: a Null is no boolean and ends the load.
  land->EULand = TextToBool(ToText(rs.Fields("EULand")));
  return land;
}

// The indicators of the country, from the recordset of all indicators.
void ReadIndikatoren(clsLand& land, Recordset& rs) {
  for (rs.Filter("[LID]=" + std::to_string(land.ID)); !rs.Eof(); rs.MoveNext()) {
    auto indikator = std::make_shared<clsLand_Indikator>();
    indikator->ID = ToLong(rs.Fields("ID"));
    indikator->Zeitraum = ToLong(rs.Fields("Zeitraum"));
    indikator->Indikator = ToAmount(rs.Fields("Indikator"));
    indikator->Faktor = ToAmount(rs.Fields("Faktor"));
    land.Indikatoren()->Add(indikator);
  }
}

}  // namespace

StoreSession& clsLänder::ReferenceStore() const {
  const StoreConnectionPtr& db = manager_.Get()->ImportDB();
  if (!db) throw Error("clsLänder: the session has no reference store (ImportDB) to read the countries from");
  return db->Session();
}

void clsLänder::Load() {
  StoreSession& store = ReferenceStore();
  auto laender = store.OpenRecordset("SELECT * FROM [Länder] ORDER BY [HVB]", adOpenForwardOnly, adLockReadOnly);
  auto indikatoren =
      store.OpenRecordset("SELECT * FROM [Länder_Indikatoren] ORDER BY [Zeitraum]", adOpenForwardOnly, adLockReadOnly);
  Clear();
  for (; !laender->Eof(); laender->MoveNext()) {
    auto land = ReadLand(*laender);
    ReadIndikatoren(*land, *indikatoren);
    laender_.Add(land, std::to_string(land->Code));
  }
  laender->Close();
  indikatoren->Close();
}

std::int32_t clsLänder::IndikationEndPeriod() const { return MakeZeitraum(kEndMonth, kEndYear); }

bool clsLänder::IsEndIndikator(std::int32_t pZeitraum) const { return pZeitraum >= IndikationEndPeriod(); }

std::shared_ptr<clsLand_Indikator> clsLänder::GetIndikator(const std::string& pKFZ, std::int32_t pZeitraum) const {
  auto rs = ReferenceStore().OpenRecordset(
      "SELECT [HVB], [Länder_Indikatoren.ID] AS [IID] FROM [Länder] INNER JOIN [Länder_Indikatoren] ON "
      "[Länder].[ID]=[Länder_Indikatoren].[LID] WHERE [KFZ]='" +
          UpperCase(pKFZ) + "' AND [Zeitraum]<=" + std::to_string(pZeitraum) + " ORDER BY [Zeitraum] DESC",
      adOpenForwardOnly, adLockReadOnly);
  if (rs->Eof()) {
    rs->Close();
    return nullptr;
  }
  // The newest row not later than the period; the objects are those of the list.
  auto land = laender_.Item(Variant(ToText(rs->Fields("HVB"))));
  auto indikator = land->Indikatoren()->Item(Variant(ToText(rs->Fields("IID"))));
  rs->Close();
  return indikator;
}

}  // namespace ormelix
