#pragma once

#include "ormelix/indexed_array.h"

namespace ormelix {

/// The four commuter-allowance bands of a dated table, each with a lower
/// and an upper bound and a small and a large amount. The arrays run from 0 to 4;
/// index 0 can be set in memory but is never saved (a stored row with SortNr 0 is
/// loaded into it, though). Any other index is std::out_of_range.
class LBasis_PP {
 public:
  using Bands = IndexedArray<double, 0, 4>;

  Bands Von{"LBasis_PP.Von"};
  Bands Bis{"LBasis_PP.Bis"};
  Bands klein{"LBasis_PP.klein"};
  Bands gross{"LBasis_PP.gross"};
};

}  // namespace ormelix
