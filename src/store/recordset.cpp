#include "ormelix/store/recordset.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <unordered_map>

#include "backend.h"
#include "filter.h"
#include "rowset.h"
#include "ormelix/error.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix {

using detail::ColumnInfo;
using detail::CompareOp;
using detail::ColumnIndex;
using detail::FilterNode;
using detail::RowList;

// Below this many rows a filter tests every row rather than build an index.
constexpr std::size_t kRowsWorthAnIndex = 64;

struct Recordset::Impl {
  std::shared_ptr<detail::Backend> backend;
  std::string sql;
  CursorTypeEnum cursor;
  LockTypeEnum lock;
  bool open = true;

  std::shared_ptr<const detail::ColumnLayout> layout;
  detail::RowSet own;                     // the rows of this recordset's read, or
  std::shared_ptr<detail::RowSet> shared;  // those it shares with the recordsets of a StoreSharedReads scope
  std::vector<char> deleted;
  std::string base_table;
  int key_column = -1;

  std::string filter_text;
  std::shared_ptr<const FilterNode> filter;
  // The rows the filter lets through, in order. Without a filter the view is
  // every row not deleted, made only when first asked for: a recordset on the
  // shared rows of a whole table is mostly filtered before it is walked.
  RowList view_;
  bool view_all_pending = false;
  long pos = 0;  // -1 before the first row, the view's size after the last

  enum Mode { None, Editing, Adding } mode = None;
  std::vector<Variant> edit_row;
  std::vector<char> dirty;

  // The rows are read when they are first needed, so that the insert idiom (open
  // a whole table, AddNew, Update, take the key) does not read the table. A row
  // inserted before that is the current row on its own until the rows are read.
  bool fetched = false;
  std::optional<std::vector<Variant>> inserted;
  // The store's answer to the insert of `inserted`, where the store sends writes
  // ahead: taken when the row is first read (the key the store gave it), else
  // never waited for.
  std::function<detail::QueryResult()> inserting;

  std::vector<Variant>& InsertedRow() {
    if (inserting) StoredInto(*inserted, std::exchange(inserting, {})());
    return *inserted;
  }

  // The columns of a stored row, as the store gave them back, into the row.
  void StoredInto(std::vector<Variant>& row, const detail::QueryResult& stored) const {
    if (stored.cells.empty()) return;
    for (std::size_t i = 0; i < stored.layout->Size(); ++i) {
      int column = layout->Lookup(stored.layout->Columns()[i].name);
      if (column >= 0) row[column] = stored.cells[i];
    }
  }

  detail::RowSet& Rows() { return shared ? *shared : own; }
  const detail::RowSet& Rows() const { return shared ? *shared : own; }
  std::size_t Width() const { return layout->Size(); }
  const ColumnInfo& Column(std::size_t i) const { return layout->Columns()[i]; }
  std::size_t RowCount() const { return Width() ? Rows().CellCount() / Width() : 0; }
  bool IsDeleted(std::uint32_t row) const { return !deleted.empty() && deleted[row]; }

  [[noreturn]] void Fail(const std::string& what, const std::string& detail = {}) const {
    throw StoreError(what, sql, detail);
  }

  // A position a host passes in (Fields(i), FieldName(i)) is checked: reading past
  // the last column would read another row's cells or beyond the rows.
  void RequireColumn(int column) const {
    if (column < 0 || column >= static_cast<int>(Width()))
      Fail("no such column", "position " + std::to_string(column) + " of " + std::to_string(Width()) +
                                 " columns (counted from 0)");
  }

  void RequireOpen() const {
    if (!open) Fail("the recordset is closed");
  }

  void SetLayout(std::shared_ptr<const detail::ColumnLayout> columns) {
    layout = std::move(columns);
    key_column = base_table.empty() ? -1 : std::max(layout->Lookup(detail::kRowKeyColumn), -1);
  }

  void Load(detail::QueryResult result) {
    SetLayout(std::move(result.layout));
    shared.reset();  // a read of its own (a Requery) leaves shared rows alone
    own.cells = std::move(result.cells);
    // Both are made when first needed: most recordsets never delete a row or
    // filter by a column's index, and a load opens thousands.
    deleted.clear();
    own.indexes.clear();
    fetched = true;
  }

