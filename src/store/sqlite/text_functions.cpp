// The text order and the case functions on an SQLite connection.
#include <sqlite3.h>

#include <string>

#include "ormelix/error.h"
#include "ormelix/store/sqlite_text.h"
#include "ormelix/store/text_order.h"
#include "ormelix/text.h"

namespace ormelix {

namespace {

int CompareCollated(void*, int a_bytes, const void* a, int b_bytes, const void* b) {
  return CompareText(std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(a_bytes)),
                     std::string_view(static_cast<const char*>(b), static_cast<std::size_t>(b_bytes)));
}

// SQLite's own lower() and upper() know ASCII only; these fold umlauts too.
void FoldFunction(sqlite3_context* context, sqlite3_value** args, bool lower) {
  if (sqlite3_value_type(args[0]) == SQLITE_NULL) {
    sqlite3_result_null(context);
    return;
  }
  const char* text = reinterpret_cast<const char*>(sqlite3_value_text(args[0]));
  std::string folded = lower ? FoldCase(text ? text : "") : UpperCase(text ? text : "");
  sqlite3_result_text(context, folded.c_str(), static_cast<int>(folded.size()), SQLITE_TRANSIENT);
}

void LcaseFunction(sqlite3_context* c, int, sqlite3_value** a) { FoldFunction(c, a, true); }
void UcaseFunction(sqlite3_context* c, int, sqlite3_value** a) { FoldFunction(c, a, false); }

void Check(sqlite3* db, int rc, const char* what) {
  if (rc != SQLITE_OK) throw StoreError("cannot register the store's text functions", what, sqlite3_errmsg(db), rc);
}

}  // namespace

void RegisterSqliteText(sqlite3* db) {
  Check(db, sqlite3_create_collation_v2(db, kTextCollation, SQLITE_UTF8, nullptr, CompareCollated, nullptr),
        kTextCollation);
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  Check(db, sqlite3_create_function_v2(db, "LCASE", 1, kFlags, nullptr, LcaseFunction, nullptr, nullptr, nullptr),
        "LCASE");
  Check(db, sqlite3_create_function_v2(db, "UCASE", 1, kFlags, nullptr, UcaseFunction, nullptr, nullptr, nullptr),
        "UCASE");
}

}  // namespace ormelix
