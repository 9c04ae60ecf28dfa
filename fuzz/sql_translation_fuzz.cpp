// The translation of the domain's Jet SQL into each backend's dialect: any text
// is translated or refused with a StoreError, and a translation binds exactly as
// many values as it has placeholders.
#include <cstdlib>

#include "fuzz_input.h"
#include "ormelix/error.h"
#include "store/sql_dialect.h"

using namespace ormelix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view sql = fuzz::Input(data, size).Rest();
  for (auto dialect : {detail::SqlDialect::Sqlite, detail::SqlDialect::Postgres}) {
    try {
      detail::TranslatedSql translated = detail::TranslateSql(sql, dialect);
      std::size_t marks = 0;
      bool quoted = false;
      char quote = 0;
      for (char c : translated.text) {
        if (quoted) {
          if (c == quote) quoted = false;
        } else if (c == '\'' || c == '"') {
          quoted = true;
          quote = c;
        } else if (c == '?') {
          ++marks;
        }
      }
      if (dialect == detail::SqlDialect::Sqlite && marks != translated.params.size()) std::abort();
    } catch (const StoreError&) {
      // text outside the dialect, refused with its reason
    }
  }
  return 0;
}
