// ormelix show base: the dated table in force for a period, with every value.
#include <iostream>

#include "common/table.h"
#include "common/values.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "ormelix/text.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using namespace ormelix::modBasiswerte;

namespace {

struct Named {
  int number;
  const char* name;
};

const Named kSAGroups[] = {{1, "Arbeitslosenversicherung"},
                           {14, "ArbeitslosenversicherungLehrlinge2016"},
                           {2, "Krankenversicherung"},
                           {3, "KrankenversicherungArbeiter"},
                           {4, "KrankenversicherungAngestellte"},
                           {5, "KrankenversicherungFreierMitarbeiter"},
                           {15, "KrankenversicherungLehrlinge2016"},
                           {16, "KrankenversicherungLehrlingeBis2016"},
                           {6, "Pensionsversicherung"},
                           {7, "Kammerumlage"},
                           {8, "LandArbeiterKammerumlage"},
                           {9, "Wohnbaufoederung"},
                           {10, "Schlechtwetter"},
                           {11, "Unfallversicherung"},
                           {12, "IESGZuschlag"},
                           {13, "Nachtschwerarbeit"}};

const Named kDGGroups[] = {{1, "Geschäftsführer"},      {2, "Angestellte"},        {3, "Arbeiter"},
                           {4, "Bauarbeiter"},          {5, "Ferialpraktikant"},   {6, "Forstarbeiter"},
                           {7, "RAWAnwaerter"},         {8, "FreierMitarbeiter"},  {9, "LehrlingArbeiter1"},
                           {10, "LehrlingArbeiter2"},   {11, "LehrlingArbeiter3"}, {12, "LehrlingArbeiter4"},
                           {13, "LehrlingArbeiter5"},   {14, "LehrlingAngestellte1"}, {15, "LehrlingAngestellte2"},
                           {16, "LehrlingAngestellte3"}, {17, "LehrlingAngestellte4"}, {18, "LehrlingAngestellte5"},
                           {19, "LehrlingForstArbeiter1"}, {20, "LehrlingForstArbeiter2"},
                           {21, "LehrlingForstArbeiter3"}, {22, "LehrlingForstArbeiter4"},
                           {23, "LehrlingForstArbeiter5"}, {26, "LehrlingArbeiter12016"},
                           {27, "LehrlingArbeiter22016"}, {28, "LehrlingArbeiter32016"},
                           {29, "LehrlingArbeiter42016"}, {30, "LehrlingArbeiter52016"},
                           {31, "LehrlingAngestellte12016"}, {32, "LehrlingAngestellte22016"},
                           {33, "LehrlingAngestellte32016"}, {34, "LehrlingAngestellte42016"},
                           {35, "LehrlingAngestellte52016"}, {36, "LehrlingForstArbeiter12016"},
                           {37, "LehrlingForstArbeiter22016"}, {38, "LehrlingForstArbeiter32016"},
                           {39, "LehrlingForstArbeiter42016"}, {40, "LehrlingForstArbeiter52016"}};

struct SWGroup {
  const char* name;
  const std::shared_ptr<LBasis_SW_Wert>& (LBasis_SW::*get)() const;
};

const SWGroup kSWGroups[] = {{"Geschäftsführer", &LBasis_SW::Geschäftsführer},
                             {"Angestellte", &LBasis_SW::Angestellte},
                             {"Arbeiter", &LBasis_SW::Arbeiter},
                             {"Bauarbeiter", &LBasis_SW::Bauarbeiter},
                             {"RAWAnwaerter", &LBasis_SW::RAWAnwaerter},
                             {"FreierMitarbeiter", &LBasis_SW::FreierMitarbeiter},
                             {"LehrlingAngestellt", &LBasis_SW::LehrlingAngestellt},
                             {"LehrlingArbeiter", &LBasis_SW::LehrlingArbeiter},
                             {"Ferialpraktikant", &LBasis_SW::Ferialpraktikant},
                             {"Forstarbeiter", &LBasis_SW::Forstarbeiter},
                             {"LehrlingForstArbeiter", &LBasis_SW::LehrlingForstArbeiter}};

// The rows of the employer-contribution matrix as the store holds them: groups 1
// to 8 once, the apprentice groups once per length (SortNr 1 to 4).
struct DGLine {
  const Named* group;
  int sort_nr;  // 0 for groups 1 to 8
};

std::vector<DGLine> DGLines() {
  std::vector<DGLine> lines;
  for (const Named& group : kDGGroups) {
    if (group.number <= 8) lines.push_back({&group, 0});
    else
      for (int length = 1; length <= 4; ++length) lines.push_back({&group, length});
  }
  return lines;
}

const ColumnSet<DGRow>& DGColumnsOf(int group) { return group >= 26 ? DGWerte2016Columns() : DGWerteColumns(); }

// The dated table as the object model holds it, keyed by property names: LBasis
// with its eight parts, each value group of SW and SA under its property, the
// wage-tax bands as LST.Item(1..n), and the indexed rows of PP (by SortNr) and
// DG (by DNGruppe and SortNr) as lists of rows.
json::Value TableJson(LBasis& t) {
  json::Value table = json::Value::MakeObject();
  table.Set("ID", t.ID());
  AddColumns(table, ZeittabelleColumns(), t);
  table.Set("Datum_Von", DateHelpers::FormatDate(t.Datum_Von()));

  json::Value& sw = table.Set("SW", ColumnsJson(SWColumns(), *t.SW()));
  for (const SWGroup& group : kSWGroups) sw.Set(group.name, ColumnsJson(SWWerteColumns(), *((*t.SW()).*group.get)()));

  json::Value& lst = table.Set("LST", ColumnsJson(LSTColumns(), *t.LST()));
  json::Value& bands = lst.Set("Item", json::Value::MakeArray());
  for (const auto& band : *t.LST()) bands.Push(ColumnsJson(LSTWerteColumns(), *band));

  json::Value& sa = table.Set("SA", ColumnsJson(SAColumns(), *t.SA()));
  for (const Named& group : kSAGroups) sa.Set(group.name, ColumnsJson(SAWerteColumns(), *t.SA()->Gruppe(group.number)));

  json::Value& pp = table.Set("PP", json::Value::MakeArray());
  for (int sort_nr = 1; sort_nr <= 4; ++sort_nr) {
    PPRow row{t.PP().get(), sort_nr};
    json::Value& band = pp.Push(json::Value::MakeObject());
    band.Set("SortNr", sort_nr);
    AddColumns(band, PPColumns(), row);
  }
  table.Set("FB", ColumnsJson(FBColumns(), *t.FB()));
  table.Set("ALV", ColumnsJson(ALVColumns(), *t.ALV()));

  json::Value& dg = table.Set("DG", ColumnsJson(DGColumns(), *t.DG()));
  json::Value& rows = dg.Set("Wert", json::Value::MakeArray());
  for (const DGLine& line : DGLines()) {
    DGRow row{t.DG().get(), line.group->number, line.sort_nr};
    json::Value& r = rows.Push(json::Value::MakeObject());
    r.Set("DNGruppe", line.group->number);
    r.Set("Gruppe", line.group->name);
    r.Set("SortNr", line.sort_nr ? json::Value(line.sort_nr) : json::Value());
    AddColumns(r, DGColumnsOf(line.group->number), row);
  }
  // The head of marginal employment fills SA.GrenzbetragGeringBeschaeftigte and DGM.
  DGMHead head{t.DGM().get(), t.SA().get()};
  AddColumns(table, DGMColumns(), head);
  json::Value& dgm = *table.Find("DGM");
  for (auto [group, name] : {std::pair{24, "Angestellte"}, std::pair{25, "Arbeiter"}}) {
    DGMRow row{t.DGM().get(), group};
    dgm.Set(name, ColumnsJson(DGMWerteColumns(), row));
  }
  return table;
}

json::Value BaseJson(const BaseSelection& s) {
  json::Value doc = json::Value::MakeObject();
  doc.Set("period", static_cast<long>(s.period));
  doc.Set("fallback", s.fallback);
  json::Value& folder = doc.Set("folder", json::Value::MakeObject());
  folder.Set("ID", s.folder->ID());
  AddColumns(folder, BasiswerteColumns(), *s.folder);
  doc.Set("table", TableJson(*s.table));
  return doc;
}

// Table headers: the names of a declaration's properties.
template <class Target>
void NameColumns(TextTable& table, const ColumnSet<Target>& columns, Target& sample) {
  for (const ColumnValue& value : ColumnValues(columns, sample)) table.Column(value.name, TextTable::Right);
}

bool AllZero(const std::vector<ColumnValue>& values) {
  for (const ColumnValue& value : values)
    if (!IsBlank(value)) return false;
  return true;
}

void PrintBase(std::ostream& out, const BaseSelection& s) {
  LBasis& t = *s.table;
  out << "Ordner    " << s.folder->Bezeichnung << (s.folder->Standardordner ? " (Standardordner)" : "")
      << (s.folder->Wiederherstellung ? " (Wiederherstellung)" : "") << "  " << s.folder->ID() << "\n";
  out << "Tabelle   " << t.Bezeichnung << ", gültig ab " << t.Zeitraum()->Item << " ("
      << DateHelpers::FormatDate(t.Datum_Von()) << ")  " << t.ID() << "\n";
  out << "Zeitraum  " << s.period;
  if (s.fallback) out << ": liegt vor der ersten Tabelle; die neueste Tabelle des Ordners steht dafür";
  out << "\n";

  out << "\nSA  Beitragssätze (Prozent DN / DG, Obergrenze, Sonderzahlung)\n";
  TextTable sa;
  sa.Column("SA");
  NameColumns(sa, SAWerteColumns(), *t.SA()->Krankenversicherung());
  for (const Named& group : kSAGroups) {
    const LBasis_SA_Wert& w = *t.SA()->Gruppe(group.number);
    sa.Row({group.name, Number(w.Prozent), Number(w.Prozent_DG), Amount(w.Obergrenze), Amount(w.Sonderzahlung)});
  }
  sa.Row({"GrenzbetragGeringBeschaeftigte", Number(t.SA()->GrenzbetragGeringBeschaeftigte()->Prozent), "",
          Amount(t.SA()->GrenzbetragGeringBeschaeftigte()->Obergrenze), ""});
  sa.Print(out, "  ");
  PrintPairs(out, "SA  weitere Werte", ColumnValues(SAColumns(), *t.SA()));

  out << "\nLST  Lohnsteuertarif\n";
  TextTable lst;
  LBasis_LST_Werte sample;
  NameColumns(lst, LSTWerteColumns(), sample);
  for (const auto& band : *t.LST())
    lst.Row({Amount(band->Von), Amount(band->Bis), Number(band->steuersatz), Amount(band->unbeschraenkt),
             Amount(band->beschraenkt)});
  lst.Print(out, "  ");
  PrintPairs(out, "LST  Freibeträge", ColumnValues(LSTColumns(), *t.LST()));

  out << "\nPP  Pendlerpauschale\n";
  TextTable pp;
  pp.Column("SortNr", TextTable::Right);
  PPRow first{t.PP().get(), 1};
  NameColumns(pp, PPColumns(), first);
  for (int i = 1; i <= 4; ++i)
    pp.Row({std::to_string(i), Amount(t.PP()->Von[i]), Amount(t.PP()->Bis[i]), Amount(t.PP()->klein[i]),
            Amount(t.PP()->gross[i])});
  pp.Print(out, "  ");
  PrintPairs(out, "FB  Frei- und Absetzbeträge", ColumnValues(FBColumns(), *t.FB()));
  PrintPairs(out, "ALV  Obergrenzen", ColumnValues(ALVColumns(), *t.ALV()));

  out << "\nDG  Dienstgeberbeiträge (Zeilen mit Werten; alle Zeilen mit --json)\n";
  TextTable dg;
  dg.Column("Gruppe");
  dg.Column("SortNr", TextTable::Right);
  DGRow sample_row{t.DG().get(), 1, 0};
  NameColumns(dg, DGWerteColumns(), sample_row);
  for (const DGLine& line : DGLines()) {
    DGRow row{t.DG().get(), line.group->number, line.sort_nr};
    auto values = ColumnValues(DGColumnsOf(line.group->number), row);
    if (AllZero(values)) continue;
    std::vector<std::string> cells = {line.group->name, line.sort_nr ? std::to_string(line.sort_nr) : ""};
    for (const ColumnValue& value : values) cells.push_back(ValueText(value));
    dg.Row(std::move(cells));
  }
  dg.Print(out, "  ");
  PrintPairs(out, "DG  Kopf", ColumnValues(DGColumns(), *t.DG()));

  DGMHead head{t.DGM().get(), t.SA().get()};
  PrintPairs(out, "DGM  Geringfügige Beschäftigung", ColumnValues(DGMColumns(), head));
  out << "\n";
  TextTable dgm;
  dgm.Column("Gruppe");
  DGMRow sample_dgm{t.DGM().get(), 24};
  NameColumns(dgm, DGMWerteColumns(), sample_dgm);
  for (auto [group, name] : {std::pair{24, "Angestellte"}, std::pair{25, "Arbeiter"}}) {
    DGMRow row{t.DGM().get(), group};
    std::vector<std::string> cells = {name};
    for (const ColumnValue& value : ColumnValues(DGMWerteColumns(), row)) cells.push_back(ValueText(value));
    dgm.Row(std::move(cells));
  }
  dgm.Print(out, "  ");

  out << "\nSW  Betriebsratsumlage\n";
  TextTable sw;
  sw.Column("Gruppe");
  NameColumns(sw, SWWerteColumns(), *t.SW()->Angestellte());
  for (const SWGroup& group : kSWGroups) {
    const LBasis_SW_Wert& w = *((*t.SW()).*group.get)();
    sw.Row({group.name, Number(w.USTeiler), Number(w.Prozent), Number(w.grenze)});
  }
  sw.Print(out, "  ");
  PrintPairs(out, "SW  Kopf", ColumnValues(SWColumns(), *t.SW()));
}

std::string FolderNames(const clsBasisdaten& basis) {
  std::string names;
  for (const auto& folder : basis) names += (names.empty() ? "" : ", ") + folder->Bezeichnung;
  return names.empty() ? "none" : names;
}

}  // namespace

