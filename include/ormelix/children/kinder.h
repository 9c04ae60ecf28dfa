// LLohn_Kinder: the children of one employee.
//
// Only its binding to the session and its place in the employee load exist so far:
// the children, their dated entitlements and the bonus selection come with the
// children work. Load reads nothing yet.
#pragma once

#include <memory>
#include <string>

#include "ormelix/session/manager.h"

namespace ormelix {

class LLohn_Kinder {
 public:
  // Library-internal: binds the list to the session and the employee, once, before Load.
  void InitKinder(const std::shared_ptr<clsManager>& manager, const std::string& employee_id) {
    manager_.Set(manager);
    employee_id_ = employee_id;
  }
  // Reads the children of the employee (comes with the children work; reads nothing yet).
  void Load() {}

  const std::string& EmployeeID() const { return employee_id_; }

 private:
  ManagerRef manager_;
  std::string employee_id_;
};

}  // namespace ormelix
