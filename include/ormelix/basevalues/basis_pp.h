#pragma once

#include "ormelix/indexed_array.h"

namespace ormelix {

/// The four commuter-allowance bands of a dated table, each with a lower
/// and an upper bound and a small and a large amount. The arrays run from 0 to 4;
/// index 0 can be set in memory but is never saved (a stored row with SortNr 0 is
/// loaded into it, though). Any other index is std::out_of_range.
///
/// Table Basiswerte_Zeittabelle_PP: a row per band (SortNr 1 to 4), read with the
/// dated table and written by LBasis::Update; 2 decimals on load.
class LBasis_PP {
 public:
  /// The four bands, index 0 to 4.
  using Bands = IndexedArray<double, 0, 4>;

  /// \name The bands (columns Von, Bis, klein, gross)
  ///@{

  /// The lower and upper bound of the distance, and the small and the large
  /// commuter allowance, per band.
  Bands Von{"LBasis_PP.Von"};
  Bands Bis{"LBasis_PP.Bis"};
  Bands klein{"LBasis_PP.klein"};
  Bands gross{"LBasis_PP.gross"};
  ///@}
};

}  // namespace ormelix
