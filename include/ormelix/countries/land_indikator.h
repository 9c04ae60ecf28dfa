#pragma once

#include <cstdint>

namespace ormelix {

/// One dated value pair of a country, in force from its period on.
/// What Indikator and Faktor mean is the host's to say; the library hands them out.
class clsLand_Indikator {
 public:
  std::int32_t ID = 0;
  std::int32_t Zeitraum = 0;
  double Indikator = 0;
  double Faktor = 0;
};

}  // namespace ormelix
