// The payroll store of a session, for the employee's table routines.
#pragma once

#include "../session/store_access.h"

namespace ormelix::modDatabase {

using ::ormelix::detail::PayrollStore;

}  // namespace ormelix::modDatabase
