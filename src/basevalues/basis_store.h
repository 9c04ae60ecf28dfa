// Library-internal helpers of the base-value routines: the store of the session,
// and the refusal of unset value objects.
#pragma once

#include <memory>
#include <string>

#include "../session/store_access.h"
#include "ormelix/error.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/store.h"

namespace ormelix::modBasiswerte::detail {

using ::ormelix::detail::OpenRead;
using ::ormelix::detail::OpenWrite;
using ::ormelix::detail::PayrollStore;

// The owning session of a back reference, as the routines that take it need it.
std::shared_ptr<clsManager> Shared(clsManager& manager);

template <class T>
std::shared_ptr<T> RequireObject(std::shared_ptr<T> object, const char* property) {
  if (!object) throw Error(std::string(property) + ": an object is required, not an unset reference");
  return object;
}

}  // namespace ormelix::modBasiswerte::detail