  // Stands on the rows another recordset of the same statement read.
  void Share(std::shared_ptr<detail::RowSet> rowset) {
    SetLayout(rowset->layout);
    shared = std::move(rowset);
    deleted.clear();
    fetched = true;
  }

  // Reads the rows if they have not been read. A row inserted before stays the
  // current one, now found among the rows.
  void EnsureFetched() {
    if (fetched) return;
    Load(backend->Query(sql));
    ApplyFilter();
    if (!inserted) return;
    const Variant key = InsertedRow()[key_column];
    inserted.reset();
    for (std::size_t i = 0; i < View().size(); ++i)
      if (Rows().Data()[static_cast<std::size_t>(View()[i]) * Width() + key_column] == key) pos = static_cast<long>(i);
  }

  int Lookup(std::string_view name) const { return layout->Lookup(name); }

  int Resolve(std::string_view name) const {
    int column = Lookup(name);
    if (column < 0) throw StoreError("unknown field name", std::string(name), "no such column in: " + sql);
    return column;
  }

  bool HasRow() {
    if (mode == Adding || inserted) return true;
    EnsureFetched();
    return pos >= 0 && pos < static_cast<long>(View().size());
  }

  // The current row's cells, or nullptr at no current row.
  const Variant* Row() {
    if (inserted) return InsertedRow().data();
    if (!HasRow()) return nullptr;
    return &Rows().Data()[static_cast<std::size_t>(View()[pos]) * Width()];
  }

  const Variant* Cell(int column) {
    if (mode != None) return &edit_row[column];
    const Variant* row = Row();
    return row ? row + column : nullptr;
  }

  const ColumnIndex& IndexOf(int column) const {
    if (Rows().indexes.size() < Width()) Rows().indexes.resize(Width());
    if (!Rows().indexes[column]) {
      auto index = std::make_unique<ColumnIndex>();
      for (std::uint32_t row = 0; row < RowCount(); ++row) index->Add(Rows().Data()[row * Width() + column], row);
      Rows().indexes[column] = std::move(index);
    }
    return *Rows().indexes[column];
  }

  // Rows that may match: those of the most selective equality term that has an
  // index already, else of the first equality term (whose index is built now), or
  // none when there is no equality term (then every row is tested).
  std::optional<RowList> Candidates(const FilterNode& node) const {
    // A few rows are tested faster than an index is built.
    if (RowCount() < kRowsWorthAnIndex) return std::nullopt;
    std::vector<const FilterNode*> terms;
    auto consider = [&](const FilterNode& term) {
      if (term.kind == FilterNode::Term && term.op == CompareOp::Eq && !term.literal.IsNull()) terms.push_back(&term);
    };
    consider(node);
    if (node.kind == FilterNode::And)
      for (const FilterNode& child : node.children) consider(child);
    if (terms.empty()) return std::nullopt;
    std::optional<RowList> best;
    for (const FilterNode* term : terms) {
      if (static_cast<std::size_t>(term->column) >= Rows().indexes.size() || !Rows().indexes[term->column]) continue;
      RowList matches = Rows().indexes[term->column]->Lookup(term->literal);
      if (!best || matches.size() < best->size()) best = std::move(matches);
    }
    if (!best) best = IndexOf(terms.front()->column).Lookup(terms.front()->literal);
    return best;
  }

  void ApplyFilter() {
    view_.clear();
    pos = 0;
    view_all_pending = !filter;
    if (!filter) return;
    if (auto candidates = Candidates(*filter)) {
      for (std::uint32_t row : *candidates)
        if (!IsDeleted(row) && detail::Evaluate(*filter, &Rows().Data()[row * Width()])) view_.push_back(row);
    } else {
      for (std::uint32_t row = 0; row < RowCount(); ++row)
        if (!IsDeleted(row) && detail::Evaluate(*filter, &Rows().Data()[row * Width()])) view_.push_back(row);
    }
  }

  RowList& View() {
    if (view_all_pending) {
      view_all_pending = false;
      view_.reserve(RowCount());
      for (std::uint32_t row = 0; row < RowCount(); ++row)
        if (!IsDeleted(row)) view_.push_back(row);
    }
    return view_;
  }

