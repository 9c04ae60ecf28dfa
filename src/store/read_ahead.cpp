// StoreReadAhead: one read per statement for many keys, handed out per key.
#include <unordered_map>

#include "backend.h"
#include "filter.h"
#include "ormelix/error.h"
#include "ormelix/store/store.h"
#include "ormelix/store/text_order.h"
#include "ormelix/store/value_helpers.h"
#include "rowset.h"
#include "sql_dialect.h"

namespace ormelix {

namespace {

// A key that no statement holds: where it stands in a statement's text, that
// statement's keys stand.
constexpr const char* kMarker = "{5E9A1A00-0000-4000-8000-00000000C0DE}";

// A statement for many keys: its text for one key cut where the key stands, and
// per key its literal there.
struct KeyedText {
  std::string before;  // up to and without the "=" before the key
  std::string after;   // what follows the key
  bool usable = false;

  explicit KeyedText(const StoreReadAhead::Statement& statement) {
    const std::string text = statement.text(kMarker);
    const std::size_t at = text.find(kMarker);
    if (at == std::string::npos || at == 0 || text[at - 1] != '=' ||
        text.find(kMarker, at + 1) != std::string::npos)
      return;
    before = text.substr(0, at - 1);
    after = text.substr(at + std::string_view(kMarker).size());
    usable = true;
  }

  // The literal of a key in its statement's text, "" when the text is not of this
  // form or the literal is no ID (its statement then runs on its own).
  std::string LiteralOf(const std::string& text) const {
    if (text.size() <= before.size() + 1 + after.size() || text.compare(0, before.size(), before) != 0 ||
        text[before.size()] != '=' || text.compare(text.size() - after.size(), after.size(), after) != 0)
      return "";
    std::string literal = text.substr(before.size() + 1, text.size() - before.size() - 1 - after.size());
    return detail::IsGuidText(literal) ? literal : "";
  }

  // The statement for all the literals: the key's comparison an IN list. On SQLite
  // the rows come by key first (as the key's index holds them, so they need no
  // sorting), then in the statement's own order; on a server that order is kept
  // alone (sorting by a key in the store's text order costs it more than the
  // client's grouping).
  std::string ForAll(const std::vector<std::string>& literals, const std::string& key_column,
                     detail::SqlDialect dialect) const {
    std::string sql = before + " IN (";
    for (std::size_t i = 0; i < literals.size(); ++i) sql += (i ? "," : "") + literals[i];
    sql += ")";
    if (dialect != detail::SqlDialect::Sqlite) return sql + after;
    const std::string order = " ORDER BY ";
    const std::size_t at = after.find(order);
    if (at == std::string::npos) return sql + after + order + "[" + key_column + "]";
    return sql + after.substr(0, at) + order + "[" + key_column + "], " + after.substr(at + order.size());
  }
};

// The keys of one statement: by the value of their literal (compared as the
// store compares the key column), the texts of the key's statement; and the
// values in the order of the keys.
struct KeyTexts {
  std::unordered_map<std::string, std::vector<std::string>, TextHash, TextEqual> texts;
  std::vector<std::string> order;
};

}  // namespace

StoreReadAhead::StoreReadAhead(StoreSession* session) : snapshot_(session), session_(session) {
  if (session_ && session_->backend_->IsOpen()) ++session_->ahead_depth_;
  else session_ = nullptr;
}

StoreReadAhead::~StoreReadAhead() {
  if (!session_) return;
  if (session_->ahead_depth_ > 0 && --session_->ahead_depth_ == 0) session_->ahead_rows_.clear();
}

void StoreReadAhead::Read(std::vector<Statement> statements) {
  read_.assign(statements.size(), {});
  if (!session_) return;
  detail::Backend& backend = *session_->backend_;
  std::vector<std::string> reads;
  std::vector<std::size_t> read_of;  // the statement each read is for
  std::vector<KeyTexts> keys(statements.size());
  for (std::size_t s = 0; s < statements.size(); ++s) {
    const KeyedText form(statements[s]);
    if (!form.usable) continue;
    std::vector<std::string> literals;
    for (const std::string& key : statements[s].keys) {
      std::string text = statements[s].text(key);
      std::string literal = form.LiteralOf(text);
      if (literal.empty()) continue;
      std::string value = detail::NormalizeGuid(literal);
      std::vector<std::string>& texts = keys[s].texts[value];
      if (texts.empty()) {
        literals.push_back(literal);
        keys[s].order.push_back(std::move(value));
      }
      texts.push_back(std::move(text));
    }
    if (literals.empty()) continue;
    reads.push_back(form.ForAll(literals, statements[s].key_column, backend.Dialect()));
    read_of.push_back(s);
  }
  std::vector<detail::QueryResult> results = backend.QueryMany(reads);
  for (std::size_t r = 0; r < results.size(); ++r) {
    const std::size_t s = read_of[r];
    detail::QueryResult& result = results[r];
    const int key_column = result.layout->Lookup(statements[s].key_column);
    if (key_column < 0)
      throw StoreError("cannot read ahead", reads[r], "its rows have no column " + statements[s].key_column);
    // Each key's rows, in the order read.
    std::unordered_map<std::string_view, std::shared_ptr<detail::RowSet>, TextHash, TextEqual> rows_of;
    rows_of.reserve(keys[s].order.size());
    for (const std::string& value : keys[s].order) {
      auto rows = std::make_shared<detail::RowSet>();
      rows->layout = result.layout;
      rows_of.emplace(value, rows);
      read_[s].push_back(rows);
      for (const std::string& text : keys[s].texts[value]) session_->ahead_rows_[text] = rows;
    }
    const std::size_t width = result.layout->Size();
    for (std::size_t at = 0; at + width <= result.cells.size(); at += width) {
      const Variant& key = result.cells[at + static_cast<std::size_t>(key_column)];
      if (!key.IsText()) continue;
      auto found = rows_of.find(std::string_view(key.AsText()));
      if (found == rows_of.end()) continue;
      std::vector<Variant>& cells = found->second->cells;
      cells.insert(cells.end(), std::make_move_iterator(result.cells.begin() + static_cast<long>(at)),
                   std::make_move_iterator(result.cells.begin() + static_cast<long>(at + width)));
    }
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
    for (std::size_t row = 0; row + width <= rows->cells.size(); row += width) {
      if (filter && !detail::Evaluate(*filter, &rows->cells[row])) continue;
      values.push_back(ValueHelpers::ToText(rows->cells[row + static_cast<std::size_t>(at)]));
    }
  }
  return values;
}

}  // namespace ormelix
