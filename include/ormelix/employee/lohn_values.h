/// \file
/// The small value objects of one month of an employee: the days of casual
/// employment, the one-sixth year total and the commuter allowance at a
/// recalculation. They have no table of their own: their values are columns of the
/// monthly pay record, read and written with it.
#pragma once

#include <cstdint>

#include "ormelix/indexed_array.h"

namespace ormelix {

/// The days of occasional employment of a month (FB_Fallweise).
class LLohn_Fallweise {
 public:
  bool FallweiseBeschäftigt = false;
  bool körperlicheTätigkeit = false;
  /// Day of the month worked, 1 to 31; index 0 exists and is never stored.
  IndexedArray<bool, 0, 31> Tage{"Tage"};
};

/// The one-sixth year total and its entry marker (Sechstel).
class LLohn_Eingabe {
 public:
  std::int16_t eJahresSumme = 0;
  float JahresSumme = 0;
};

/// The commuter allowance at a recalculation (PendlerAR).
class LLohn_PendlerAR {
 public:
  std::int16_t Pendler = 0;
  std::int16_t PendlerDrittel = 0;
  std::int16_t PendlerKM = 0;
  std::int16_t PendlerSave = 0;
  float Pendler_EuroBeiAufRollen = 0;
  float Pendler_BeiAufRollen = 0;
};

}  // namespace ormelix
