// Mitarbeiter_Lohnarten: the free wage-type lines of a month, one row per employee,
// month, group and line, held in memory in LLohn's ZSL_, SonstigeAbz_ and
// Aufwandsentsch_ grids.
#include <stdexcept>

#include "load_statements.h"
#include "month_check.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohnarten.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/store/value_helpers.h"
#include "store_access.h"

namespace ormelix::modDatabase {

namespace {

using namespace ValueHelpers;
using L = LLohn;
using Columns = ColumnSet<LohnartenLine>;
using Decl = Columns::Decl;

// A cell of a ZSL_ grid (groups 1 to 6): group, line, month; named as the grid.
template <auto M>
PropertyRef ZslGet(LohnartenLine& row) {
  return &(row.lohn->*M)(row.group, row.line, row.month);
}
template <auto M>
constexpr Property<LohnartenLine> Zsl{&ZslGet<M>, kMemberName<M>};

// A cell of a grid of one group, or a flag of a line: line, month; named as the grid.
template <auto M>
PropertyRef LineGet(LohnartenLine& row) {
  return &(row.lohn->*M)(row.line, row.month);
}
template <auto M>
constexpr Property<LohnartenLine> Line{&LineGet<M>, kMemberName<M>};

// Groups 1 to 6: quantity and amount keep two decimals in the store, rate and
// percentage three.
constexpr Decl kZslText{"Bezeichnung", Zsl<&L::ZSL_Text>, LoadAs::Text, SaveAs::Direct};
constexpr Decl kZslAnzahl{"Anzahl", Zsl<&L::ZSL_Anzahl>, LoadAs::Amount, SaveAs::Round2};
constexpr Decl kZslSatz{"Satz", Zsl<&L::ZSL_Satz>, LoadAs::Amount, SaveAs::Round3};
constexpr Decl kZslBetrag{"Betrag", Zsl<&L::ZSL_Betrag>, LoadAs::Amount, SaveAs::Round2};
constexpr Decl kZslProzent{"Zuschlag_Prozent", Zsl<&L::ZSL_Prozent>, LoadAs::Amount, SaveAs::Round3};

// The markings of a line, each read and written by rows of its own group only. They
// are read as numbers, so that whatever number a store holds for True reads True.
constexpr Decl kDBDZKSTFrei{"ZSL_DBDZKST_frei", Line<&L::ZSL_DBDZKST_frei>, LoadAs::Amount, SaveAs::Direct};
constexpr Decl kTeuerungsprämie{"ZSL_Teuerungsprämie", Line<&L::ZSL_Teuerungsprämie>, LoadAs::Amount,
                                SaveAs::Direct};
constexpr Decl kTeuerungsprämieKV{"ZSL_TeuerungsprämieKV", Line<&L::ZSL_TeuerungsprämieKV>, LoadAs::Amount,
                                  SaveAs::Direct};
constexpr Decl kGewinnbeteiligung{"ZSL_Mitarbeitergewinnbeteiligung", Line<&L::ZSL_Mitarbeitergewinnbeteiligung>,
                                  LoadAs::Amount, SaveAs::Direct};

// Groups 7 and 8: four values, no percentage and no marking.
template <auto Text, auto Anzahl, auto Satz, auto Betrag>
Columns GroupOfItsOwn() {
  return Columns{{"Bezeichnung", Line<Text>, LoadAs::Text, SaveAs::Direct},
                 {"Anzahl", Line<Anzahl>, LoadAs::Amount, SaveAs::Round2},
                 {"Satz", Line<Satz>, LoadAs::Amount, SaveAs::Round3},
                 {"Betrag", Line<Betrag>, LoadAs::Amount, SaveAs::Round2}};
}

std::string TableSql(const std::string& id) {
  return "SELECT * FROM [Mitarbeiter_Lohnarten] WHERE [MitarbeiterID]=" + SqlID(id);
}

// The line a stored row stands for. A SortNr outside 1..5 is the range failure of
// the line, naming the row, before anything of the row is taken.
int LineOf(const Variant& sort_nr, int group, int month, const std::string& id) {
  const int line = ToInteger(sort_nr);
  if (line < 1 || line > 5)
    throw std::out_of_range("Mitarbeiter_Lohnarten: SortNr " + std::to_string(line) + " of group " +
                            std::to_string(group) + " in month " + std::to_string(month) + " of employee " + id +
                            " is no line 1..5");
  return line;
}

// The columns of each group bound once to the recordset of a load.
struct BoundGroups {
  std::vector<int> columns[9];
  int sort_nr;

