/// \file
/// The recordset: a client-side, fully scrollable snapshot of one statement's rows,
/// with the operations the domain logic uses on it. Whatever cursor type was asked
/// for, every recordset can move both ways, be filtered again and again and count
/// its rows. A recordset opened for writing (optimistic lock, a plain
/// "SELECT * FROM [table]" statement) writes each Update straight to the store, and
/// reads its rows only when it is first asked for one (a field of a stored row, a
/// move, EOF, a filter): adding rows to a large table does not read the table.
/// A read-only recordset is a snapshot of the moment it was opened.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>
#include <string>
#include <string_view>

#include "ormelix/store/variant.h"

// <cstdio> defines EOF as a macro, so the end and start tests are named Eof and Bof.

namespace ormelix {

namespace detail {
class Backend;
struct QueryResult;
struct RowSet;
}  // namespace detail

/// ADO's cursor types, with their values. The cursor type is advisory: every
/// recordset is fully scrollable.
enum CursorTypeEnum { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
/// ADO's lock types, with their values: adLockReadOnly gives a snapshot that cannot
/// be written; any other opens a plain "SELECT * FROM [table]" for writing.
enum LockTypeEnum { adLockReadOnly = 1, adLockPessimistic = 2, adLockOptimistic = 3, adLockBatchOptimistic = 4 };

class Recordset;

/// One column of the current row. Cheap to copy; valid while its recordset lives.
/// The conversions of ValueHelpers take a Field and give their empty value when
/// there is no current row; Value() itself fails then.
class Field {
 public:
  /// The column `column` of the recordset's current row (Recordset::Fields makes it).
  Field(const Recordset* recordset, int column) : recordset_(recordset), column_(column) {}

  /// False at EOF or BOF, or when a filter matched nothing.
  bool HasCurrentRow() const;
  Variant Value() const;        ///< the value; StoreError when there is no current row
  Variant ValueOrEmpty() const; ///< the value, or Empty when there is no current row
  /// The stored value without a copy: a reference to an Empty value when there is
  /// no current row. Valid until the recordset moves or changes.
  const Variant& Peek() const;
  /// The column's name as the statement gives it.
  const std::string& Name() const;
  /// The column's position in the row, from 0.
  int Index() const { return column_; }
  /// Where the value lies, for a message: the column, its table, the row's ID
  /// where the statement has one, and the statement's first 200 characters.
  std::string Where() const;

 private:
  const Recordset* recordset_;
  int column_;
};

/// \brief The rows of one statement: a client-side, fully scrollable snapshot, or a
/// table opened for writing (StoreSession::OpenRecordset).
///
/// Position with Eof, Bof and the Move... operations; read with Fields and the
/// conversions of ValueHelpers; narrow with Filter and Find (equality terms are
/// answered from a hash index); write with AddNew, Collect, Update and Delete.
class Recordset {
 public:
  /// \cond INTERNAL
  // Library-internal: StoreSession::OpenRecordset makes the recordset.
  Recordset(std::shared_ptr<detail::Backend> backend, std::string sql, CursorTypeEnum cursor, LockTypeEnum lock);
  // Library-internal: a read-only recordset on rows another recordset of the same
  // statement read (see StoreSharedReads), standing on the first row.
  Recordset(std::shared_ptr<detail::Backend> backend, std::string sql, std::shared_ptr<detail::RowSet> rows);
  /// \endcond
  /// Closes the recordset (Close).
  ~Recordset();
  /// Not copyable: a recordset owns its rows and position.
  Recordset(const Recordset&) = delete;
  /// Not assignable.
  Recordset& operator=(const Recordset&) = delete;

  /// Position
  bool Eof() const;  ///< no current row remains (also for an empty recordset)
  bool Bof() const;  ///< before the first row (also for an empty recordset)
  /// \name Moving
  ///@{

  /// Moves to the next, previous, first or last row the filter lets through.
  ///
  /// Moves to the next, previous, first or last row the filter lets through;
  /// moving past either end stands at EOF or BOF.
  void MoveNext();
  void MovePrevious();
  void MoveFirst();
  void MoveLast();
  ///@}
  /// Number of rows the current filter lets through.
  long RecordCount() const;

  /// Fields, by name without regard to case ("Name", "name", "Mandanten_Beitragskonten.ID").
  Field Fields(std::string_view name) const;
  /// The field at a column position, from 0; reading it fails (StoreError "no such
  /// column") for a position outside 0 to FieldCount() - 1.
  Field Fields(int index) const { return Field(this, index); }
  /// The index of a column, for repeated reads; StoreError for an unknown name.
  int FieldIndex(std::string_view name) const;
  /// -1 for an unknown name, no failure.
  int FindFieldIndex(std::string_view name) const;
  /// The number of columns.
  int FieldCount() const;
  /// The name of the column at a position, from 0; StoreError outside the columns.
  const std::string& FieldName(int index) const;
  /// The table a column comes from ("" for an expression); StoreError outside the columns.
  const std::string& FieldTable(int index) const;

  /// Sets a column of the current or new row; written by the next Update.
  void Collect(std::string_view name, const Variant& value);
  /// The same by column position, from 0.
  void Collect(int index, const Variant& value);

  /// Starts a new row; Update stores it and leaves it current.
  void AddNew();
  /// Writes the new or changed row; the row stays current.
  void Update();
  /// Removes the current row from the store; the next row becomes current.
  void Delete();

  /// Restricts the rows to those matching the criteria, replacing any earlier
  /// filter, and stands on the first match. An empty text lifts the filter.
  void Filter(std::string_view criteria);
  /// The filter in force ("" for none).
  const std::string& Filter() const;
  /// Seeks the first row matching the criteria from the current row on, forward.
  /// At no match the recordset stands at EOF.
  void Find(std::string_view criteria);
  /// Reads the rows again from the store (the filter stays) and stands on the first.
  void Requery();

  /// Closes the recordset; a pending new or changed row is written first.
  void Close();
  /// True until Close.
  bool IsOpen() const;
  /// The statement as it was given (before translation).
  const std::string& Sql() const;

  /// \cond INTERNAL
  // Library-internal: the value of a column of the current row, or nullptr at no row.
  const Variant* CurrentCell(int column) const;
  // Library-internal: the rows of this read-only recordset, to be shared by later
  // recordsets of the same statement; this one goes on as it was.
  std::shared_ptr<detail::RowSet> ShareRows();
  // Library-internal: the column indices that the declaration set with this key
  // binds to, made by make the first time and kept with the statement's columns,
  // so that the recordsets of one statement (one per employee) bind once.
  std::vector<int> Binding(std::uint64_t set_key, const std::function<std::vector<int>()>& make) const;
  // Library-internal: the cells of the current row (the row being edited while
  // AddNew or a change is pending), one per field, or nullptr at no row. Valid
  // until the recordset moves or changes.
  const Variant* CurrentRow() const;
  /// \endcond

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace ormelix
