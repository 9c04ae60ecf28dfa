// LLohn_Laufbahnen: the list, its load from the store, the one write (UpdateBef),
// and the position walkers.
#include "../employee/load_statements.h"
#include "ormelix/career/laufbahnen.h"

#include "../session/store_access.h"
#include "laufbahn_rows.h"
#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

constexpr const char* kCollectionName = "the career steps";

// Is the index above the number, the way a variant compares: a text is above every
// number, Empty counts as 0, Null is above nothing.
bool Above(const Variant& index, long number) {
  if (index.IsText()) return true;
  if (index.IsNull()) return false;
  double value = 0;
  index.TryNumber(value);
  return value > static_cast<double>(number);
}

}  // namespace

std::string detail::CareerLoadSql(const std::string& employee_id) {
  return "SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [MitarbeiterID]=" + ValueHelpers::SqlID(employee_id) +
         " ORDER BY [Datum] ASC, [Nr] ASC";
}

LLohn_Laufbahnen::LLohn_Laufbahnen() : steps_(kCollectionName), end_marker_(std::make_shared<LLohn_Laufbahn>()) {}

Variant LLohn_Laufbahnen::AddItem(const StepPtr& pLaufbahn, const Variant& pBefore, const Variant& pAfter) {
  if (!pLaufbahn) throw Error("LLohn_Laufbahnen.AddItem: no step (pLaufbahn) was given");
  steps_.Add(pLaufbahn, pLaufbahn->ID, pBefore, pAfter);
  return {};
}

void LLohn_Laufbahnen::Load() {
  const std::shared_ptr<clsManager> manager = manager_.Get();
  auto rows = detail::OpenRead(*manager, detail::CareerLoadSql(employee_id_));
  std::unique_ptr<Recordset> reasons;
  if (manager->ImportDB())
    reasons = manager->ImportDB()->Session().OpenRecordset("SELECT * FROM [DM_Austrittsgründe]");
  Clear();
  // Built aside and taken over whole, so that a row that cannot be read leaves the
  // list empty rather than half filled.
  Collection<LLohn_Laufbahn> loaded(kCollectionName);
  const detail::LaufbahnRowReader reader(*rows, reasons.get());
  for (; !rows->Eof(); rows->MoveNext()) {
    auto step = std::make_shared<LLohn_Laufbahn>();
    step->Index = static_cast<std::int16_t>(loaded.Count() + 1);
    reader.Read(*step);
    loaded.Add(step, step->ID);
  }
  rows->Close();
  if (reasons) reasons->Close();
  steps_ = std::move(loaded);
}

bool LLohn_Laufbahnen::UpdateBef(const StepPtr& pLaufbahn) {
  bool result = false;
  try {
    if (DateHelpers::IsNothingObject(pLaufbahn)) return false;
    StoreWriteTransaction save(detail::PayrollStore(*manager_.Get()), StoreWriteTransaction::KeepWritten);
    auto rs = detail::OpenWrite(*manager_.Get(),
                                "SELECT * FROM [Mitarbeiter_Laufbahn] WHERE [ID]=" + ValueHelpers::SqlID(pLaufbahn->ID));
    bool found = !rs->Eof();
    if (found) {
      LaufbahnColumns().Save(*pLaufbahn, *rs);
      rs->Update();
    }
    rs->Close();
    save.Commit();
    result = found;
  } catch (const std::exception&) {
    // The payroll program asks for the answer only: a failed write is False.
  }
  return result;
}

bool LLohn_Laufbahnen::Remove(const Variant& pIndex) {
  try {
    steps_.Remove(pIndex);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void LLohn_Laufbahnen::Clear() { steps_.Clear(); }

LLohn_Laufbahnen::StepPtr LLohn_Laufbahnen::Item(const Variant& pIndex) const {
  if (Above(pIndex, Count()) && !DateHelpers::IsID(pIndex)) {
    if (Count() > 0) end_marker_->SetWochengeldDatumEnde(steps_[Count()]->Datum);
    return end_marker_;
  }
  if (Above(pIndex, 0)) return steps_.Item(pIndex);
  return end_marker_;
}

// ---------------------------------------------------------------- the walkers

std::int16_t LLohn_Laufbahnen::WalkUp(std::int16_t from, eLaufbahnschritte wanted) const {
  if (from < 1) return 0;
  for (long i = from + 1; i <= Count(); ++i)
    if (steps_[i]->Schritt == wanted) return static_cast<std::int16_t>(i);
  return 0;
}

// Starts one place after `from`, and so reads past the end when `from` is the last.
std::int16_t LLohn_Laufbahnen::WalkDown(std::int16_t from, eLaufbahnschritte wanted) const {
  if (from < 1) return 0;
  for (long i = from + 1; i >= 1; --i)
    if (steps_[i]->Schritt == wanted) return static_cast<std::int16_t>(i);
  return 0;
}

// The last suspension passed on the way from `from` (not included) until the first exit.
std::int16_t LLohn_Laufbahnen::LastRestBeforeExit(std::int16_t from, int direction) const {
  if (from < 1) return 0;
  std::int16_t found = 0;
  const long stop = direction > 0 ? Count() : 1;
  for (long i = from + direction; direction > 0 ? i <= stop : i >= stop; i += direction) {
    const eLaufbahnschritte schritt = steps_[i]->Schritt;
    if (schritt == eLBAustritt) break;
    if (schritt == eLBDVRuht) found = static_cast<std::int16_t>(i);
  }
  return found;
}

std::int16_t LLohn_Laufbahnen::NextEintritt(std::int16_t pIndex) const { return WalkUp(pIndex, eLBEintritt); }
std::int16_t LLohn_Laufbahnen::NextAustritt(std::int16_t pIndex) const { return WalkUp(pIndex, eLBAustritt); }
std::int16_t LLohn_Laufbahnen::AustrittImZeitraum(std::int16_t pIndex) const { return WalkUp(pIndex, eLBAustritt); }
std::int16_t LLohn_Laufbahnen::NextAbmeldungImZeitraum(std::int16_t pIndex) const {
  return LastRestBeforeExit(pIndex, +1);
}
std::int16_t LLohn_Laufbahnen::PreviousEintritt(std::int16_t pIndex) const { return WalkDown(pIndex, eLBEintritt); }
std::int16_t LLohn_Laufbahnen::PreviousAustritt(std::int16_t pIndex) const { return WalkDown(pIndex, eLBAustritt); }
std::int16_t LLohn_Laufbahnen::PreviousAbmeldungImZeitraum(std::int16_t pIndex) const {
  return LastRestBeforeExit(pIndex, -1);
}

// ---------------------------------------------------------------- store access of the queries

std::string LLohn_Laufbahnen::StepSqlHead() const {
  return "SELECT [ID], [Datum] FROM [Mitarbeiter_Laufbahn] WHERE [MitarbeiterID]=" + ValueHelpers::SqlID(employee_id_);
}

std::unique_ptr<Recordset> LLohn_Laufbahnen::OpenRead(const std::string& sql) const {
  return detail::OpenRead(*manager_.Get(), sql);
}

LLohn_Laufbahnen::StepPtr LLohn_Laufbahnen::StepOf(const Recordset& rs) const {
  return steps_.Item(Variant(ValueHelpers::ToText(rs.Fields("ID"))));
}

}  // namespace ormelix