  // The criteria parsed, once per text for all recordsets of this column layout.
  std::shared_ptr<const FilterNode> ParsedFilter(std::string_view criteria) const {
    return layout->ParsedFilter(criteria, [this](std::string_view text) { return Parse(text); });
  }

  FilterNode Parse(std::string_view criteria) const {
    return detail::ParseFilter(criteria, [this](std::string_view name) { return Lookup(name); });
  }

  void RequireWritable() const {
    if (lock == adLockReadOnly) Fail("the recordset is read-only", "it was opened with a read-only lock");
    if (base_table.empty() || key_column < 0)
      Fail("the recordset cannot be written", "only SELECT * FROM one table with a Nr column can be written");
    if (!backend->IsOpen()) Fail("the store is closed");
  }

  void FlushPending() {
    if (mode != None) Save();
  }

  void Save() {
    std::vector<std::string> names;
    std::vector<Variant> values;
    for (std::size_t i = 0; i < Width(); ++i) {
      if (!dirty[i]) continue;
      names.push_back(Column(i).name);
      values.push_back(edit_row[i]);
    }
    if (mode == Adding) {
      std::vector<Variant> row(Width(), Variant::NullValue());
      mode = None;
      if (!fetched) {  // the rows, when read, will hold this one
        inserting = backend->InsertRowAhead(base_table, names, values);
        inserted = std::move(row);
        return;
      }
      StoredInto(row, backend->InsertRow(base_table, names, values));
      RowList& view = View();  // made before the new row joins the rows
      auto new_row = static_cast<std::uint32_t>(RowCount());
      Rows().cells.insert(Rows().cells.end(), row.begin(), row.end());
      if (!deleted.empty()) deleted.push_back(0);
      for (std::size_t i = 0; i < Rows().indexes.size(); ++i)
        if (Rows().indexes[i]) Rows().indexes[i]->Add(Rows().Data()[new_row * Width() + i], new_row);
      view.push_back(new_row);
      pos = static_cast<long>(view.size()) - 1;
    } else if (!names.empty()) {
      Variant* row = inserted ? InsertedRow().data() : &Rows().Data()[static_cast<std::size_t>(View()[pos]) * Width()];
      backend->UpdateRow(base_table, row[key_column], names, values);
      for (std::size_t i = 0; i < Width(); ++i) {
        if (!dirty[i]) continue;
        row[i] = backend->Normalize(edit_row[i], Column(i).affinity);
        if (!inserted && i < Rows().indexes.size()) Rows().indexes[i].reset();
      }
    }
    mode = None;
  }
};

// ----- Field -----

bool Field::HasCurrentRow() const { return recordset_->CurrentCell(column_) != nullptr; }

Variant Field::Value() const {
  const Variant* cell = recordset_->CurrentCell(column_);
  if (!cell)
    throw StoreError("no current row to read", Name(), "the recordset is at EOF or BOF: " + recordset_->Sql());
  return *cell;
}

Variant Field::ValueOrEmpty() const { return Peek(); }

const Variant& Field::Peek() const {
  static const Variant kEmpty;
  const Variant* cell = recordset_->CurrentCell(column_);
  return cell ? *cell : kEmpty;
}

const std::string& Field::Name() const { return recordset_->FieldName(column_); }

std::string Field::Where() const {
  std::string where = "column " + Name();
  const std::string& table = recordset_->FieldTable(column_);
  if (!table.empty()) where += " of table " + table;
  int id = recordset_->FindFieldIndex("ID");
  const Variant* key = id >= 0 ? recordset_->CurrentCell(id) : nullptr;
  if (key && key->IsText()) where += ", row " + key->AsText();
  return where + " (in: " + ShortenForMessage(recordset_->Sql()) + ")";
}

// ----- Recordset -----

Recordset::Recordset(std::shared_ptr<detail::Backend> backend, std::string sql, CursorTypeEnum cursor,
                     LockTypeEnum lock)
    : impl_(std::make_unique<Impl>()) {
  impl_->backend = std::move(backend);
  impl_->sql = std::move(sql);
  impl_->cursor = cursor;
  impl_->lock = lock;
  impl_->base_table = impl_->backend->Translate(impl_->sql).base_table;
  // The statement is checked now (a missing table fails here). A read-only
  // recordset is a snapshot of this moment; one opened for writing reads its rows
  // when they are first needed.
  if (lock == adLockReadOnly) impl_->EnsureFetched();
  else impl_->SetLayout(impl_->backend->Describe(impl_->sql));
}

