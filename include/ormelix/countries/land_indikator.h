#pragma once

#include <cstdint>

namespace ormelix {

/// One dated value pair of a country, in force from its period on.
/// What Indikator and Faktor mean is the host's to say; the library hands them out.
///
/// A row of Länder_Indikatoren in the reference store, read unrounded.
class clsLand_Indikator {
 public:
  std::int32_t ID = 0;        ///< the row's key (column ID), a number
  std::int32_t Zeitraum = 0;  ///< the period from which it holds, yyyymm
  double Indikator = 0;       ///< the indicator (column Indikator)
  double Faktor = 0;          ///< the factor (column Faktor)
};

}  // namespace ormelix
