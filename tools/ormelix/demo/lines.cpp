// The demo's wage-type lines, its one transfer and the year data, entered the way a
// host enters them, and the walk's view of them.
#include "demo/lines.h"

#include <iomanip>
#include <optional>
#include <string>
#include <vector>

#include "common/table.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"

namespace cli::demo {

using namespace ormelix;
using DateHelpers::DateSerial;

namespace {

struct Line {
  int group;  // eLohnartenConstants
  int line;
  const char* text;
  float anzahl, satz, betrag;
  bool salary = false;       // part of the salary (a Betrag of 0 stands for the whole salary)
  bool dbdzkst_frei = false;  // free of DB, DZ and Kommunalsteuer
};

struct Transfer {
  Date datum;
  std::int16_t begr1, begr2;
  const char* kuerzel1;
  const char* kuerzel2;
  float basis1, basis2;  // the pay of the days before and from the transfer
  std::int16_t lehrjahre;
};

struct Month {
  int personalnummer, year, month;
  std::vector<Line> lines;
  std::optional<Transfer> transfer;
};

// Fictitious entries of March 2025: overtime, an allowance free of DB/DZ/KommSt,
// canteen meals deducted and mileage paid for the white-collar employee (overtime
// at 1/143 of the salary plus 50 %); a dirt allowance, tax-free under § 68 EStG,
// for the cook; and the apprentice who becomes a white-collar employee on the
// 15th, paid 14 of 30 days as apprentice and 16 as employee. Then the last month
// of the waitress's fixed term, December 2024.
const std::vector<Month>& Months() {
  static const std::vector<Month> months = {
      {1001, 2025, 3,
       {{Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 1, "Gehalt", 0, 0, 0, true},
        {Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 2, "Überstunden 50 %", 8, 35.140f, 0},
        {Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 3, "Zulage, frei von DB/DZ/KommSt", 0, 0, 200, false, true},
        {Sonstige_Abzüge_Zusatz, 1, "Kantinenessen", 12, 3.5f, 0},
        {Aufwandsentschädigung_Zusatz, 1, "Kilometergeld", 120, 0.5f, 0}},
       std::nullopt},
      {1002, 2025, 3, {{Zulagen_LST_frei_68_SV_pfl_Zusatz, 1, "Schmutzzulage (§ 68 Abs. 1 EStG)", 20, 1.8f, 0}},
       std::nullopt},
      {1003, 2025, 3,
       {{Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 1, "Lehrlingsentschädigung 1.-14. März", 0, 0, 490, true},
        {Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 2, "Gehalt 15.-31. März", 0, 0, 1200, true}},
       Transfer{DateSerial(2025, 3, 15), eBasisDGLehrlingAngestellte32016, eBasisDGAngestellte, "D2", "D1", 490, 1200,
                3}},
      // The waitress's last month: sick from the 16th (continued pay), and her three
      // open days of leave paid out at the end of the fixed term, free of
      // contributions in December: they count for January, as a replacement benefit.
      {1005, 2024, 12,
       {{Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 1, "Entgelt 1.-15. Dezember", 0, 0, 240, true},
        {Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, 2, "Entgeltfortzahlung Krankenstand 16.-31. Dezember", 0, 0, 240,
         true},
        {Laufende_Bezüge_LST_pfl_SV_frei_Zusatz, 1, "Urlaubsersatzleistung 3 Tage (SV im Jänner 2025)", 3, 16, 0}},
       std::nullopt},
  };
  return months;
}

const Month* Find(const Person& person, int year, int month) {
  for (const Month& m : Months())
    if (m.personalnummer == person.personalnummer && m.year == year && m.month == month) return &m;
  return nullptr;
}

// Anzahl x Satz + Betrag, to the cent.
double LineAmount(const Line& line) {
  return RoundingHelpers::MultiplyExact(line.anzahl, Variant(line.satz), 2) + line.betrag;
}

void WriteLine(LLohn& lohn, const Line& line, float betrag, int month) {
  const int g = line.group;
  const int i = line.line;
  if (g == Sonstige_Abzüge_Zusatz) {
    lohn.SonstigeAbz_text(i, month) = line.text;
    lohn.SonstigeAbz_Anzahl(i, month) = line.anzahl;
    lohn.SonstigeAbz_Satz(i, month) = line.satz;
    lohn.SonstigeAbz_Betrag(i, month) = betrag;
  } else if (g == Aufwandsentschädigung_Zusatz) {
    lohn.Aufwandsentsch_text(i, month) = line.text;
    lohn.Aufwandsentsch_Anzahl(i, month) = line.anzahl;
    lohn.Aufwandsentsch_Satz(i, month) = line.satz;
    lohn.Aufwandsentsch_Betrag(i, month) = betrag;
  } else {
    lohn.ZSL_Text(g, i, month) = line.text;
    lohn.ZSL_Anzahl(g, i, month) = line.anzahl;
    lohn.ZSL_Satz(g, i, month) = line.satz;
    lohn.ZSL_Betrag(g, i, month) = betrag;
    if (g == Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz) lohn.ZSL_DBDZKST_frei(i, month) = line.dbdzkst_frei;
  }
}

void WriteTransfer(LLohn& lohn, const Transfer& t, int month) {
  LLohn_Übertritt& u = *lohn.Uebertritt(month);
  u.Datum = t.datum;
  u.BEGR1 = t.begr1;
  u.BEGR2 = t.begr2;
  u.BEGRKürzel1 = t.kuerzel1;
  u.BEGRKürzel2 = t.kuerzel2;
  u.Basis1 = t.basis1;
  u.Basis2 = t.basis2;
  u.LehrJahre = t.lehrjahre;
}

// The contributions of a month with a transfer: the days before at the rates of
// the group before, the days from it at those of a white-collar employee.
Contributions SplitContributions(const Person& person, const Transfer& t, double extra, const LBasis& table) {
  Person after = person;
  after.group = Group::Angestellte;
  Contributions before = WorkOut(person, t.basis1, table);
  Contributions from = WorkOut(after, t.basis2 + extra, table);
  Contributions c = from;
  c.basis = before.basis + from.basis;
  c.employee = RoundingHelpers::RoundTo(before.employee + from.employee, 2);
  c.employer = RoundingHelpers::RoundTo(before.employer + from.employer, 2);
  return c;
}

void Step(std::ostream& out, const std::string& what, const std::string& detail) {
  out << "  " << std::left << std::setw(14) << what << detail << "\n";
}

}  // namespace

void AddLinesAndTransfer(LLohn& lohn, const Person& person, int year, int month, const LBasis& table) {
  const Month* entry = Find(person, year, month);
  if (!entry) return;
  double salary = entry->transfer ? entry->transfer->basis1 + entry->transfer->basis2 : MonthlyGross(person, year);
  double extra = 0;  // pay beside the salary on which contributions are due
  for (const Line& line : entry->lines) {
    const float betrag = line.salary && line.betrag == 0 ? static_cast<float>(salary) : line.betrag;
    WriteLine(lohn, line, betrag, month);
    const bool pay =
        line.group == Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz || line.group == Zulagen_LST_frei_68_SV_pfl_Zusatz;
    if (pay && !line.salary) extra += LineAmount(line);
  }
  Contributions c = WorkOut(person, salary + extra, table);
  if (entry->transfer) {
    WriteTransfer(lohn, *entry->transfer, month);
    c = SplitContributions(person, *entry->transfer, extra, table);
    lohn.Gehalt(month) = static_cast<float>(salary);
  }
  lohn.LFD_Bezuege(month) = static_cast<float>(salary + extra);
  lohn.SV_Laufend_Basis(month) = static_cast<float>(c.basis);
  lohn.SV_Laufend_Basis_Berechnet(month) = c.basis;
  lohn.SV_Laufend(month) = static_cast<float>(c.employee);
  lohn.SV_Laufend_DG(month) = c.employer;
}

int MonthTables(const Person& person, int year, int month) {
  int tables = ucTableLohnzettel;
  if (const Month* entry = Find(person, year, month)) {
    if (!entry->lines.empty()) tables |= ucTableLohnarten;
    if (entry->transfer) tables |= ucTableÜbertritte;
  }
  return tables;
}

void FillYearData(LLohn_Jahresdaten& j, const Person& person, int year) {
  j.DZBundesland = eBasisWien;  // the employer is in Vienna
  j.Bemerkung = "Jahresdaten " + std::to_string(year);
  const bool insured = person.group != Group::Geringfuegig && person.group != Group::Lehrling;
  // The e-card service fee is taken with the November pay.
  j.ServiceEntgeltMonat = insured ? 11 : 0;
  j.ServiceEntgeltAnzahl = insured ? 1 : 0;
  j.AngewandterKV = person.group != Group::Geschaeftsfuehrer;
  if (j.AngewandterKV)
    j.AngewandterKVText = person.group == Group::Arbeiter ? "Kollektivvertrag für Arbeiter im Hotel- und Gastgewerbe"
                                                          : "Kollektivvertrag für Angestellte im Hotel- und Gastgewerbe";
  if (person.group == Group::Geschaeftsfuehrer) {  // a company car all year
    j.KFZ_Anzahl_Kalendermonate = 12;
    j.SachbezugRegelung()->SBezugAb = true;
    j.SachbezugRegelung()->SBezugMonat = 1;
    j.SachbezugRegelung()->SBezugJahr = static_cast<std::int16_t>(year);
  }
}

void WalkLinesAndYear(std::ostream& out, const LLohn& lohn, int year, int month) {
  std::string what = "wage types";
  for (int line = 1; line <= 5; ++line) {
    const float anzahl = lohn.ZSL_Anzahl(1, line, month);
    const float betrag = lohn.ZSL_Betrag(1, line, month);
    if (lohn.ZSL_Text(1, line, month).empty() && anzahl == 0 && betrag == 0) continue;
    std::string detail = "group 1 line " + std::to_string(line) + " \"" + lohn.ZSL_Text(1, line, month) + "\" ";
    const float satz = lohn.ZSL_Satz(1, line, month);
    if (anzahl != 0)
      detail += Number(anzahl) + " x " + Number(satz) + (betrag != 0 ? " + " + cli::Amount(betrag) : "") + " = ";
    detail += cli::Amount(RoundingHelpers::MultiplyExact(anzahl, Variant(satz), 2) + betrag);
    if (lohn.ZSL_DBDZKST_frei(line, month)) detail += ", marked free of DB/DZ/KommSt";
    Step(out, what, detail);
    what.clear();
  }
  const double marked = lohn.GetDBDZKST_frei(static_cast<std::int16_t>(month));
  Step(out, what, "GetDBDZKST_frei(" + std::to_string(month) + ") = " + cli::Amount(marked) + " of LFD_Bezuege " +
                      cli::Amount(lohn.LFD_Bezuege(month)) +
                      ": the marked part counts when the lines of group 1 add up to LFD_Bezuege");
  const LLohn_Jahresdaten& j = *lohn.Jahresdaten();
  Step(out, "year data", "Jahresdaten " + std::to_string(year) + ": DZBundesland " +
                             std::to_string(static_cast<int>(j.DZBundesland)) + ", " + j.AngewandterKVText +
                             ", ServiceEntgelt with the pay of month " + std::to_string(j.ServiceEntgeltMonat));
}

}  // namespace cli::demo