BaseSelection SelectBase(clsManager& manager, std::int32_t period, const std::optional<std::string>& folder_name) {
  BaseSelection s;
  s.period = period;
  auto basis = manager.Basis();
  basis->Load();
  if (folder_name) {
    // By name (or ID) only: a number is a name here, not a position in the list.
    for (const auto& folder : *basis)
      if (EqualsFolded(folder->Bezeichnung, *folder_name) || folder->ID() == ValueHelpers::SqlID(*folder_name))
        s.folder = folder;
    if (!s.folder) throw UsageError("unknown folder '" + *folder_name + "'; expected one of: " + FolderNames(*basis));
  } else {
    std::string id = basis->GetStandardBOrdnerID();
    if (id.empty())
      throw UsageError("the store has no Standard folder; name one with --folder (folders: " + FolderNames(*basis) + ")");
    s.folder = basis->Item(Variant(id));
  }
  try {
    s.table = s.folder->Zeittabellen()->GetZeittabelle(period);
  } catch (const KeyNotFound&) {
    throw UsageError("the folder '" + s.folder->Bezeichnung + "' holds no dated table");
  }
  s.fallback = s.table->Zeitraum()->Item > period;
  return s;
}

int ShowBase(clsManager& manager, Arguments& args, bool as_json) {
  std::optional<std::string> period = args.TakeOption("period");
  std::optional<std::string> folder = args.TakeOption("folder");
  args.ExpectEnd("ormelix show base --period YYYYMM [--folder NAME] [--json]");
  if (!period) throw UsageError("show base needs --period YYYYMM (e.g. --period 202503)");
  BaseSelection selection = SelectBase(manager, ParsePeriod(*period), folder);
  if (as_json) std::cout << BaseJson(selection).Dump();
  else PrintBase(std::cout, selection);
  return 0;
}

}  // namespace cli
