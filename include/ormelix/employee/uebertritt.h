#pragma once

#include <cstdint>
#include <string>

namespace ormelix {

/// A change of an employee's contribution group within one month
/// (say, at the end of an apprenticeship), a row of Mitarbeiter_Übertritte. LLohn
/// holds one per month, 1 to 12. Whether a month has a transfer is told by what the
/// object holds; the class has no flag of its own, and every save of the month
/// writes its row, zeros and empty codes included.
class LLohn_Übertritt {
 public:
  double Datum = 0;  ///< the day of the transfer, a day count
  std::int16_t BEGR1 = 0;  ///< contribution group before
  std::int16_t BEGR2 = 0;  ///< and after
  std::string BEGRKürzel1;  ///< short codes of the two groups
  std::string BEGRKürzel2;
  /// Bases before and after: single precision, stored rounded to two decimals.
  float Basis1 = 0;
  float Basis2 = 0;
  std::int16_t LehrJahre = 0;
};

}  // namespace ormelix
