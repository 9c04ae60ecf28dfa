// LLohn: one employee with everything the payroll needs of that employee for one
// calendar year.
#pragma once

#include <cstdint>
#include <string>

namespace ormelix {

class clsManager;

class LLohn {
 public:
  // Identity, set by LoadMitarbeiter: the key in Mitarbeiter and the position in
  // the employee list, from 1.
  const std::string& ID() const { return id_; }
  std::int16_t Index() const { return index_; }

 private:
  std::string id_;
  std::int16_t index_ = 0;
};

}  // namespace ormelix