  explicit BoundGroups(const Recordset& rs) : sort_nr(rs.FieldIndex("SortNr")) {
    for (int group = 1; group <= 8; ++group) columns[group] = LohnartenColumns(group).Bind(rs);
  }
};

// The whole number 1..last a cell holds, as an equality filter on it would match
// it (numbers and numeric text alike); 0 for any other value.
int WholeIn(const Variant& cell, double first, int last) {
  double number = 0;
  if (!cell.TryNumber(number)) return 0;
  const double offset = number - first + 1;
  return offset >= 1 && offset <= last && offset == static_cast<int>(offset) ? static_cast<int>(offset) : 0;
}

// The rows of a load sorted once by month (1..12) and group (1..8), each list in
// the recordset's order: what the filters "[Zeitraum]=<month> AND [Lohnarttyp]=<group>"
// would give, without filtering the recordset 108 times. Rows of other years or
// groups are in no list. The cells stay valid while the recordset is open.
class RowsByMonthAndGroup {
 public:
  RowsByMonthAndGroup(Recordset& rs, std::int16_t year) {
    const int zeitraum = rs.FieldIndex("Zeitraum");
    const int lohnarttyp = rs.FieldIndex("Lohnarttyp");
    const double january = MakeZeitraum(1, year);
    for (; !rs.Eof(); rs.MoveNext()) {
      const Variant* row = rs.CurrentRow();
      const int month = WholeIn(row[zeitraum], january, 12);
      const int group = WholeIn(row[lohnarttyp], 1, MaxAnzahl);
      if (month && group) rows_[month][group].push_back(row);
    }
  }
  bool HasMonth(int month) const {
    for (int group = 1; group <= MaxAnzahl; ++group)
      if (!rows_[month][group].empty()) return true;
    return false;
  }
  const std::vector<const Variant*>& Of(int month, int group) const { return rows_[month][group]; }

