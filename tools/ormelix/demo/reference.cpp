// The reference store of the demo: municipalities, company provision funds, exit
// reasons and countries with dated indicators. The library only reads these
// tables; a host fills them, here row by row through the store.
//
// Real: the municipality numbers (Gemeindekennziffern) and postcodes of the six
// cities, and the countries' names, ISO codes, vehicle codes and EU membership.
// Made up, and named so: the provision funds and their Leitzahl, the clerks, the
// exit reasons' numbering, the country codes (HVB) and all indicator values.
#include <initializer_list>
#include <string>
#include <vector>

#include "demo/employer.h"
#include "ormelix/store/variant.h"

namespace cli {

using ormelix::Variant;

namespace {

using Row = std::vector<Variant>;

std::string Literal(const Variant& value) {
  if (value.kind() == Variant::Boolean) return value.AsBool() ? "-1" : "0";
  if (!value.IsText()) return value.Describe();
  std::string quoted = "'";
  for (char c : value.AsText()) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

// A table with the store's own key takes its rows through a recordset; the tables
// keyed by a number of their own (exit reasons, countries) through INSERT.
void AddRows(ormelix::clsManager& manager, const std::string& table, std::initializer_list<const char*> columns,
             const std::vector<Row>& rows, bool own_key = false) {
  ormelix::StoreSession& store = manager.ImportDB()->Session();
  if (own_key) {
    std::string names;
    for (const char* column : columns) names += std::string(names.empty() ? "" : ", ") + "[" + column + "]";
    for (const Row& row : rows) {
      std::string values;
      for (const Variant& value : row) values += (values.empty() ? "" : ", ") + Literal(value);
      store.ExecuteSql("INSERT INTO [" + table + "] (" + names + ") VALUES (" + values + ")");
    }
    return;
  }
  auto rs = store.OpenRecordset("SELECT * FROM [" + table + "]", ormelix::adOpenDynamic, ormelix::adLockOptimistic);
  for (const Row& row : rows) {
    rs->AddNew();
    std::size_t i = 0;
    for (const char* column : columns) rs->Collect(column, row.at(i++));
    rs->Update();
  }
  rs->Close();
}

void AddMunicipalities(ormelix::clsManager& manager) {
  AddRows(manager, "Gemeinden", {"Gemeindenummer", "Gemeinde", "PLZ", "Ort", "Sachbearbeiter"},
          {{"90001", "Wien", "1010", "Wien", "Demo-Sachbearbeitung Wien"},
           {"60101", "Graz", "8010", "Graz", "Demo-Sachbearbeitung Graz"},
           {"40101", "Linz", "4020", "Linz", "Demo-Sachbearbeitung Linz"},
           {"50101", "Salzburg", "5020", "Salzburg", "Demo-Sachbearbeitung Salzburg"},
           {"70101", "Innsbruck", "6020", "Innsbruck", "Demo-Sachbearbeitung Innsbruck"},
           {"20101", "Klagenfurt am Wörthersee", "9020", "Klagenfurt am Wörthersee",
            "Demo-Sachbearbeitung Klagenfurt"}});
}

void AddProvisionFunds(ormelix::clsManager& manager) {
  AddRows(manager, "BMVG_Kassen",
          {"Leitzahl", "Name", "Sachbearbeiter", "Strasse", "PLZ", "Ort", "Telefon", "Institut", "Bauarbeiter_Kasse",
           "Anmerkung"},
          {{"99010", "Demo Vorsorgekasse Nord AG", "Demo-Team Nord", "Demogasse 10", "1010", "Wien",
            "+43 1 000 10", "Demo Vorsorgekasse Nord", false, "erfundene Demokasse"},
           {"99020", "Demo Vorsorgekasse Süd AG", "Demo-Team Süd", "Demoplatz 20", "8010", "Graz", "+43 316 000 20",
            "Demo Vorsorgekasse Süd", false, "erfundene Demokasse"},
           {"99030", "Demo Bauarbeiter-Vorsorgekasse", "Demo-Team Bau", "Demoweg 30", "1030", "Wien",
            "+43 1 000 30", "Demo Bau", true, "erfundene Demokasse für Bauarbeiter"}});
}

// The career rows name these codes in their column Grund.
void AddExitReasons(ormelix::clsManager& manager) {
  AddRows(manager, "DM_Austrittsgründe", {"Code", "Kürzel", "Grund"},
          {{1, "K-DG", "Kündigung durch den Dienstgeber"},
           {2, "K-DN", "Kündigung durch den Dienstnehmer"},
           {3, "EV", "Einvernehmliche Lösung"},
           {4, "ZA", "Zeitablauf bei Befristung"},
           {5, "EN", "Entlassung"},
           {6, "VA", "Vorzeitiger Austritt"},
           {7, "PR", "Lösung in der Probezeit"},
           {8, "PE", "Pensionsantritt"},
           {9, "TO", "Tod"}},
          true);
}

struct Country {
  int id, hvb;
  const char* kurz;
  const char* name;
  const char* a3;
  const char* a2;
  const char* kfz;
  bool eu;
  double indicator2019, indicator2020;  // demo values; 0 for none
};

// Indicators from 201901 and 202001, the second missing for some; the series ends
// at 202208 (clsLänder::IndikationEndPeriod).
const Country kCountries[] = {
    {1, 100, "Österreich", "Republik Österreich", "AUT", "AT", "A", true, 100, 100},
    {2, 110, "Deutschland", "Bundesrepublik Deutschland", "DEU", "DE", "D", true, 98.5, 99.1},
    {3, 120, "Italien", "Italienische Republik", "ITA", "IT", "I", true, 95.2, 0},
    {4, 130, "Schweiz", "Schweizerische Eidgenossenschaft", "CHE", "CH", "CH", false, 142.0, 144.5},
    {5, 140, "Ungarn", "Ungarn", "HUN", "HU", "H", true, 56.3, 57.8},
    {6, 150, "Slowakei", "Slowakische Republik", "SVK", "SK", "SK", true, 62.1, 63.0},
    {7, 160, "Tschechien", "Tschechische Republik", "CZE", "CZ", "CZ", true, 68.4, 69.9},
    {8, 170, "Slowenien", "Republik Slowenien", "SVN", "SI", "SLO", true, 79.6, 0},
    {9, 180, "Kroatien", "Republik Kroatien", "HRV", "HR", "HR", true, 61.7, 62.4},
    {10, 190, "Serbien", "Republik Serbien", "SRB", "RS", "SRB", false, 0, 0},
};

void AddCountries(ormelix::clsManager& manager) {
  std::vector<Row> countries;
  std::vector<Row> indicators;
  int indicator_id = 0;
  for (const Country& c : kCountries) {
    countries.push_back({c.id, c.hvb, c.kurz, c.name, c.a3, c.a2, c.kfz, c.eu});
    for (auto [period, value] : {std::pair{201901, c.indicator2019}, std::pair{202001, c.indicator2020}})
      if (value != 0) indicators.push_back({++indicator_id, c.id, period, value, value / 100});
  }
  AddRows(manager, "Länder", {"ID", "HVB", "Kurzbezeichnung", "Bezeichnung", "ISOA3", "ISOA2", "KFZ", "EULand"},
          countries, true);
  AddRows(manager, "Länder_Indikatoren", {"ID", "LID", "Zeitraum", "Indikator", "Faktor"}, indicators, true);
}

}  // namespace

void BuildReference(ormelix::clsManager& manager, std::ostream& out) {
  AddMunicipalities(manager);
  AddProvisionFunds(manager);
  AddExitReasons(manager);
  AddCountries(manager);
  out << "  reference store: 6 municipalities, 3 provision funds (made up), 9 exit reasons, "
      << std::size(kCountries) << " countries with indicators (demo values)\n";
}

}  // namespace cli
