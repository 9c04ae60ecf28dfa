#include "backend.h"

#include "ormelix/error.h"
#include "ormelix/text.h"

namespace ormelix::detail {

namespace {
// Distinct texts kept translated; past this the cache starts afresh. Texts that
// differ only in a key value are distinct here, so the bound keeps memory flat.
constexpr std::size_t kTranslationCacheLimit = 4096;
}  // namespace

ColumnLayout::ColumnLayout(std::vector<ColumnInfo> columns) : columns_(std::move(columns)) {
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    auto [exact, fresh] = exact_.emplace(columns_[i].name, i);
    if (!fresh) exact->second = -2;
    std::string folded = FoldCase(columns_[i].name);
    auto [it, inserted] = folded_.emplace(folded, i);
    if (!inserted) it->second = -2;
    if (!columns_[i].table.empty()) qualified_.emplace(FoldCase(columns_[i].table) + "." + folded, i);
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

ConnectOptions ParseConnect(const std::string& connect, const std::string& path) {
  ConnectOptions options;
  std::string word;
  auto take = [&] {
    std::string folded = FoldCase(TrimBlanks(word));
    word.clear();
    if (folded.empty() || folded == "sqlite") return;
    if (folded == "readonly" || folded == "read-only") {
      options.read_only = true;
      return;
    }
    if (folded.rfind("busy_timeout=", 0) == 0) {
      std::string number = folded.substr(13);
      bool digits = !number.empty() && number.size() <= 7 &&
                    number.find_first_not_of("0123456789") == std::string::npos;
      if (digits) {
        options.busy_timeout_ms = std::stoi(number);
        return;
      }
    }
    throw StoreError("unknown store kind or option", path,
                     "the connect text '" + connect + "' holds '" + folded +
                         "'; expected sqlite, readonly and busy_timeout=MILLISECONDS");
  };
  for (char c : connect) {
    if (c == ';' || c == ',') take();
    else word += c;
  }
  take();
  return options;
}

std::shared_ptr<Backend> MakeBackend(const std::string& connect, const std::string& path) {
  ParseConnect(connect, path);  // sqlite is the one backend of this build
  return MakeSqliteBackend();
}

const TranslatedSql& Backend::Translate(std::string_view jet_sql) {
  std::string key(jet_sql);
  auto found = translations_.find(key);
  if (found != translations_.end()) return found->second;
  TranslatedSql translated = TranslateSql(jet_sql, dialect_);
  if (translations_.size() >= kTranslationCacheLimit) translations_.clear();
  return translations_.emplace(std::move(key), std::move(translated)).first->second;
}

}  // namespace ormelix::detail
