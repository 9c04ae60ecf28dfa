// ormelix show countries: the countries of the reference store with the indicator
// in force for a period, asked the way a host asks: Länder.Load, then
// GetIndikator(KFZ, period) for each country.
#include <iostream>

#include "common/properties.h"
#include "common/table.h"
#include "ormelix/countries/laender.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;

namespace {

Properties CountryProperties(const clsLand& land) {
  Properties p;
  p.Whole("ID", land.ID).Whole("Code", land.Code).Text("Kurzbezeichnung", land.Kurzbezeichnung);
  p.Text("Bezeichnung", land.Bezeichnung).Text("ISO_A3", land.ISO_A3).Text("ISO_A2", land.ISO_A2);
  p.Text("KFZ", land.KFZ).Flag("EULand", land.EULand);
  return p;
}

json::Value IndicatorJson(const clsLand_Indikator& indikator) {
  Properties p;
  p.Whole("ID", indikator.ID).Whole("Zeitraum", indikator.Zeitraum);
  p.Decimal("Indikator", indikator.Indikator).Decimal("Faktor", indikator.Faktor);
  return p.Json();
}

}  // namespace

int ShowCountries(clsManager& manager, Arguments& args, bool as_json) {
  std::optional<std::string> period = args.TakeOption("period");
  args.ExpectEnd("ormelix show countries --period YYYYMM [--json]");
  if (!period) throw UsageError("show countries needs --period YYYYMM (e.g. --period 202003)");
  std::int32_t key = ParsePeriod(*period);
  if (!manager.ImportDB())
    throw UsageError("no reference store beside the payroll store; expected reference.db in the same folder");
  clsLänder& laender = *manager.Länder();
  laender.Load();

  json::Value doc = json::Value::MakeObject();
  doc.Set("period", static_cast<long>(key));
  doc.Set("IndikationEndPeriod", static_cast<long>(laender.IndikationEndPeriod()));
  doc.Set("IsEndIndikator", laender.IsEndIndikator(key));
  json::Value& countries = doc.Set("countries", json::Value::MakeArray());
  TextTable table;
  for (const char* header : {"Code", "KFZ", "ISO_A2", "ISO_A3", "Kurzbezeichnung", "EU", "ab Zeitraum"})
    table.Column(header);
  table.Column("Indikator", TextTable::Right);
  table.Column("Faktor", TextTable::Right);
  table.Column("Indikatoren", TextTable::Right);
  for (const auto& land : laender) {
    auto indikator = laender.GetIndikator(land->KFZ, key);
    json::Value& country = countries.Push(CountryProperties(*land).Json());
    country.Set("GetIndikator", indikator ? IndicatorJson(*indikator) : json::Value());
    country.Set("Indikatoren", land->Indikatoren()->Count());
    table.Row({std::to_string(land->Code), land->KFZ, land->ISO_A2, land->ISO_A3, land->Kurzbezeichnung,
               land->EULand ? "ja" : "nein", indikator ? std::to_string(indikator->Zeitraum) : "-",
               indikator ? Number(indikator->Indikator) : "-", indikator ? Number(indikator->Faktor) : "-",
               std::to_string(land->Indikatoren()->Count())});
  }
  if (as_json) {
    std::cout << doc.Dump();
    return 0;
  }
  std::cout << laender.Count() << " Länder, Indikatoren für Zeitraum " << key << " (die Reihe endet mit "
            << laender.IndikationEndPeriod() << "; " << (laender.IsEndIndikator(key) ? "erreicht" : "nicht erreicht")
            << ")\n\n";
  table.Print(std::cout);
  return 0;
}

}  // namespace cli