 private:
  std::vector<const Variant*> rows_[13][MaxAnzahl + 1];
};

// The rows of one group in one month, each into its line.
void LoadGroup(const RowsByMonthAndGroup& rows, LLohn& lohn, int group, int month, const BoundGroups& bound,
               const std::string& id) {
  for (const Variant* cells : rows.Of(month, group)) {
    LohnartenLine row{&lohn, group, LineOf(cells[bound.sort_nr], group, month, id), month};
    LohnartenColumns(group).Load(row, cells, bound.columns[group]);
  }
}

}  // namespace

const ColumnSet<LohnartenLine>& LohnartenColumns(int pLohnarttyp) {
  static const Columns group1{kZslText, kZslAnzahl, kZslSatz, kZslBetrag, kZslProzent, kDBDZKSTFrei};
  static const Columns group2{kZslText,   kZslAnzahl,       kZslSatz,          kZslBetrag,
                              kZslProzent, kTeuerungsprämie, kTeuerungsprämieKV};
  static const Columns group3{kZslText, kZslAnzahl, kZslSatz, kZslBetrag, kZslProzent, kGewinnbeteiligung};
  static const Columns group4to6{kZslText, kZslAnzahl, kZslSatz, kZslBetrag, kZslProzent};
  static const Columns group7 = GroupOfItsOwn<&L::SonstigeAbz_text, &L::SonstigeAbz_Anzahl, &L::SonstigeAbz_Satz,
                                              &L::SonstigeAbz_Betrag>();
  static const Columns group8 = GroupOfItsOwn<&L::Aufwandsentsch_text, &L::Aufwandsentsch_Anzahl,
                                              &L::Aufwandsentsch_Satz, &L::Aufwandsentsch_Betrag>();
  switch (pLohnarttyp) {
    case Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz:
      return group1;
    case Laufende_Bezüge_LST_frei_SV_frei_Zusatz:
      return group2;
    case Laufende_Bezüge_LST_frei_SV_pfl_Zusatz:
      return group3;
    case Laufende_Bezüge_LST_pfl_SV_frei_Zusatz:
    case Zulagen_LST_frei_68_SV_pfl_Zusatz:
    case Zulagen_LST_frei_68_SV_frei_Zusatz:
      return group4to6;
    case Sonstige_Abzüge_Zusatz:
      return group7;
    case Aufwandsentschädigung_Zusatz:
      return group8;
    default:
      throw std::out_of_range("Lohnarttyp " + std::to_string(pLohnarttyp) + " is no wage-type group 1..8");
  }
}

void LoadLohnarten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = PayrollStore(pManager).OpenRecordset(detail::LinesLoadSql(pMitarbeiterID));
  if (rs->Eof()) {
    rs->Close();
    return;
  }
  const BoundGroups bound(*rs);
  const RowsByMonthAndGroup rows(*rs, pManager.AktJahr);
  for (int month = 1; month <= 12; ++month) {
    if (!rows.HasMonth(month)) continue;
    for (int group = 1; group <= 6; ++group) LoadGroup(rows, pLohn, group, month, bound, pMitarbeiterID);
    // Group 7 is read in two passes in a row; the second finds the same rows and
    // changes nothing.
    LoadGroup(rows, pLohn, Sonstige_Abzüge_Zusatz, month, bound, pMitarbeiterID);
    LoadGroup(rows, pLohn, Sonstige_Abzüge_Zusatz, month, bound, pMitarbeiterID);
    LoadGroup(rows, pLohn, Aufwandsentschädigung_Zusatz, month, bound, pMitarbeiterID);
  }
  rs->Close();
}

void SaveLohnarten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  const std::int16_t month = pManager.AktMonat;
  RequireSaveMonth("SaveLohnarten", "AktMonat", month);
  const std::int32_t zeitraum = MakeZeitraum(month, pManager.AktJahr);
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(
      TableSql(pMitarbeiterID) + " AND [Zeitraum]=" + std::to_string(zeitraum) + " ORDER BY [SortNr]", adOpenDynamic,
      adLockOptimistic);
  const int sort_nr = rs->FieldIndex("SortNr");
  for (int group = 1; group <= MaxAnzahl; ++group) {
    // The group's rows in the order of SortNr take the lines in order, line i into
    // the i-th row whatever number it carries (0 or 7 alike); SortNr of a row that
    // is there already is not touched, and rows are added only past the last one.
    rs->Filter("[Lohnarttyp]=" + std::to_string(group));
    for (int line = 1; line <= 5; ++line) {
      if (rs->Eof()) {
        rs->AddNew();
        rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
        rs->Collect("Zeitraum", Variant(zeitraum));
        rs->Collect("Lohnarttyp", Variant(static_cast<std::int16_t>(group)));
        rs->Collect(sort_nr, Variant(static_cast<std::int16_t>(line)));
      }
      LohnartenLine row{&pLohn, group, line, month};
      LohnartenColumns(group).Save(row, *rs);
      rs->Update();
      rs->MoveNext();
    }
  }
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string LinesLoadSql(const std::string& employee_id) {
  return modDatabase::TableSql(employee_id) + " ORDER BY [Zeitraum], [SortNr]";
}

}  // namespace ormelix::detail
