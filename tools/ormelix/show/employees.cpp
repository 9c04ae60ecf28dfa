// ormelix show employees: the employee list of a year; and how the views that look
// at one employee find it and name it.
#include <iostream>

#include "common/table.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;
using namespace ormelix::ValueHelpers;

json::Value EmployeeJson(LLohn& lohn) {
  json::Value e = json::Value::MakeObject();
  e.Set("Index", static_cast<int>(lohn.Index()));
  e.Set("ID", lohn.ID());
  AddColumns(e, modDatabase::MitarbeiterColumns(), lohn);
  AddColumns(e, modDatabase::BankverbindungColumns(), lohn);
  return e;
}

std::string FindEmployee(clsManager& manager, const std::string& wanted) {
  std::string employer = SqlID(manager.AktMandant()->ID());
  std::string sql = "SELECT [ID] FROM [Mitarbeiter] WHERE [MandantenID]=" + employer + " AND ";
  double number = 0;
  if (DateHelpers::IsID(Variant(SqlID(wanted)))) {
    sql += "[ID]=" + SqlID(wanted);
  } else if (ParseNumber(wanted, number) && number == static_cast<std::int16_t>(number)) {
    sql += "[Personalnummer]=" + std::to_string(static_cast<int>(number));
  } else {
    throw UsageError("employee '" + wanted + "' is neither an ID nor a Personalnummer");
  }
  auto rs = manager.AktDB()->Session().OpenRecordset(sql);
  if (rs->Eof())
    throw UsageError("unknown employee '" + wanted + "' at employer " + manager.AktMandant()->Name +
                     "; expected an ID or Personalnummer of: ormelix show employees --year YYYY");
  return ToText(rs->Fields("ID"));
}

EmployeeOfYear LoadEmployeeOfYear(clsManager& manager, Arguments& args, const std::string& what, std::int16_t month) {
  std::optional<std::string> employee = args.TakeOption("employee");
  std::optional<std::string> year = args.TakeOption("year");
  std::optional<std::string> employer = args.TakeOption("employer");
  args.ExpectEnd("ormelix show " + what + " --employee ID --year YYYY [--employer ID] [--json]");
  if (!employee) throw UsageError("show " + what + " needs --employee ID (or a Personalnummer)");
  if (!year) throw UsageError("show " + what + " needs --year YYYY (e.g. --year 2025)");
  EmployeeOfYear result;
  result.year = ParseYear(*year);
  SelectEmployer(manager, employer);
  manager.AktJahr = result.year;
  manager.AktMonat = month;
  const std::string id = FindEmployee(manager, *employee);
  result.lohn = std::make_shared<LLohn>();
  result.lohn->LoadMitarbeiter(manager, id, 0);
  return result;
}

json::Value EmployeeBrief(const LLohn& lohn) {
  const LLohn_Arbeiter& a = *lohn.Mitarbeiter();
  json::Value who = json::Value::MakeObject();
  who.Set("ID", lohn.ID());
  who.Set("Personalnummer", static_cast<int>(a.Personalnummer));
  who.Set("Familienname", a.FName);
  who.Set("VorName", a.VName);
  return who;
}

std::string EmployeeHeading(const LLohn& lohn) {
  const LLohn_Arbeiter& a = *lohn.Mitarbeiter();
  return a.FName + " " + a.VName + " (Personalnummer " + std::to_string(a.Personalnummer) + ", " + lohn.ID() + ")";
}

int ShowEmployees(clsManager& manager, Arguments& args, bool as_json) {
  std::optional<std::string> year = args.TakeOption("year");
  std::optional<std::string> sort = args.TakeOption("sort");
  std::optional<std::string> employer = args.TakeOption("employer");
  args.ExpectEnd("ormelix show employees --year YYYY [--sort name] [--employer ID] [--json]");
  if (!year) throw UsageError("show employees needs --year YYYY (e.g. --year 2025)");
  if (sort && *sort != "name" && *sort != "personalnummer")
    throw UsageError("unknown sort '" + *sort + "'; expected name or personalnummer");
  manager.AktJahr = ParseYear(*year);
  SelectEmployer(manager, employer);
  auto list = manager.Mitarbeiter();
  {
    Progress progress("loading employees");
    list->SetProgress([&progress](long done, long total) { progress.Step(done, total); });
    list->Load(manager.AktJahr, sort && *sort == "name" ? lcName : lcPersonalnummer);
    list->SetProgress(nullptr);
  }
  if (as_json) {
    json::Value doc = json::Value::MakeObject();
    doc.Set("employer", EmployerJson(*manager.AktMandant()));
    doc.Set("year", static_cast<int>(manager.AktJahr));
    json::Value& employees = doc.Set("employees", json::Value::MakeArray());
    for (const auto& lohn : *list) employees.Push(EmployeeJson(*lohn));
    std::cout << doc.Dump();
    return 0;
  }
  std::cout << manager.AktMandant()->Name << ", " << manager.AktJahr << ": " << list->Count() << " Mitarbeiter\n\n";
  TextTable table;
  table.Column("Index", TextTable::Right);
  table.Column("Mitarbeiter.Personalnummer", TextTable::Right);
  for (const char* header : {"Mitarbeiter.FName", "Mitarbeiter.VName", "Geb_Datum", "Mitarbeiter.Beschaeftigt", "ID"})
    table.Column(header);
  for (const auto& lohn : *list) {
    const LLohn_Arbeiter& a = *lohn->Mitarbeiter();
    table.Row({std::to_string(lohn->Index()), std::to_string(a.Personalnummer), a.FName, a.VName,
               DateHelpers::FormatDate(lohn->Geb_Datum), a.Beschaeftigt, lohn->ID()});
  }
  table.Print(std::cout);
  return 0;
}

}  // namespace cli
