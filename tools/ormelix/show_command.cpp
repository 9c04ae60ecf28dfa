// ormelix show: a read-only look into any store.
#include "commands.h"
#include "common/stores.h"
#include "show/career_view.h"
#include "show/children_view.h"
#include "show/show.h"

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
