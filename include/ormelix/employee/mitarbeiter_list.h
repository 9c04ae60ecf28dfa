// clsMitarbeiter: the employees of the current employer.
#pragma once

#include <memory>

#include "ormelix/collection.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/session/manager.h"

namespace ormelix {

class clsMitarbeiter {
 public:
  clsMitarbeiter() : entries_("the employee list"), empty_employee_(std::make_shared<LLohn>()) {}

  // Library-internal: the session gives its back reference once, at creation.
  void SetManager(const std::shared_ptr<clsManager>& manager) { manager_.Set(manager); }

  // An ID (IsID) or a number goes to the list: a number by position from 1, an ID
  // by key, failing with KeyNotFound for one that is not there. Anything else gives
  // the blank employee.
  std::shared_ptr<LLohn> Item(const Variant& pIndex) const;
  long Count() const { return entries_.Count(); }

 private:
  ManagerRef manager_;
  Collection<LLohn> entries_;
  std::shared_ptr<LLohn> empty_employee_;
};

}  // namespace ormelix
