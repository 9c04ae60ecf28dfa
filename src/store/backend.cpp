#include "backend.h"

namespace ormelix::detail {

namespace {
// Distinct texts kept translated; past this the cache starts afresh. Texts that
// differ only in a key value are distinct here, so the bound keeps memory flat.
constexpr std::size_t kTranslationCacheLimit = 4096;
}  // namespace

const TranslatedSql& Backend::Translate(std::string_view jet_sql) {
  std::string key(jet_sql);
  auto found = translations_.find(key);
  if (found != translations_.end()) return found->second;
  TranslatedSql translated = TranslateSql(jet_sql, dialect_);
  if (translations_.size() >= kTranslationCacheLimit) translations_.clear();
  return translations_.emplace(std::move(key), std::move(translated)).first->second;
}

}  // namespace ormelix::detail
