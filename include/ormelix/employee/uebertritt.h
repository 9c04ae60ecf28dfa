#pragma once

#include <cstdint>
#include <string>

namespace ormelix {

/// A change of an employee's contribution group within one month
/// (say, at the end of an apprenticeship), a row of Mitarbeiter_Übertritte. LLohn
/// holds one per month, 1 to 12. Whether a month has a transfer is told by what the
/// object holds; the class has no flag of its own, and every save of the month
/// writes its row, zeros and empty codes included.
///
/// Read by LLohn::LoadMitarbeiter and Refresh (ucTableÜbertritte): the rows of the
/// twelve months of AktJahr, the last row of a month winning. Written by
/// LLohn::Update: Uebertritt(AktMonat) only, to the row of AktMonat (inserted when
/// there is none).
class LLohn_Übertritt {
 public:
  double Datum = 0;  ///< the day of the transfer, a day count
  std::int16_t BEGR1 = 0;  ///< contribution group before
  std::int16_t BEGR2 = 0;  ///< contribution group after
  std::string BEGRKürzel1;  ///< short code of the group before
  std::string BEGRKürzel2;  ///< short code of the group after
  /// \name Bases
  ///@{

  /// Bases before and after: single precision, stored rounded to two decimals.
  float Basis1 = 0;
  float Basis2 = 0;
  ///@}
  std::int16_t LehrJahre = 0;  ///< apprenticeship years
};

}  // namespace ormelix
