// StoreReadAhead: one read per statement for many keys, handed out per key.
#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "backend.h"
#include "filter.h"
#include "ormelix/error.h"
#include "ormelix/store/store.h"
#include "ormelix/store/text_order.h"
#include "ormelix/store/value_helpers.h"
#include "read_ahead.h"
#include "rowset.h"
#include "sql_dialect.h"

namespace ormelix {

namespace {

// A key that no statement holds: where it stands in a statement's text, that
// statement's keys stand.
constexpr std::string_view kMarker = "{5E9A1A00-0000-4000-8000-00000000C0DE}";

// A statement's text for one key, cut where the key stands: the key's literal in
// the text of each key.
struct KeyedText {
  std::string text;    // for the marker
  std::size_t at = 0;  // where the marker stands in it
  bool usable = false;

  explicit KeyedText(const StoreReadAhead::Statement& statement) : text(statement.text(std::string(kMarker))) {
    at = text.find(kMarker);
    usable = at != std::string::npos && at > 0 && text[at - 1] == '=' &&
             text.find(kMarker, at + kMarker.size()) == std::string::npos;
  }

  // Where the marker's literal is among the statement's bound parameters.
  std::size_t Param() const {
    const std::vector<Variant> params = detail::ShapeOf(text).params;
    for (std::size_t i = 0; i < params.size(); ++i)
      if (params[i].IsText() && params[i].AsText() == kMarker) return i;
    return params.size();
  }

  std::string Subject() const { return text.substr(0, at) + "(the keys read ahead)" + text.substr(at + kMarker.size()); }
};

// The keys of one statement: the values of their literals (IDs in upper case),
// each once, and where each is among them.
struct Asked {
  std::vector<std::string> values;                       // by group
  std::unordered_map<std::string, std::size_t> group_of;  // value -> group
};

constexpr std::size_t kNoGroup = static_cast<std::size_t>(-1);

// The group of a row's key, or none. IDs are found by their upper case; any
// other text, rarely, by the store's text order.
std::size_t GroupOf(const Asked& asked, const std::string& key, std::string& upper) {
  if (detail::IsGuidText(key)) {
    upper.assign(key);
    for (char& c : upper) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    auto found = asked.group_of.find(upper);
    return found == asked.group_of.end() ? kNoGroup : found->second;
  }
  for (std::size_t g = 0; g < asked.values.size(); ++g)
    if (EqualText(asked.values[g], key)) return g;
  return kNoGroup;
}

// Two cells of a number column in a server's order: ascending, numbers first (NaN
// above all of them) and Null above every number; descending is the exact reverse.
int CompareForOrder(const Variant& a, const Variant& b, bool descending) {
  const bool a_null = a.IsMissing();
  const bool b_null = b.IsMissing();
  int order = 0;
  if (a_null || b_null) {
    order = a_null == b_null ? 0 : (a_null ? 1 : -1);
  } else {
    double x = 0;
    double y = 0;
    a.TryNumber(x);
    b.TryNumber(y);
    if (std::isnan(x) || std::isnan(y)) order = std::isnan(x) == std::isnan(y) ? 0 : (std::isnan(x) ? 1 : -1);
    else order = x < y ? -1 : (x > y ? 1 : 0);
  }
  return descending ? -order : order;
}

// Puts the rows of a read the server gave in no order into the order of the
// keys' statements: by key (in the order of the keys asked), then by the
// statement's terms (client_order, the row key last). Rows of no key go last.
void PutInOrder(const Asked& asked, detail::QueryResult& result, int key_column,
                const std::vector<detail::OrderTerm>& order) {
  const std::size_t width = result.layout->Size();
  const std::size_t rows = width ? result.cells.size() / width : 0;
  std::vector<int> columns;
  for (const detail::OrderTerm& term : order) columns.push_back(result.layout->Lookup(term.column));
  std::vector<std::size_t> group(rows);
  std::string upper;
  for (std::size_t row = 0; row < rows; ++row) {
    const Variant& key = result.cells[row * width + static_cast<std::size_t>(key_column)];
    group[row] = key.IsText() ? GroupOf(asked, key.AsText(), upper) : kNoGroup;
  }
  std::vector<std::size_t> sorted(rows);
  for (std::size_t row = 0; row < rows; ++row) sorted[row] = row;
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) {
    if (group[a] != group[b]) return group[a] < group[b];
    for (std::size_t t = 0; t < columns.size(); ++t) {
      if (columns[t] < 0) continue;
      const auto at = static_cast<std::size_t>(columns[t]);
      const int c = CompareForOrder(result.cells[a * width + at], result.cells[b * width + at], order[t].descending);
      if (c != 0) return c < 0;
    }
    return false;
  });
  std::vector<Variant> cells;
  cells.reserve(result.cells.size());
  for (std::size_t row : sorted)
    cells.insert(cells.end(), std::make_move_iterator(result.cells.begin() + static_cast<long>(row * width)),
                 std::make_move_iterator(result.cells.begin() + static_cast<long>((row + 1) * width)));
  result.cells = std::move(cells);
}

