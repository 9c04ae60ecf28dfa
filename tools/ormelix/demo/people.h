// The demo's employees and the social insurance the demo host works out for them
// from the base values of a month.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ormelix/basevalues/basis.h"
#include "ormelix/store/variant.h"

namespace cli::demo {

enum class Group { Angestellte, Arbeiter, Lehrling, Geschaeftsfuehrer, Geringfuegig };

struct Person {
  std::int16_t personalnummer;
  std::string family_name, first_name, title, occupation;
  ormelix::Date birth;
  std::int16_t gender;  // 1 female, 2 male
  std::string insurance_number, address, postcode, town;
  Group group;
  double pay2024, pay2025;  // monthly gross; for Arbeiter the hourly wage
  double hours;             // hours a month, Arbeiter only
  std::string bank, iban, bic;
  ormelix::Date entry;
};

// The five named employees, then `extra` generated white-collar ones.
std::vector<Person> People(int extra);

const char* GroupName(Group group);
double MonthlyGross(const Person& person, int year);

// What the host works out for a month from the dated table in force.
struct Contributions {
  double basis = 0;            // the contribution base, capped at the ceiling
  double employee_percent = 0;
  double employer_percent = 0;
  double employee = 0;         // rounded to cents
  double employer = 0;
  double alv_percent = 0;      // the employee's ALV share after the low-income bands
};
Contributions WorkOut(const Person& person, double gross, const ormelix::LBasis& table);

}  // namespace cli::demo
