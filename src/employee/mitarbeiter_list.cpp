#include "ormelix/employee/mitarbeiter_list.h"

#include "ormelix/career/laufbahnen.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "read_ahead.h"
#include "store_access.h"

namespace ormelix {

namespace {

using namespace ValueHelpers;
using DateHelpers::DateSerial;

std::string SortText(eSortOrderMitarbeiter order) {
  return order == lcName ? "[Familienname] ASC, [VorName] ASC" : "[Personalnummer] ASC";
}

std::string ReplacementSql(std::int16_t year) {
  return "SELECT [MitarbeiterID], [Mitarbeiter_Lohnzettel_EL.Zeitraum] AS [Zeitraum] FROM [Mitarbeiter_Lohnzettel] "
         "INNER JOIN [Mitarbeiter_Lohnzettel_EL] ON "
         "[Mitarbeiter_Lohnzettel].[ID]=[Mitarbeiter_Lohnzettel_EL].[LohnzettelID] WHERE "
         "[Mitarbeiter_Lohnzettel_EL.Zeitraum]>=" +
         std::to_string(MakeZeitraum(1, year)) +
         " AND [Mitarbeiter_Lohnzettel_EL.Zeitraum]<=" + std::to_string(MakeZeitraum(12, year));
}

// Whether the employee of the current row belongs to the year. The career
// recordset holds the steps of all employees, newest first, so the first step of
// the employee up to the year's end is the last one in force; with none, both
// dates read 0. The replacement recordset holds the benefits of the year.
bool BelongsToYear(std::int16_t year, const Recordset& employee, Recordset& career, Recordset& replacements) {
  if (year == 0) return true;
  Date last_entry = 0;
  Date last_exit = 0;
  bool has_replacement = false;
  if (year > 0) {
    const std::string key = SqlID(ToText(employee.Fields("ID")));
    career.Filter("[MitarbeiterID]=" + key + " AND [Datum]<=" + SqlDate(DateSerial(year, 12, 31)));
    const bool exit = ToInteger(career.Fields("Schritt")) == eLBAustritt;
    (exit ? last_exit : last_entry) = ToDate(career.Fields("Datum"));
    replacements.Filter("[MitarbeiterID]=" + key);
    has_replacement = !replacements.Eof();
    if (last_exit > 0 && last_exit >= DateSerial(year, 1, 1)) return true;
  }
  return (last_entry > 0 && last_exit == 0) || ToFlag(employee.Fields("Neuanlage")) || has_replacement;
}

}  // namespace

std::shared_ptr<LLohn> clsMitarbeiter::Item(const Variant& pIndex) const {
  double number = 0;
  bool numeric = pIndex.IsNumber() || (pIndex.IsText() && ParseNumber(pIndex.AsText(), number));
  if (DateHelpers::IsID(pIndex) || numeric) return entries_.Item(pIndex);
  return empty_employee_;
}

void clsMitarbeiter::Load(std::int16_t pFilterAbrechnungsjahr, eSortOrderMitarbeiter pSortOrder) {
  entries_.Clear();
  const std::shared_ptr<clsManager> manager = manager_.Get();
  if (!manager->AktMandant())
    throw Error("clsMitarbeiter.Load: no current employer is selected (AktMandant is not set); call "
                "ChangeAktMandant first");
  StoreSession& db = modDatabase::PayrollStore(*manager);
  const detail::LoadSnapshot snapshot(*manager);  // every employee as the store stood at the start
  // Each employee's statements are answered from reads ahead for many employees,
  // and the catalogue of exit reasons that each career reads is read once.
  StoreReadAhead ahead(&db);
  const StoreSharedReads reference(detail::SessionOf(manager->ImportDB()));
  auto employees = db.OpenRecordset("SELECT * FROM [Mitarbeiter] WHERE [MandantenID]=" +
                                    SqlID(manager->AktMandant()->ID()) + " ORDER BY " + SortText(pSortOrder));
  auto career = db.OpenRecordset("SELECT * FROM [Mitarbeiter_Laufbahn] ORDER BY [Datum] DESC, [Nr] DESC");
  auto replacements = db.OpenRecordset(ReplacementSql(pFilterAbrechnungsjahr));
  // The employees of the year (by row, "" for a row that is not), before any is loaded.
  std::vector<std::string> taken;
  for (; !employees->Eof(); employees->MoveNext())
    taken.push_back(BelongsToYear(pFilterAbrechnungsjahr, *employees, *career, *replacements)
                        ? ToText(employees->Fields("ID"))
                        : std::string());
  employees->Close();
  career->Close();
  replacements->Close();
  const std::size_t per_read = read_ahead_ == kReadAheadOfTheStore ? ahead.KeysPerRead() : read_ahead_;
  std::int16_t index = 0;
  const long total = static_cast<long>(taken.size());
  std::size_t read_up_to = 0;  // rows before it are read ahead
  for (std::size_t row = 0; row < taken.size(); ++row) {
    if (!taken[row].empty()) {
      if (row >= read_up_to && per_read > 0) read_up_to = detail::ReadAheadEmployees(ahead, *manager, taken, row, per_read);
      auto lohn = std::make_shared<LLohn>();
      lohn->LoadMitarbeiter(*manager, taken[row], ++index);
      entries_.Add(lohn, taken[row]);
    }
    if (progress_) progress_(static_cast<long>(row) + 1, total);
  }
}

void clsMitarbeiter::Add(std::shared_ptr<LLohn>& pLohn, std::int16_t pFilterAbrechnungsjahr,
                         eSortOrderMitarbeiter pMSortOrder) {
  if (!pLohn) throw Error("clsMitarbeiter.Add: no employee object (pLohn) was given");
  const std::shared_ptr<clsManager> manager = manager_.Get();
  const std::string id = modDatabase::InsertMitarbeiterRecord(*manager);
  modDatabase::SaveMitarbeiterRecord(*manager, *pLohn, id);
  modDatabase::SaveBankverbindung(*manager, *pLohn, id);
  modDatabase::SaveJahresdaten(*manager, *pLohn, id);
  Load(pFilterAbrechnungsjahr, pMSortOrder);
  pLohn = manager->Mitarbeiter()->Item(Variant(id));
}

bool clsMitarbeiter::Exist(const std::string& pIndex) const {
  try {
    double number = 0;
    const bool by_sort_nr = ParseNumber(pIndex, number) && !DateHelpers::IsID(Variant(pIndex));
    const std::string key = by_sort_nr ? GetIDBySortNr(pIndex) : pIndex;
    return entries_.Item(Variant(key))->ID() == key;
  } catch (const std::exception&) {
    return false;
  }
}

std::string clsMitarbeiter::GetIDBySortNr(const std::string& pSortNr) const {
  const std::shared_ptr<clsManager> manager = manager_.Get();
  if (!manager->AktMandant()) throw Error("no current employer is selected");
  auto rs = modDatabase::PayrollStore(*manager).OpenRecordset(
      "SELECT * FROM [Mitarbeiter] WHERE [SortNr]=" + std::to_string(ToLong(Variant(pSortNr))) +
      " AND [MandantenID]=" + SqlID(manager->AktMandant()->ID()));
  std::string id = rs->Eof() ? SqlID("") : SqlID(ToText(rs->Fields("ID")));
  rs->Close();
  return id;
}

void clsMitarbeiter::Refresh(int pRefresh) {
  const std::shared_ptr<clsManager> manager = manager_.Get();
  for (const auto& lohn : entries_) lohn->Refresh(*manager, pRefresh);
}

double clsMitarbeiter::SUM_SV_Laufend_Basis(std::int16_t pMonat) const {
  double sum = 0;
  for (const auto& lohn : entries_) {
    if (lohn->op_mBeschaeftigt(pMonat) == 0) continue;
    sum += lohn->SV_Laufend_Basis_Berechnet(pMonat);
    // Only the first replacement benefit of the month counts.
    const auto benefits = lohn->SV_EL_Laufend(pMonat);
    if (benefits && benefits->Count() >= 1) sum += benefits->Item(Variant(1))->BV_Basis;
  }
  return sum;
}

}  // namespace ormelix
