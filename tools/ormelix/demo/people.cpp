#include "demo/people.h"

#include <algorithm>
#include <cstdio>

#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"

namespace cli::demo {

using ormelix::DateHelpers::DateSerial;
using ormelix::RoundingHelpers::RoundTo;

std::vector<Person> People(int extra) {
  // Fictitious people: names, insurance numbers and bank accounts are made up.
  std::vector<Person> people = {
      {1001, "Huber", "Anna", "Mag.", "Lohnverrechnung", DateSerial(1986, 4, 12), 1, "1237 120486",
       "Neubaugasse 12/4", "1070", "Wien", Group::Angestellte, 3200, 3350, 0, "Erste Bank",
       "AT00 2011 1000 0000 1001", "GIBAATWWXXX", DateSerial(2015, 3, 1)},
      {1002, "Berger", "Markus", "", "Koch", DateSerial(1991, 9, 3), 2, "2341 030991", "Zieglergasse 30",
       "1070", "Wien", Group::Arbeiter, 13.50, 14.00, 160, "BAWAG", "AT00 1400 0000 0000 1002", "BAWAATWWXXX",
       DateSerial(2019, 5, 15)},
      {1003, "Gruber", "Lena", "", "Lehrling Hotel- und Gastgewerbeassistentin", DateSerial(2006, 2, 20), 1,
       "3452 200206", "Kaiserstraße 8", "1070", "Wien", Group::Lehrling, 950, 1050, 0, "Raiffeisen",
       "AT00 3200 0000 0000 1003", "RLNWATWWXXX", DateSerial(2022, 3, 15)},
      {1004, "Wagner", "Thomas", "Dipl.-Ing.", "Geschäftsführer", DateSerial(1975, 11, 30), 2, "4563 301175",
       "Schottenfeldgasse 65", "1070", "Wien", Group::Geschaeftsfuehrer, 6500, 6500, 0, "Erste Bank",
       "AT00 2011 1000 0000 1004", "GIBAATWWXXX", DateSerial(2010, 1, 1)},
      {1005, "Pichler", "Sabine", "", "Servicekraft", DateSerial(1999, 6, 8), 1, "5674 080699",
       "Lindengasse 41", "1070", "Wien", Group::Geringfuegig, 480, 520, 0, "Bank Austria",
       "AT00 1200 0000 0000 1005", "BKAUATWWXXX", DateSerial(2024, 2, 1)},
  };
  for (int n = 1; n <= extra; ++n) {
    char number[16];
    std::snprintf(number, sizeof number, "%04d", n);
    double pay = 2000 + (n % 40) * 50;
    people.push_back({static_cast<std::int16_t>(1005 + n), std::string("Mitarbeiter ") + number, "Demo", "",
                      "Service", DateSerial(1970 + n % 35, 1 + n % 12, 1 + n % 28), static_cast<std::int16_t>(1 + n % 2),
                      "", "Demogasse " + std::to_string(n), "1070", "Wien", Group::Angestellte, pay, pay + 80, 0,
                      "Demobank", "", "", DateSerial(2020, 1 + n % 12, 1)});
  }
  return people;
}

const char* GroupName(Group group) {
  switch (group) {
    case Group::Angestellte: return "Angestellte";
    case Group::Arbeiter: return "Arbeiter";
    case Group::Lehrling: return "Lehrling (Angestellte)";
    case Group::Geschaeftsfuehrer: return "Geschäftsführer";
    case Group::Geringfuegig: return "geringfügig beschäftigt";
  }
  return "";
}

double MonthlyGross(const Person& person, int year) {
  double pay = year >= 2025 ? person.pay2025 : person.pay2024;
  return person.group == Group::Arbeiter ? RoundTo(pay * person.hours, 2) : pay;
}

Contributions WorkOut(const Person& person, double gross, const ormelix::LBasis& table) {
  const ormelix::LBasis_SA& sa = *table.SA();
  const ormelix::LBasis_ALV& bands = *table.ALV();
  Contributions c;
  double ceiling = sa.Krankenversicherung()->Obergrenze;
  c.basis = ceiling > 0 ? std::min(gross, ceiling) : gross;
  // The employee's ALV share falls for low bases: 0, 1 and 2 percent up to the bounds.
  auto alv = [&](double full, bool apprentice) {
    if (c.basis <= bands.N25a_bis) return 0.0;
    if (c.basis <= bands.N25b_bis) return 1.0;
    if (!apprentice && c.basis <= bands.N25c_bis) return 2.0;
    return full;
  };
  switch (person.group) {
    case Group::Angestellte:
    case Group::Arbeiter:
    case Group::Geschaeftsfuehrer:
      c.alv_percent = alv(sa.Arbeitslosenversicherung()->Prozent, false);
      c.employee_percent = sa.Krankenversicherung()->Prozent + sa.Pensionsversicherung()->Prozent + c.alv_percent +
                           sa.Kammerumlage()->Prozent + sa.Wohnbaufoederung()->Prozent;
      c.employer_percent = sa.Krankenversicherung()->Prozent_DG + sa.Pensionsversicherung()->Prozent_DG +
                           sa.Arbeitslosenversicherung()->Prozent_DG + sa.Wohnbaufoederung()->Prozent_DG +
                           sa.Unfallversicherung()->Prozent_DG + sa.IESGZuschlag()->Prozent_DG;
      break;
    case Group::Lehrling:
      c.alv_percent = alv(sa.ArbeitslosenversicherungLehrlinge2016()->Prozent, true);
      c.employee_percent =
          sa.KrankenversicherungLehrlinge2016()->Prozent + sa.Pensionsversicherung()->Prozent + c.alv_percent;
      c.employer_percent = sa.KrankenversicherungLehrlinge2016()->Prozent_DG + sa.Pensionsversicherung()->Prozent_DG;
      break;
    case Group::Geringfuegig:  // below the limit the employee pays nothing, the employer accident insurance
      c.employer_percent = sa.Unfallversicherung()->Prozent_DG;
      break;
  }
  c.employee = RoundTo(c.basis * c.employee_percent / 100, 2);
  c.employer = RoundTo(c.basis * c.employer_percent / 100, 2);
  return c;
}

}  // namespace cli::demo
