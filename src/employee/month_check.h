// Library-internal: the check of a month that a save is about to write.
#pragma once

#include <stdexcept>
#include <string>

namespace ormelix::modDatabase {

// A save writes the rows of one month, 1 to 12. Any other month is refused with
// std::out_of_range naming the operation, what the month stands for and the month,
// before anything is written.
inline void RequireSaveMonth(const std::string& operation, const std::string& what, int month) {
  if (month < 1 || month > 12)
    throw std::out_of_range(operation + ": " + what + " " + std::to_string(month) +
                            " is no month 1..12; nothing was written");
}

}  // namespace ormelix::modDatabase
