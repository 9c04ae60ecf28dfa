#include "backend.h"

#include <algorithm>
#include <cstdio>

#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {
// Distinct shapes kept translated; past this the cache starts afresh, so that a host
// that builds many distinct statements keeps its memory flat.
constexpr std::size_t kTranslationCacheLimit = 4096;
// Filter texts kept parsed per statement's columns.
constexpr std::size_t kFilterCacheLimit = 256;
}  // namespace

ColumnLayout::ColumnLayout(std::vector<ColumnInfo> columns) : columns_(std::move(columns)) {
  // A name that several columns share (a join of two tables with an ID, or
  // "SELECT DISTINCT([x]) AS[x], *") names the first of them, as the domain's
  // stores answered. "table.column" names the table's own column: the last of that
  // table and name, since the store reports the table of a column picked out
  // before the "*" as well, and the "*" comes last.
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    std::string folded = FoldCase(columns_[i].name);
    if (!columns_[i].table.empty()) qualified_.insert_or_assign(FoldCase(columns_[i].table) + "." + folded, i);
    auto first = folded_.emplace(std::move(folded), i).first;
    exact_.emplace(columns_[i].name, first->second);
  }
}

int ColumnLayout::Lookup(std::string_view name) const {
  auto exact = exact_.find(name);  // the usual case: the name as the table declares it
  if (exact != exact_.end()) return exact->second;
  std::string folded = FoldCase(name);
  auto found = folded_.find(folded);
  if (found != folded_.end()) return found->second;
  auto qualified = qualified_.find(folded);
  if (qualified != qualified_.end()) return qualified->second;
  return -1;
}

std::shared_ptr<const FilterNode> ColumnLayout::ParsedFilter(
    std::string_view criteria, const std::function<FilterNode(std::string_view)>& parse) const {
  auto found = filters_.find(criteria);
  if (found != filters_.end()) return found->second;
  auto node = std::make_shared<const FilterNode>(parse(criteria));
  if (filters_.size() >= kFilterCacheLimit) filters_.clear();
  filters_.emplace(std::string(criteria), node);
  return node;
}

ConnectOptions ParseConnect(const std::string& connect, const std::string& path) {
  ConnectOptions options;
  std::string word;
  auto take = [&] {
    std::string folded = FoldCase(TrimBlanks(word));
    word.clear();
    if (folded.empty()) return;
    if (folded == "sqlite" || folded == "postgres" || folded == "postgresql") {
      options.backend = folded == "sqlite" ? "sqlite" : "postgres";
      return;
    }
    if (folded.rfind("statement_cache=", 0) == 0) {
      std::string number = folded.substr(16);
      if (!number.empty() && number.size() <= 6 && number.find_first_not_of("0123456789") == std::string::npos) {
        options.statement_cache = static_cast<std::size_t>(std::stoul(number));
        return;
      }
    }
    if (folded == "readonly" || folded == "read-only") {
      options.read_only = true;
      return;
    }
    // Milliseconds of a timeout option: busy_timeout=MS, statement_timeout=MS (at least 1).
    auto timeout = [&](const char* name, int& into, int least) {
      const std::string prefix = std::string(name) + "=";
      if (folded.rfind(prefix, 0) != 0) return false;
      std::string number = folded.substr(prefix.size());
      bool digits = !number.empty() && number.size() <= 7 &&
                    number.find_first_not_of("0123456789") == std::string::npos;
      if (!digits || std::stoi(number) < least) return false;
      into = std::stoi(number);
      return true;
    };
    if (timeout("busy_timeout", options.busy_timeout_ms, 0)) return;
    if (timeout("statement_timeout", options.statement_timeout_ms, 1)) return;
    throw StoreError("unknown store kind or option", path,
                     "the connect text '" + connect + "' holds '" + folded +
                         "'; expected sqlite or postgres, readonly, busy_timeout=MILLISECONDS, statement_cache=N, "
                         "statement_timeout=MILLISECONDS");
  };
  for (char c : connect) {
    if (c == ';' || c == ',') take();
    else word += c;
  }
  take();
  return options;
}

