// Library-internal idioms shared by the base-value table routines: the sorted
// insertion of folders and tables, the row of a sub-table per dated table, and the
// value rows of a group picked by Filter.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "basis_store.h"
#include "ormelix/collection.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte::detail {

// Puts the item into the collection beside its neighbour in the sorted recordset:
// behind the row before it, or, for the first row, before the row after it. An
// item whose row has no neighbour is left out of the collection on purpose; a
// neighbour that is not in the collection is the collection's KeyNotFound.
template <class T>
void InsertBesideNeighbour(Recordset& sorted, Collection<T>& collection, const std::shared_ptr<T>& item) {
  const std::string key = item->ID();
  sorted.Find("[ID]=" + key);
  sorted.MovePrevious();
  if (!sorted.Bof()) {
    collection.Add(item, key, {}, Variant(ValueHelpers::ToText(sorted.Fields("ID"))));
    return;
  }
  sorted.Find("[ID]=" + key);
  sorted.MoveNext();
  if (!sorted.Eof()) collection.Add(item, key, Variant(ValueHelpers::ToText(sorted.Fields("ID"))));
}

// "SELECT * FROM [table] WHERE [ZeittabellenID]=" and the table's ID.
inline std::string RowOfTable(const char* table, const std::string& zeittabellen_id) {
  return std::string("SELECT * FROM [") + table + "] WHERE [ZeittabellenID]=" + ValueHelpers::SqlID(zeittabellen_id);
}

// A table of one row per dated table: read its columns if the row is there.
template <class T>
void LoadSingleRow(clsManager& manager, const char* table, const ColumnSet<T>& columns, T& target,
                   const std::string& zeittabellen_id) {
  auto rs = OpenRead(manager, RowOfTable(table, zeittabellen_id));
  if (!rs->Eof()) columns.Load(target, *rs);
  rs->Close();
}

// The head row of a sub-table: added with its key when missing, written, and its
// ID handed back.
template <class T>
std::string SaveHeadRow(Recordset& rs, const ColumnSet<T>& columns, T& target, const std::string& zeittabellen_id) {
  if (rs.Eof()) {
    rs.AddNew();
    rs.Collect("ZeittabellenID", zeittabellen_id);
  }
  columns.Save(target, rs);
  rs.Update();
  return DateHelpers::GetNewRowID(rs);
}

// The save of a table of one row per dated table.
template <class T>
void SaveSingleRow(clsManager& manager, const char* table, const ColumnSet<T>& columns, T& target,
                   const std::string& zeittabellen_id) {
  StoreWriteTransaction save(PayrollStore(manager), StoreWriteTransaction::KeepWritten);
  auto rs = OpenWrite(manager, RowOfTable(table, zeittabellen_id));
  SaveHeadRow(*rs, columns, target, zeittabellen_id);
  rs->Close();
  save.Commit();
}

// The value row of one group below a head row, in a recordset over the whole value
// table, picked by Filter on the parent's ID and the group's number.
struct GroupRow {
  const char* parent_column;
  const std::string& parent_id;
  const char* group_column;
  int group;

  std::string Criteria() const {
    return "[" + std::string(parent_column) + "]=" + parent_id + " AND [" + group_column + "]=" + std::to_string(group);
  }
};

// Reads the group's row if there is one; without one the target stays as it is.
template <class T>
void LoadGroupRow(Recordset& values, const GroupRow& row, const ColumnSet<T>& columns, T& target,
                  const std::vector<int>& bound) {
  values.Filter(row.Criteria());
  if (!values.Eof()) columns.Load(target, values, bound);
  values.Filter("");
}

// Writes the group's row, adding it with its parent and group when missing.
template <class T>
void SaveGroupRow(Recordset& values, const GroupRow& row, const ColumnSet<T>& columns, T& target) {
  values.Filter(row.Criteria());
  if (values.Eof()) {
    values.AddNew();
    values.Collect(row.parent_column, row.parent_id);
    values.Collect(row.group_column, static_cast<std::int32_t>(row.group));
  }
  columns.Save(target, values);
  values.Update();
  values.Filter("");
}

}  // namespace ormelix::modBasiswerte::detail
