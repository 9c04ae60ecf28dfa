// LLohn_Kinder: the list and its load.
#include "../employee/load_statements.h"
#include "ormelix/children/kinder.h"

#include "../session/store_access.h"
#include "child_rows.h"
#include "ormelix/children/kinder_columns.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

constexpr const char* kCollectionName = "the children";

}  // namespace

std::string detail::ChildrenLoadSql(const std::string& employee_id) {
  return "SELECT * FROM [Mitarbeiter_Kinder] WHERE [MitarbeiterID]=" + ValueHelpers::SqlID(employee_id) +
         " ORDER BY [GebDatum] ASC";
}

LLohn_Kinder::LLohn_Kinder() : children_(kCollectionName) {}

void LLohn_Kinder::Load() {
  const std::shared_ptr<clsManager> manager = manager_.Get();
  auto rows = detail::OpenRead(*manager, detail::ChildrenLoadSql(employee_id_));
  Clear();
  Collection<LLohn_Kind> loaded = detail::ReadRows(*rows, KindColumns(), kCollectionName, "the child",
                                                   "Mitarbeiter_Kinder", [&](LLohn_Kind& child) { child.LoadKind(manager); });
  rows->Close();
  children_ = std::move(loaded);
}

void LLohn_Kinder::Clear() { children_.Clear(); }

const LLohn_Kinder::KindPtr& LLohn_Kinder::Item(const Variant& pIndex) const {
  return children_.Item(detail::ChildIndex(pIndex));
}

}  // namespace ormelix