std::shared_ptr<Backend> MakeBackend(const std::string& connect, const std::string& path) {
  ConnectOptions options = ParseConnect(connect, path);
  bool server = IsServerLocation(path);
  if (server) return MakePostgresBackend();
  if (options.backend == "postgres")
    throw StoreError("cannot open store", path,
                     "the connect text asks for PostgreSQL, but the location is no connection string "
                     "(postgres://user@host:port/database or host=... dbname=...)");
  return MakeSqliteBackend();
}

std::string DoubleAsStoredText(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.15g", value);
  std::string text = buffer;
  if (text.find_first_of("ein") == std::string::npos) return text.find('.') == std::string::npos ? text + ".0" : text;
  std::size_t e = text.find('e');
  if (e != std::string::npos && text.find('.') == std::string::npos) text.insert(e, ".0");
  return text;
}

void Backend::BackupInto(const std::string& file) {
  throw StoreError("this store cannot be copied into a file", Path(),
                   "a backup by file copies SQLite stores; a server has its own tools (PostgreSQL: pg_dump), not " + file);
}

void Backend::InsertRows(const std::string& table, const std::vector<std::string>& columns,
                         const std::vector<Variant>& cells) {
  std::vector<Variant> row(columns.size());
  for (std::size_t at = 0; at + columns.size() <= cells.size() && !columns.empty(); at += columns.size()) {
    std::copy(cells.begin() + static_cast<long>(at), cells.begin() + static_cast<long>(at + columns.size()),
              row.begin());
    InsertRow(table, columns, row);
  }
}

std::vector<QueryResult> Backend::QueryMany(const std::vector<std::string>& jet_sqls) {
  std::vector<NativeQuery> queries;
  queries.reserve(jet_sqls.size());
  for (const std::string& sql : jet_sqls) queries.push_back({Translate(sql), sql});
  return QueryNative(queries);
}

const TranslatedSql& Backend::TranslateForKeys(std::string_view jet_sql, const KeyListForm& form) {
  std::string key(jet_sql);
  key += form.joined ? "\x02" : "\x03";
  auto found = key_translations_.find(key);
  if (found != key_translations_.end()) return found->second;
  if (key_translations_.size() >= kTranslationCacheLimit) key_translations_.clear();
  return key_translations_.emplace(std::move(key), TranslateSql(jet_sql, dialect_, &form)).first->second;
}

std::function<QueryResult()> Backend::InsertRowAhead(const std::string& table, const std::vector<std::string>& columns,
                                                     const std::vector<Variant>& values) {
  return [stored = InsertRow(table, columns, values)] { return stored; };
}

const TranslatedSql& Backend::Translate(std::string_view jet_sql) {
  // A recordset asks for the translation of its text when it opens and again when
  // it reads: the second time it is the latest one.
  if (latest_ && jet_sql == latest_text_) return *latest_;
  latest_ = &TranslateAnew(jet_sql);
  latest_text_.assign(jet_sql);
  return *latest_;
}

const TranslatedSql& Backend::TranslateAnew(std::string_view jet_sql) {
  // A text without bound literals comes back as it stands: found by its text.
  auto exact = exact_translations_.find(jet_sql);
  if (exact != exact_translations_.end()) return exact->second;
  // A text that holds the shape's own marker is translated on its own, every time.
  if (jet_sql.find('\x01') != std::string_view::npos) return uncached_ = TranslateSql(jet_sql, dialect_);
  // Otherwise texts that differ only in the literals of their conditions (the key
  // of an employee, a period) share one translation; the entry carries the
  // parameters of the latest text, which the caller binds at once.
  SqlShape shape = ShapeOf(jet_sql);
  auto found = translations_.find(shape.key);
  if (found != translations_.end()) {
    found->second.params = std::move(shape.params);
    return found->second;
  }
  TranslatedSql translated = TranslateSql(jet_sql, dialect_);
  // The shape's parameters are the translation's own; where they are not (which
  // would be a fault of the shape), the text is not shared.
  if (translated.params != shape.params) return uncached_ = std::move(translated);
  auto& cache = translated.params.empty() ? exact_translations_ : translations_;
  std::string key = translated.params.empty() ? std::string(jet_sql) : std::move(shape.key);
  if (cache.size() >= kTranslationCacheLimit) cache.clear();
  return cache.emplace(std::move(key), std::move(translated)).first->second;
}

}  // namespace ormelix::detail