Recordset::Recordset(std::shared_ptr<detail::Backend> backend, std::string sql,
                     std::shared_ptr<detail::RowSet> rows)
    : impl_(std::make_unique<Impl>()) {
  impl_->backend = std::move(backend);
  impl_->sql = std::move(sql);
  impl_->cursor = adOpenForwardOnly;
  impl_->lock = adLockReadOnly;
  impl_->Share(std::move(rows));
  impl_->ApplyFilter();
}

std::shared_ptr<detail::RowSet> Recordset::ShareRows() {
  Impl& d = *impl_;
  if (d.lock != adLockReadOnly) d.Fail("only the rows of a read-only recordset are shared");
  d.EnsureFetched();
  if (!d.shared) {
    d.own.layout = d.layout;
    d.shared = std::make_shared<detail::RowSet>(std::move(d.own));
    d.own = detail::RowSet{};
  }
  return d.shared;
}

Recordset::~Recordset() {
  if (impl_ && impl_->backend) impl_->backend->Recycle(std::move(impl_->own.cells));
}

bool Recordset::Eof() const {
  if (impl_->mode == Impl::Adding || impl_->inserted) return false;
  impl_->EnsureFetched();
  return impl_->pos >= static_cast<long>(impl_->View().size()) || impl_->View().empty();
}

bool Recordset::Bof() const {
  if (impl_->mode == Impl::Adding || impl_->inserted) return false;
  impl_->EnsureFetched();
  return impl_->pos < 0 || impl_->View().empty();
}

void Recordset::MoveNext() {
  impl_->RequireOpen();
  impl_->FlushPending();
  impl_->EnsureFetched();
  if (Eof()) impl_->Fail("cannot move past the end", "the recordset is at EOF");
  ++impl_->pos;
}

void Recordset::MovePrevious() {
  impl_->RequireOpen();
  impl_->FlushPending();
  impl_->EnsureFetched();
  if (Bof()) impl_->Fail("cannot move before the start", "the recordset is at BOF");
  --impl_->pos;
}

void Recordset::MoveFirst() {
  impl_->RequireOpen();
  impl_->FlushPending();
  impl_->EnsureFetched();
  impl_->pos = 0;
}

void Recordset::MoveLast() {
  impl_->RequireOpen();
  impl_->FlushPending();
  impl_->EnsureFetched();
  impl_->pos = impl_->View().empty() ? 0 : static_cast<long>(impl_->View().size()) - 1;
}

long Recordset::RecordCount() const {
  impl_->EnsureFetched();
  return static_cast<long>(impl_->View().size());
}

Field Recordset::Fields(std::string_view name) const { return Field(this, impl_->Resolve(name)); }

int Recordset::FieldIndex(std::string_view name) const { return impl_->Resolve(name); }

std::vector<int> Recordset::Binding(std::uint64_t set_key, const std::function<std::vector<int>()>& make) const {
  if (const std::vector<int>* kept = impl_->layout->FindBinding(set_key)) return *kept;
  std::vector<int> binding = make();
  impl_->layout->KeepBinding(set_key, binding);
  return binding;
}

int Recordset::FindFieldIndex(std::string_view name) const {
  int column = impl_->Lookup(name);
  return column < 0 ? -1 : column;
}

int Recordset::FieldCount() const { return static_cast<int>(impl_->Width()); }

const std::string& Recordset::FieldName(int index) const {
  impl_->RequireColumn(index);
  return impl_->layout->Columns()[static_cast<std::size_t>(index)].name;
}

const std::string& Recordset::FieldTable(int index) const {
  impl_->RequireColumn(index);
  return impl_->layout->Columns()[static_cast<std::size_t>(index)].table;
}

const Variant* Recordset::CurrentCell(int column) const {
  impl_->RequireColumn(column);
  return impl_->Cell(column);
}

const Variant* Recordset::CurrentRow() const {
  if (impl_->mode != Impl::None) return impl_->edit_row.data();
  return impl_->Row();
}

void Recordset::Collect(std::string_view name, const Variant& value) { Collect(impl_->Resolve(name), value); }

