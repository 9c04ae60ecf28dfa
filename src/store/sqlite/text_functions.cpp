// The text order and the case functions on an SQLite connection. The same source
// serves twice: in the library, where every connection registers them
// (RegisterSqliteText), and built with ORMELIX_SQLITE_EXTENSION as the loadable
// extension libormelix_sqlite_text.so, through which the sqlite3 shell and any
// other program that loads extensions read and write a store as the library does.
// An extension reaches SQLite only through the routines its host hands it, so
// that it serves whichever SQLite the host has.
#ifdef ORMELIX_SQLITE_EXTENSION
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT1
#else
#include <sqlite3.h>

#include "ormelix/error.h"
#include "ormelix/store/sqlite_text.h"
#endif

#include <string>

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

// Registers the order and both functions; SQLite's code of the first refusal,
// with what it refused in `refused`.
int RegisterAll(sqlite3* db, const char*& refused) {
  refused = kTextCollation;
  int rc = sqlite3_create_collation_v2(db, kTextCollation, SQLITE_UTF8, nullptr, CompareCollated, nullptr);
  if (rc != SQLITE_OK) return rc;
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  refused = "LCASE";
  rc = sqlite3_create_function_v2(db, "LCASE", 1, kFlags, nullptr, LcaseFunction, nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return rc;
  refused = "UCASE";
  return sqlite3_create_function_v2(db, "UCASE", 1, kFlags, nullptr, UcaseFunction, nullptr, nullptr, nullptr);
}

}  // namespace

#ifndef ORMELIX_SQLITE_EXTENSION
void RegisterSqliteText(sqlite3* db) {
  const char* refused = nullptr;
  int rc = RegisterAll(db, refused);
  if (rc != SQLITE_OK) throw StoreError("cannot register the store's text functions", refused, sqlite3_errmsg(db), rc);
}
#endif

}  // namespace ormelix

#ifdef ORMELIX_SQLITE_EXTENSION
// SQLite looks for sqlite3_extension_init first, then for the name it makes of the
// file's (libormelix_sqlite_text.so: sqlite3_ormelixsqlitetext_init); both are here,
// so that a renamed file loads too.
extern "C" __attribute__((visibility("default"))) int sqlite3_ormelixsqlitetext_init(
    sqlite3* db, char** error, const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api);
  const char* refused = nullptr;
  int rc = ormelix::RegisterAll(db, refused);
  if (rc != SQLITE_OK && error) *error = sqlite3_mprintf("cannot register %s: %s", refused, sqlite3_errmsg(db));
  return rc;
}

extern "C" __attribute__((visibility("default"))) int sqlite3_extension_init(sqlite3* db, char** error,
                                                                             const sqlite3_api_routines* api) {
  return sqlite3_ormelixsqlitetext_init(db, error, api);
}
#endif
