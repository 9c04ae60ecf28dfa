// The views of ormelix show that wait for the base values and the employees.
#include "show.h"

namespace cli {

int ShowEmployees(ormelix::clsManager&, Arguments&, bool) {
  throw UsageError("show employees is not available in this build yet");
}
int ShowMonth(ormelix::clsManager&, Arguments&, bool) {
  throw UsageError("show month is not available in this build yet");
}

}  // namespace cli