// The rows of each key, in the order read (the statement's own). Where the rows
// of a key lie together (the read gave them by key) its statement gets a slice of
// the read's rows; else they are taken out of the read into rows of its own.
std::vector<std::shared_ptr<detail::RowSet>> Place(const Asked& asked, detail::QueryResult& result, int key_column) {
  auto block = std::make_shared<std::vector<Variant>>(std::move(result.cells));
  const std::size_t width = result.layout->Size();
  const std::size_t rows = width ? block->size() / width : 0;
  std::vector<std::size_t> group_of_row(rows, kNoGroup);
  const std::size_t groups = asked.values.size();
  std::vector<std::size_t> first(groups, kNoGroup), last(groups), count(groups);
  std::string upper;
  std::size_t group = kNoGroup;
  const std::string* previous = nullptr;  // the key of the row before
  for (std::size_t row = 0; row < rows; ++row) {
    const Variant& key = (*block)[row * width + static_cast<std::size_t>(key_column)];
    if (!key.IsText()) continue;
    if (!previous || key.AsText() != *previous) group = GroupOf(asked, key.AsText(), upper);
    previous = &key.AsText();
    if (group == kNoGroup) continue;
    group_of_row[row] = group;
    if (first[group] == kNoGroup) first[group] = row;
    last[group] = row;
    ++count[group];
  }
  std::vector<std::shared_ptr<detail::RowSet>> placed(groups);
  for (std::size_t g = 0; g < groups; ++g) {
    placed[g] = std::make_shared<detail::RowSet>();
    placed[g]->layout = result.layout;
    if (first[g] != kNoGroup && last[g] + 1 - first[g] == count[g]) {
      placed[g]->block = block;
      placed[g]->first = first[g] * width;
      placed[g]->size = count[g] * width;
    } else if (first[g] != kNoGroup) {
      placed[g]->cells.reserve(count[g] * width);
    }
  }
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t g = group_of_row[row];
    if (g == kNoGroup || placed[g]->block) continue;
    auto begin = block->begin() + static_cast<long>(row * width);
    placed[g]->cells.insert(placed[g]->cells.end(), std::make_move_iterator(begin),
                            std::make_move_iterator(begin + static_cast<long>(width)));
  }
  return placed;
}

}  // namespace

StoreReadAhead::StoreReadAhead(StoreSession* session) : snapshot_(session), session_(session) {
  if (session_ && session_->backend_->IsOpen()) ++session_->ahead_depth_;
  else session_ = nullptr;
}

StoreReadAhead::~StoreReadAhead() {
  if (!session_) return;
  if (session_->ahead_depth_ > 0 && --session_->ahead_depth_ == 0) session_->ahead_rows_->Clear();
}

std::size_t StoreReadAhead::KeysPerRead() const { return session_ ? session_->backend_->ReadAheadKeys() : 1; }

