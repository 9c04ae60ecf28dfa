// LLohn_Laufbahnen: the career of one employee, the dated steps of its employment.
//
// Only its binding to the session and its place in the employee load exist so far:
// the steps, their load from Mitarbeiter_Laufbahn and the career queries come with
// the career work. Load reads nothing yet.
#pragma once

#include <memory>
#include <string>

#include "ormelix/session/manager.h"

namespace ormelix {

// The kinds of career step, the values of the column Schritt. 91 and 92 exist only
// in memory, around a change of contribution account.
enum eLaufbahnschritte {
  eLBNone = 0,
  eLBEintritt = 1,
  eLBDVRuht = 2,
  eLBAustritt = 3,
  eLBBKZEintritt = 91,
  eLBBKZAustritt = 92
};

class LLohn_Laufbahnen {
 public:
  // Library-internal: binds the career to the session and the employee, once,
  // before Load.
  void InitLaufbahnen(const std::shared_ptr<clsManager>& manager, const std::string& employee_id) {
    manager_.Set(manager);
    employee_id_ = employee_id;
  }
  // Reads the steps of the employee (comes with the career work; reads nothing yet).
  void Load() {}

  const std::string& EmployeeID() const { return employee_id_; }

 private:
  ManagerRef manager_;
  std::string employee_id_;
};

}  // namespace ormelix
