// LLohn_Kind_Zeitbezuege: the load of a child's history and the entry in force.
#include "../employee/load_statements.h"
#include "ormelix/children/kind_zeitbezuege.h"

#include "../session/store_access.h"
#include "child_rows.h"
#include "ormelix/children/kinder_columns.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

constexpr const char* kCollectionName = "child entries";  // short enough to need no heap
constexpr const char* kTable = "Mitarbeiter_Kinder_ZB";

}  // namespace

std::string detail::ChildEntriesLoadSql(const std::string& child_id) {
  return "SELECT * FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" + ValueHelpers::SqlID(child_id) + " ORDER BY [Zeitraum] ASC";
}

LLohn_Kind_Zeitbezuege::LLohn_Kind_Zeitbezuege() : entries_(kCollectionName) {}

void LLohn_Kind_Zeitbezuege::Load() {
  auto rows = detail::OpenRead(*manager_.Get(), detail::ChildEntriesLoadSql(child_id_));
  Clear();
  Collection<LLohn_Kind_Zeitbezug> loaded = detail::ReadRows(*rows, ZeitbezugColumns(), kCollectionName,
                                                             "the entry of a child", kTable, [](LLohn_Kind_Zeitbezug&) {});
  rows->Close();
  entries_ = std::move(loaded);
}

void LLohn_Kind_Zeitbezuege::Clear() { entries_.Clear(); }

const LLohn_Kind_Zeitbezuege::EntryPtr& LLohn_Kind_Zeitbezuege::Item(const Variant& pIndex) const {
  return entries_.Item(detail::ChildIndex(pIndex));
}

LLohn_Kind_Zeitbezuege::EntryPtr LLohn_Kind_Zeitbezuege::GetZB(std::int32_t pZeitraum) const {
  auto rs = detail::OpenRead(*manager_.Get(), "SELECT [ID], [KID] FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" +
                                                  ValueHelpers::SqlID(child_id_) + " AND [Zeitraum]<=" +
                                                  std::to_string(pZeitraum) + " ORDER BY [Zeitraum] DESC");
  EntryPtr entry;
  if (!rs->Eof()) entry = entries_.Item(Variant(detail::ChildKey(ValueHelpers::ToText(rs->Fields("ID")))));
  rs->Close();
  return entry;
}

}  // namespace ormelix
