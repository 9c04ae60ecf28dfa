#include "ormelix/career/laufbahn.h"

#include "ormelix/store/date_helpers.h"

namespace ormelix {

using namespace DateHelpers;

Date LLohn_Laufbahn::WochengeldDatumEnde() const {
  if (Datum == 0) return DateSerial(Year(wochengeld_datum_ende_) + 1, 12, 31);
  if (Schritt == eLBAustritt) return Datum;
  return Datum - 1;
}

std::int32_t LLohn_Laufbahn::Zeitraum() const { return Year(Datum) * 100 + Month(Datum); }

}  // namespace ormelix
