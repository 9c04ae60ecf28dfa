/// \file
/// The small value objects of one month of an employee: the days of casual
/// employment, the one-sixth year total and the commuter allowance at a
/// recalculation. They have no table of their own: their values are columns of the
/// monthly pay record, read and written with it.
#pragma once

#include <cstdint>

#include "ormelix/indexed_array.h"

namespace ormelix {

/// The days of occasional employment of a month (LLohn::FB_Fallweise): columns of
/// the month's row of Mitarbeiter_Lohnzettel.
class LLohn_Fallweise {
 public:
  bool FallweiseBeschäftigt = false;  ///< column FB_FallweiseBeschäftigt
  bool körperlicheTätigkeit = false;  ///< column FB_körperlicheTätigkeit
  /// Day of the month worked, 1 to 31; index 0 exists and is never stored. The
  /// column FB_Tage holds the days as two-digit numbers in ascending order without
  /// a separator (days 3, 14 and 28: "031428"; "" for none).
  IndexedArray<bool, 0, 31> Tage{"Tage"};
};

/// The one-sixth year total and its entry marker (LLohn::Sechstel): columns of the
/// month's row of Mitarbeiter_Lohnzettel.
class LLohn_Eingabe {
 public:
  std::int16_t eJahresSumme = 0;  ///< column Sechstel_Summe_Eingabe: the user typed the total (True -1)
  float JahresSumme = 0;          ///< column Sechstel_Summe, rounded to 2 decimals on save
};

/// The commuter allowance at a recalculation (LLohn::PendlerAR): columns of the
/// month's row of Mitarbeiter_Lohnzettel.
class LLohn_PendlerAR {
 public:
  /// \name Values (Mitarbeiter_Lohnzettel)
  ///@{

  /// Columns of their own name.
  ///
  /// Columns of their own name: the allowance, its third, the kilometres and the
  /// saved marker (16-bit), and the two amounts at the recalculation (single
  /// precision, rounded to 2 decimals on save).
  std::int16_t Pendler = 0;
  std::int16_t PendlerDrittel = 0;
  std::int16_t PendlerKM = 0;
  std::int16_t PendlerSave = 0;
  float Pendler_EuroBeiAufRollen = 0;
  float Pendler_BeiAufRollen = 0;
  ///@}
};

}  // namespace ormelix
