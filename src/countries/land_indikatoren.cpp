#include "ormelix/countries/land_indikatoren.h"

#include "ormelix/store/value_helpers.h"

namespace ormelix {

void clsLand_Indikatoren::Add(const Ptr& pIndikator) {
  items_.Add(pIndikator, ValueHelpers::ToText(Variant(pIndikator->ID)));
}

bool clsLand_Indikatoren::Exist(const Variant& pIndex) const {
  try {
    double number = 0;
    return pIndex.TryNumber(number) && Item(pIndex)->ID == number;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace ormelix