void StoreReadAhead::Read(std::vector<Statement> statements) {
  read_.assign(statements.size(), {});
  if (!session_) return;
  detail::Backend& backend = *session_->backend_;
  std::vector<detail::Backend::NativeQuery> reads;
  std::vector<std::size_t> read_of;  // the statement each read is for
  std::vector<Asked> asked(statements.size());
  std::vector<detail::ReadAheadRows::Form*> forms(statements.size());
  for (std::size_t s = 0; s < statements.size(); ++s) {
    const KeyedText form(statements[s]);
    if (!form.usable) continue;
    forms[s] = &session_->ahead_rows_->FormOf(form.text.substr(0, form.at - 1),
                                              form.text.substr(form.at + kMarker.size()));
    Asked& keys = asked[s];
    char value[detail::ReadAheadRows::kIdLength];
    for (const std::string& key : statements[s].keys) {
      if (!detail::ReadAheadRows::KeyOf(*forms[s], statements[s].text(key), value)) continue;
      auto [found, fresh] = keys.group_of.emplace(std::string(value, sizeof value), keys.values.size());
      if (fresh) keys.values.push_back(found->first);
    }
    const detail::KeyListForm list{form.Param(), statements[s].key_column, statements[s].few_rows_per_key};
    if (keys.values.empty() || list.param == detail::ShapeOf(form.text).params.size()) continue;
    detail::Backend::NativeQuery query{backend.TranslateForKeys(form.text, list), form.Subject(), true};
    query.sql.params[list.param] = detail::KeyListValue(keys.values, backend.Dialect());
    reads.push_back(std::move(query));
    read_of.push_back(s);
  }
  std::vector<detail::QueryResult> results = backend.QueryNative(reads);
  for (std::size_t r = 0; r < results.size(); ++r) {
    const std::size_t s = read_of[r];
    detail::QueryResult& result = results[r];
    const int key_column = result.layout->Lookup(statements[s].key_column);
    if (key_column < 0)
      throw StoreError("cannot read ahead", reads[r].subject, "its rows have no column " + statements[s].key_column);
    if (!reads[r].sql.client_order.empty()) PutInOrder(asked[s], result, key_column, reads[r].sql.client_order);
    std::vector<std::shared_ptr<detail::RowSet>> placed = Place(asked[s], result, key_column);
    for (std::size_t g = 0; g < placed.size(); ++g) forms[s]->rows[std::move(asked[s].values[g])] = placed[g];
    read_[s] = std::move(placed);
  }
}

std::vector<std::string> StoreReadAhead::Values(std::size_t statement, std::string_view column,
                                                std::string_view criteria) const {
  std::vector<std::string> values;
  if (statement >= read_.size()) return values;
  for (const auto& rows : read_[statement]) {
    const detail::ColumnLayout& layout = *rows->layout;
    const int at = layout.Lookup(column);
    if (at < 0) throw StoreError("unknown field name", std::string(column), "no such column among the rows read ahead");
    std::shared_ptr<const detail::FilterNode> filter;
    if (!criteria.empty())
      filter = layout.ParsedFilter(criteria, [&](std::string_view text) {
        return detail::ParseFilter(text, [&](std::string_view name) { return layout.Lookup(name); });
      });
    const std::size_t width = layout.Size();
    const Variant* cells = rows->Data();
    for (std::size_t row = 0; row + width <= rows->CellCount(); row += width) {
      if (filter && !detail::Evaluate(*filter, cells + row)) continue;
      values.push_back(ValueHelpers::ToText(cells[row + static_cast<std::size_t>(at)]));
    }
  }
  return values;
}

}  // namespace ormelix

namespace ormelix::detail {

ReadAheadRows::Form& ReadAheadRows::FormOf(const std::string& before, const std::string& after) {
  for (Form& form : forms)
    if (form.before == before && form.after == after) return form;
  return forms.emplace_back(Form{before, after, {}});
}

bool ReadAheadRows::KeyOf(const Form& form, std::string_view text, char (&value)[kIdLength]) {
  // The length tells most texts of other forms apart before any is compared.
  if (text.size() != form.before.size() + 1 + kIdLength + form.after.size() || text[form.before.size()] != '=' ||
      text.compare(0, form.before.size(), form.before) != 0 ||
      text.compare(text.size() - form.after.size(), form.after.size(), form.after) != 0)
    return false;
  const std::string_view literal = text.substr(form.before.size() + 1, kIdLength);
  if (!IsGuidText(literal)) return false;
  for (std::size_t i = 0; i < kIdLength; ++i)
    value[i] = literal[i] >= 'a' && literal[i] <= 'z' ? static_cast<char>(literal[i] - ('a' - 'A')) : literal[i];
  return true;
}

std::shared_ptr<RowSet> ReadAheadRows::Take(std::string_view text) {
  char value[kIdLength];
  for (Form& form : forms) {
    if (!KeyOf(form, text, value)) continue;
    auto found = form.rows.find(std::string_view(value, kIdLength));
    if (found == form.rows.end()) continue;
    std::shared_ptr<RowSet> rows = std::move(found->second);
    form.rows.erase(found);
    return rows;
  }
  return nullptr;
}

}  // namespace ormelix::detail
