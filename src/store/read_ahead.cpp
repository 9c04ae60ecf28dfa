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

  // The literal of a key in its statement's text, "" when the text is not of this
  // form or the literal is no ID (its statement then runs on its own).
  std::string_view LiteralOf(std::string_view keyed) const {
    const std::size_t after = text.size() - at - kMarker.size();
    if (keyed.size() <= at + after || keyed.compare(0, at, text, 0, at) != 0 ||
        keyed.compare(keyed.size() - after, after, text, at + kMarker.size(), after) != 0)
      return {};
    std::string_view literal = keyed.substr(at, keyed.size() - at - after);
    return detail::IsGuidText(literal) ? literal : std::string_view();
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

// The keys of one statement that share one value of the key (IDs in upper case):
// the texts of their statement, and where their rows lie in the read.
struct KeyGroup {
  std::vector<std::string> texts;
  std::size_t begin = 0, end = 0;  // rows
  bool seen = false;
  bool together = true;  // its rows lie together, in the statement's order
};

struct Asked {
  std::vector<std::string> values;                       // by group
  std::unordered_map<std::string, std::size_t> group_of;  // value -> group
  std::vector<KeyGroup> groups;
};

// The group of a row's key, or none. IDs are found by their upper case; any
// other text, rarely, by the store's text order.
KeyGroup* GroupOf(Asked& asked, const std::string& key, std::string& upper) {
  if (detail::IsGuidText(key)) {
    upper.assign(key);
    for (char& c : upper) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    auto found = asked.group_of.find(upper);
    return found == asked.group_of.end() ? nullptr : &asked.groups[found->second];
  }
  for (std::size_t g = 0; g < asked.values.size(); ++g)
    if (EqualText(asked.values[g], key)) return &asked.groups[g];
  return nullptr;
}

// The rows of each key: the read gives them by key, so that the rows of one key
// lie together and its statement gets a slice of the read's rows. A key whose
// rows do not (which the order of the read rules out) is left to its statement.
std::vector<std::shared_ptr<detail::RowSet>> Place(Asked& asked, detail::QueryResult& result, int key_column) {
  auto block = std::make_shared<std::vector<Variant>>(std::move(result.cells));
  const std::size_t width = result.layout->Size();
  const std::size_t rows = width ? block->size() / width : 0;
  std::string upper;
  KeyGroup* group = nullptr;
  const std::string* last = nullptr;  // the key of the row before
  for (std::size_t row = 0; row < rows; ++row) {
    const Variant& key = (*block)[row * width + static_cast<std::size_t>(key_column)];
    if (!key.IsText()) continue;
    if (!last || key.AsText() != *last) {
      group = GroupOf(asked, key.AsText(), upper);
      last = &key.AsText();
      if (group && group->seen && group->end != row) group->together = false;
      if (group && !group->seen) {
        group->seen = true;
        group->begin = row;
      }
    }
    if (group) group->end = row + 1;
  }
  std::vector<std::shared_ptr<detail::RowSet>> placed(asked.groups.size());
  for (std::size_t g = 0; g < asked.groups.size(); ++g) {
    const KeyGroup& each = asked.groups[g];
    if (!each.together) continue;
    auto rowset = std::make_shared<detail::RowSet>();
    rowset->layout = result.layout;
    if (each.seen) {
      rowset->block = block;
      rowset->first = each.begin * width;
      rowset->size = (each.end - each.begin) * width;
    }
    placed[g] = std::move(rowset);
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
  if (session_->ahead_depth_ > 0 && --session_->ahead_depth_ == 0) session_->ahead_rows_.clear();
}

void StoreReadAhead::Read(std::vector<Statement> statements) {
  read_.assign(statements.size(), {});
  if (!session_) return;
  detail::Backend& backend = *session_->backend_;
  std::vector<detail::Backend::NativeQuery> reads;
  std::vector<std::size_t> read_of;  // the statement each read is for
  std::vector<Asked> asked(statements.size());
  for (std::size_t s = 0; s < statements.size(); ++s) {
    const KeyedText form(statements[s]);
    if (!form.usable) continue;
    Asked& keys = asked[s];
    for (const std::string& key : statements[s].keys) {
      std::string text = statements[s].text(key);
      const std::string_view literal = form.LiteralOf(text);
      if (literal.empty()) continue;
      auto [found, fresh] = keys.group_of.emplace(detail::NormalizeGuid(literal), keys.groups.size());
      if (fresh) {
        keys.values.push_back(found->first);
        keys.groups.emplace_back();
      }
      keys.groups[found->second].texts.push_back(std::move(text));
    }
    const detail::KeyListForm list{form.Param(), statements[s].key_column};
    if (keys.values.empty() || list.param == detail::ShapeOf(form.text).params.size()) continue;
    detail::Backend::NativeQuery query{backend.TranslateForKeys(form.text, list), form.Subject()};
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
    std::vector<std::shared_ptr<detail::RowSet>> placed = Place(asked[s], result, key_column);
    for (std::size_t g = 0; g < placed.size(); ++g) {
      if (!placed[g]) continue;
      for (std::string& text : asked[s].groups[g].texts) session_->ahead_rows_[std::move(text)] = placed[g];
      read_[s].push_back(std::move(placed[g]));
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
    const Variant* cells = rows->Data();
    for (std::size_t row = 0; row + width <= rows->CellCount(); row += width) {
      if (filter && !detail::Evaluate(*filter, cells + row)) continue;
      values.push_back(ValueHelpers::ToText(cells[row + static_cast<std::size_t>(at)]));
    }
  }
  return values;
}

}  // namespace ormelix
