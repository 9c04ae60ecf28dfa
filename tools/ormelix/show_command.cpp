// ormelix show: a read-only look into any store.
#include <algorithm>
#include <iostream>
#include <sstream>

#include "commands.h"
#include "json.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "career_view.h"
#include "children_view.h"
#include "show.h"
#include "table.h"

namespace cli {

const char* const kShowHelp =
    "usage: ormelix show [--store PATH] WHAT [OPTIONS] [--json]\n"
    "  Shows what a store holds, read-only. PATH is a payroll store file or a folder with\n"
    "  payroll.db (and reference.db), or a PostgreSQL connection string (the reference\n"
    "  store then in the schema reference of that database); the default is the\n"
    "  current folder.\n"
    "\n"
    "  employers                           the employers with bank, provision fund, tax and\n"
    "                                      municipal office, year data, contribution accounts\n"
    "                                      and document protection (never the password)\n"
    "  employees --year YYYY [--sort name] [--employer ID]\n"
    "                                      the employees of an employer in that year, by\n"
    "                                      Personalnummer (default) or by name\n"
    "  base --period YYYYMM [--folder NAME]\n"
    "                                      the dated table in force for the period, in the\n"
    "                                      Standard folder or the named one, with all values\n"
    "  month --employee ID --period YYYYMM [--employer ID]\n"
    "                                      an employee's master data and pay month, with\n"
    "                                      its wage-type lines, transfer and year data, its\n"
    "                                      short-time record and figures, its replacement\n"
    "                                      benefits with their sums, the benefits in kind of\n"
    "                                      the period (or the defaults a load gives), the\n"
    "                                      career step in force and the steps of the year,\n"
    "                                      the children with their entitlements and which\n"
    "                                      of them count for family bonus and sole-earner\n"
    "                                      allowance in the month\n"
    "  career --employee ID --year YYYY [--employer ID]\n"
    "                                      every step of an employee's career with its exit\n"
    "                                      reason, the steps of the year and month by month\n"
    "                                      the step in force, entry and suspension months\n"
    "  l16 --employee ID --year YYYY [--employer ID]\n"
    "                                      the per-child fields of the wage slip L16 for\n"
    "                                      the year: country, who draws the family\n"
    "                                      allowance, months of the whole and half bonus\n"
    "  countries --period YYYYMM           the countries of the reference store with the\n"
    "                                      indicator in force for the period\n"
    "\n"
    "  --json   print one JSON document instead of tables\n";

namespace {

std::vector<std::string> EmployerIds(ormelix::clsManager& manager) {
  std::vector<std::string> ids;
  auto rs = manager.AktDB()->Session().OpenRecordset("SELECT [ID] FROM [Mandanten] ORDER BY [Name] ASC, [Nr] ASC");
  for (; !rs->Eof(); rs->MoveNext()) ids.push_back(ormelix::ValueHelpers::ToText(rs->Fields("ID")));
  return ids;
}

int ShowEmployers(ormelix::clsManager& manager, Arguments& args, bool as_json) {
  args.ExpectEnd("ormelix show employers [--json]");
  json::Value list = json::Value::MakeArray();
  TextTable table;
  std::ostringstream details;
  for (const char* header : {"ID", "Name", "Zusatz", "Anschrift", "DVR"}) table.Column(header);
  for (const std::string& id : EmployerIds(manager)) {
    manager.ChangeAktMandant(id);
    const ormelix::clsMandant& m = *manager.AktMandant();
    json::Value& employer = list.Push(EmployerJson(m));
    AddSideRecords(manager, employer, details);
    table.Row({m.ID(), m.Name, m.Zusatz, m.Strasse + ", " + m.PLZ + " " + m.Ort, m.DVR});
  }
  if (as_json) {
    json::Value document = json::Value::MakeObject();
    document.Set("employers", std::move(list));
    std::cout << document.Dump();
  } else {
    table.Print(std::cout);
    std::cout << details.str();
  }
  return 0;
}

}  // namespace

void PrintPairs(std::ostream& out, const std::string& title, const std::vector<ColumnValue>& values,
                bool skip_blank) {
  out << "\n" << title << "\n";
  TextTable table;
  table.Column("Feld");
  table.Column("Wert", TextTable::Right);
  for (const ColumnValue& value : values)
    if (!skip_blank || !IsBlank(value)) table.Row({value.name, ValueText(value)});
  table.Print(out, "  ");
}

json::Value EmployerJson(const ormelix::clsMandant& m) {
  using ormelix::DateHelpers::FormatDate;
  json::Value e = json::Value::MakeObject();
  e.Set("ID", m.ID());
  e.Set("Name", m.Name);
  e.Set("Zusatz", m.Zusatz);
  e.Set("Strasse", m.Strasse);
  e.Set("KFZ", m.KFZ);
  e.Set("PLZ", m.PLZ);
  e.Set("Ort", m.Ort);
  e.Set("Telefon", m.Telefon);
  e.Set("Telefax", m.Telefax);
  e.Set("EMail", m.EMail);
  e.Set("Homepage", m.Homepage);
  e.Set("DVR", m.DVR);
  e.Set("Neufög", m.Neufög);
  e.Set("Neufög_Von", FormatDate(m.Neufög_Von));
  e.Set("Neufög_Bis", FormatDate(m.Neufög_Bis));
  e.Set("NeufögV", m.NeufögV);
  e.Set("NeufögV_Von", FormatDate(m.NeufögV_Von));
  e.Set("Betriebsart", m.Betriebsart);
  e.Set("BuchungslisteELGesamt", m.BuchungslisteELGesamt);
  return e;
}

std::string SelectEmployer(ormelix::clsManager& manager, const std::optional<std::string>& wanted) {
  std::vector<std::string> ids = EmployerIds(manager);
  if (ids.empty()) throw UsageError("the store holds no employer");
  std::string id = ids.front();
  if (wanted) {
    id = ormelix::ValueHelpers::SqlID(*wanted);
    if (!ormelix::DateHelpers::IsID(ormelix::Variant(id)) || std::find(ids.begin(), ids.end(), id) == ids.end())
      throw UsageError("unknown employer '" + *wanted + "'; expected the ID of one of: ormelix show employers");
  }
  manager.ChangeAktMandant(id);
  return id;
}

int Show(Arguments args) {
  std::string where = args.TakeOption("store").value_or(".");
  bool as_json = args.TakeFlag("json");
  std::optional<std::string> what = args.TakePositional();
  if (!what)
    throw UsageError(
        "show needs WHAT: employers, employees, base, month, career, l16 or countries (see ormelix show --help)");
  auto manager = OpenStores(where, /*read_only=*/true);
  if (*what == "employers") return ShowEmployers(*manager, args, as_json);
  if (*what == "employees") return ShowEmployees(*manager, args, as_json);
  if (*what == "base") return ShowBase(*manager, args, as_json);
  if (*what == "month") return ShowMonth(*manager, args, as_json);
  if (*what == "career") return ShowCareer(*manager, args, as_json);
  if (*what == "l16") return ShowL16(*manager, args, as_json);
  if (*what == "countries") return ShowCountries(*manager, args, as_json);
  throw UsageError("unknown show '" + *what +
                   "'; expected employers, employees, base, month, career, l16 or countries");
}

}  // namespace cli
