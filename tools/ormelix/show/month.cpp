// ormelix show month: one employee's master data and pay month, with the career,
// children, wage-type lines, transfer, year data, short-time work and benefits of
// the month.
#include <iostream>

#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/value_helpers.h"
#include "show/career_view.h"
#include "show/children_view.h"
#include "show/month_benefits.h"
#include "show/month_lines.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

bool HasPayRow(clsManager& manager, const std::string& employee, std::int32_t period) {
  auto rs = manager.AktDB()->Session().OpenRecordset("SELECT [ID] FROM [Mitarbeiter_Lohnzettel] WHERE [MitarbeiterID]=" +
                                                     SqlID(employee) + " AND [Zeitraum]=" + std::to_string(period));
  return !rs->Eof();
}

}  // namespace

int ShowMonth(clsManager& manager, Arguments& args, bool as_json) {
  std::optional<std::string> employee = args.TakeOption("employee");
  std::optional<std::string> period = args.TakeOption("period");
  std::optional<std::string> employer = args.TakeOption("employer");
  args.ExpectEnd("ormelix show month --employee ID --period YYYYMM [--employer ID] [--json]");
  if (!employee) throw UsageError("show month needs --employee ID (or a Personalnummer)");
  if (!period) throw UsageError("show month needs --period YYYYMM (e.g. --period 202503)");
  std::int32_t key = ParsePeriod(*period);
  SelectEmployer(manager, employer);
  manager.AktJahr = static_cast<std::int16_t>(key / 100);
  manager.AktMonat = static_cast<std::int16_t>(key % 100);
  std::string id = FindEmployee(manager, *employee);
  auto lohn = std::make_shared<LLohn>();
  lohn->LoadMitarbeiter(manager, id, 0);
  bool stored = HasPayRow(manager, id, key);
  modDatabase::LohnzettelMonth month{lohn.get(), manager.AktMonat};
  if (as_json) {
    json::Value doc = json::Value::MakeObject();
    doc.Set("period", static_cast<long>(key));
    doc.Set("stored", stored);
    doc.Set("employee", EmployeeJson(*lohn));
    doc.Set("month", ColumnsJson(modDatabase::LohnzettelColumns(), month));
    AddLinesTransferYear(doc, *lohn, manager.AktMonat);
    AddShortTimeAndBenefits(doc, manager, *lohn, manager.AktMonat, key);
    doc.Set("career", MonthCareerJson(*lohn->Laufbahn(), key));
    doc.Set("Kinder", MonthChildrenJson(*lohn->Kinder(), key));
    std::cout << doc.Dump();
    return 0;
  }
  std::cout << EmployeeHeading(*lohn) << "\n";
  std::cout << manager.AktMandant()->Name << ", Zeitraum " << key;
  if (!stored) std::cout << ": no pay row stored for this month; the defaults of a missing month are shown";
  std::cout << "\n";
  PrintPairs(std::cout, "Stammdaten (leere Felder ausgelassen; alle mit --json)",
             ColumnValues(modDatabase::MitarbeiterColumns(), *lohn), true);
  PrintPairs(std::cout, "Bankverbindung", ColumnValues(modDatabase::BankverbindungColumns(), *lohn), true);
  PrintMonthCareer(std::cout, *lohn->Laufbahn(), key);
  PrintMonthChildren(std::cout, *lohn->Kinder(), key);
  PrintPairs(std::cout, "Lohnzettel " + std::to_string(key) + " (leere Felder ausgelassen; alle mit --json)",
             ColumnValues(modDatabase::LohnzettelColumns(), month), true);
  PrintLinesTransferYear(std::cout, *lohn, manager.AktJahr, manager.AktMonat);
  PrintShortTimeAndBenefits(std::cout, manager, *lohn, manager.AktMonat, key);
  return 0;
}

}  // namespace cli
