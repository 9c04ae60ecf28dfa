// The PostgreSQL store's own checks: what its catalog says of the store's schema.
#pragma once

#include <string>
#include <vector>

#include "connection.h"

namespace ormelix::detail::postgres {

// Indexes that are not valid (a build that failed), constraints not validated
// (added NOT VALID), and the store's text order missing or deterministic or
// absent from a text column, a text each.
std::vector<std::string> CatalogProblems(PGconn* conn, const Server& server);

}  // namespace ormelix::detail::postgres
