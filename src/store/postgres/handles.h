// Owners of libpq's C handles; nothing of libpq-fe.h leaves src/store/postgres.
#pragma once

#include <libpq-fe.h>

#include "../unique_handle.h"

namespace ormelix::detail::postgres {

using ConnectionHandle = UniqueHandle<PGconn, PQfinish>;
using ResultHandle = UniqueHandle<PGresult, PQclear>;

}  // namespace ormelix::detail::postgres