void Recordset::Collect(int index, const Variant& value) {
  Impl& d = *impl_;
  d.RequireOpen();
  d.RequireWritable();
  d.RequireColumn(index);
  if (index == d.key_column)
    throw StoreError("the column is filled by the store", d.Column(index).name, "it cannot be written: " + d.sql);
  if (d.mode == Impl::None) {
    const Variant* row = d.Row();
    if (!row) d.Fail("no current row to write", "the recordset is at EOF or BOF; call AddNew first");
    d.edit_row.assign(row, row + d.Width());
    d.dirty.assign(d.Width(), 0);
    d.mode = Impl::Editing;
  }
  d.edit_row[index] = value.kind() == Variant::Boolean ? Variant(static_cast<std::int64_t>(value.AsBool() ? -1 : 0))
                                                       : (value.IsEmpty() ? Variant::NullValue() : value);
  d.dirty[index] = 1;
}

void Recordset::AddNew() {
  Impl& d = *impl_;
  d.RequireOpen();
  d.RequireWritable();
  d.FlushPending();
  d.edit_row.assign(d.Width(), Variant::NullValue());
  d.dirty.assign(d.Width(), 0);
  d.mode = Impl::Adding;
}

void Recordset::Update() {
  impl_->RequireOpen();
  if (impl_->mode == Impl::None) return;
  impl_->RequireWritable();
  impl_->Save();
}

void Recordset::Delete() {
  Impl& d = *impl_;
  d.RequireOpen();
  d.RequireWritable();
  if (d.mode == Impl::Adding) {  // a row not yet stored: just drop it
    d.mode = Impl::None;
    return;
  }
  d.mode = Impl::None;
  d.EnsureFetched();
  if (!d.HasRow()) d.Fail("no current row to delete", "the recordset is at EOF or BOF");
  std::uint32_t row = d.View()[d.pos];
  d.backend->DeleteRow(d.base_table, d.Rows().Data()[row * d.Width() + d.key_column]);
  if (d.deleted.empty()) d.deleted.assign(d.RowCount(), 0);
  d.deleted[row] = 1;
  d.View().erase(d.View().begin() + d.pos);
}

void Recordset::Filter(std::string_view criteria) {
  Impl& d = *impl_;
  d.RequireOpen();
  d.FlushPending();
  d.EnsureFetched();
  if (TrimBlanks(criteria).empty()) {
    d.filter.reset();
    d.filter_text.clear();
  } else {
    d.filter = d.ParsedFilter(criteria);
    d.filter_text = std::string(criteria);
  }
  d.ApplyFilter();
}

const std::string& Recordset::Filter() const { return impl_->filter_text; }

void Recordset::Find(std::string_view criteria) {
  Impl& d = *impl_;
  d.RequireOpen();
  d.FlushPending();
  d.EnsureFetched();
  auto node = d.ParsedFilter(criteria);
  long start = std::max(d.pos, 0L);
  for (long i = start; i < static_cast<long>(d.View().size()); ++i) {
    if (detail::Evaluate(*node, &d.Rows().Data()[static_cast<std::size_t>(d.View()[i]) * d.Width()])) {
      d.pos = i;
      return;
    }
  }
  d.pos = static_cast<long>(d.View().size());
}

void Recordset::Requery() {
  Impl& d = *impl_;
  d.RequireOpen();
  d.FlushPending();
  d.inserted.reset();
  d.inserting = {};
  d.Load(d.backend->Query(d.sql));
  if (d.filter) d.filter = d.ParsedFilter(d.filter_text);
  d.ApplyFilter();
}

void Recordset::Close() {
  if (!impl_->open) return;
  impl_->FlushPending();
  impl_->open = false;
  impl_->fetched = true;  // nothing more to read
  impl_->inserted.reset();
  impl_->inserting = {};
  impl_->own.indexes.clear();
  impl_->backend->Recycle(std::move(impl_->own.cells));
  impl_->own.cells = {};
  impl_->shared.reset();
  impl_->view_.clear();
  impl_->view_all_pending = false;
}

bool Recordset::IsOpen() const { return impl_->open; }

const std::string& Recordset::Sql() const { return impl_->sql; }

}  // namespace ormelix
