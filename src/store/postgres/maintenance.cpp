#include "maintenance.h"


namespace ormelix::detail::postgres {

namespace {

struct CatalogQuery {
  const char* sql;  // rows of texts; each row is one problem
  const char* form;  // the problem, with %1 and %2 for the first two columns
};

// Each query looks into the schema the store's tables lie in (the search path's first).
const CatalogQuery kQueries[] = {
    {"SELECT c.relname, t.relname FROM pg_index i JOIN pg_class c ON c.oid = i.indexrelid "
     "JOIN pg_class t ON t.oid = i.indrelid JOIN pg_namespace n ON n.oid = t.relnamespace "
     "WHERE n.nspname = current_schema() AND NOT (i.indisvalid AND i.indisready) ORDER BY 1",
     "the index %1 of %2 is not valid (a build of it failed); REINDEX INDEX makes it anew"},
    {"SELECT con.conname, t.relname FROM pg_constraint con JOIN pg_class t ON t.oid = con.conrelid "
     "JOIN pg_namespace n ON n.oid = t.relnamespace WHERE n.nspname = current_schema() AND NOT con.convalidated "
     "ORDER BY 1",
     "the constraint %1 of %2 was never validated, so rows may break it (ALTER TABLE ... VALIDATE CONSTRAINT)"},
    {"SELECT 'ormelix_text', '' WHERE NOT EXISTS (SELECT 1 FROM pg_collation c JOIN pg_namespace n ON "
     "n.oid = c.collnamespace WHERE c.collname = 'ormelix_text' AND n.nspname = current_schema() "
     "AND NOT c.collisdeterministic)",
     "the store's text order %1 is missing or compares case (it is an ICU collation und-u-ks-level2, nondeterministic)"},
    {"SELECT c.table_name || '.' || c.column_name, coalesce(c.collation_name, 'the default') "
     "FROM information_schema.columns c WHERE c.table_schema = current_schema() AND c.data_type = 'text' "
     "AND c.collation_name IS DISTINCT FROM 'ormelix_text' ORDER BY 1",
     "the text column %1 compares by %2 order, not by the store's text order ormelix_text"},
};

std::string Fill(std::string form, const PGresult* result, int row) {
  for (int column = 0; column < 2; ++column) {
    std::string mark = "%" + std::to_string(column + 1);
    std::size_t at = form.find(mark);
    if (at != std::string::npos) form.replace(at, mark.size(), PQgetvalue(result, row, column));
  }
  return form;
}

}  // namespace

std::vector<std::string> CatalogProblems(PGconn* conn, const Server& server) {
  std::vector<std::string> problems;
  for (const CatalogQuery& query : kQueries) {
    ResultHandle result(PQexec(conn, query.sql));
    if (Failed(result.get())) ThrowRefused("statement refused by the store", query.sql, conn, result.get(), server);
    for (int row = 0; row < PQntuples(result.get()); ++row) problems.push_back("catalog: " + Fill(query.form, result.get(), row));
  }
  return problems;
}

}  // namespace ormelix::detail::postgres
