// clsBasisdaten: the folders of statutory base values of the session.
#pragma once

#include <memory>

#include "ormelix/session/manager.h"

namespace ormelix {

class clsBasisdaten {
 public:
  // Library-internal: the session gives its back reference once, at creation.
  void SetManager(const std::shared_ptr<clsManager>& manager) { manager_.Set(manager); }

 private:
  ManagerRef manager_;
};

}  // namespace ormelix
