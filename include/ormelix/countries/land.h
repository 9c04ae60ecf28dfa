#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/countries/land_indikatoren.h"

namespace ormelix {

/// A country of the reference store, with its dated indicators.
class clsLand {
 public:
  std::int32_t ID = 0;
  /// The country code (column HVB): the order of the list and its key.
  std::int32_t Code = 0;
  std::string Kurzbezeichnung;
  std::string Bezeichnung;
  std::string ISO_A3;
  std::string ISO_A2;
  /// The vehicle registration code, by which GetIndikator asks for a country.
  std::string KFZ;
  bool EULand = false;

  const std::shared_ptr<clsLand_Indikatoren>& Indikatoren() const { return indikatoren_; }

 private:
  std::shared_ptr<clsLand_Indikatoren> indikatoren_ = std::make_shared<clsLand_Indikatoren>();
};

}  // namespace ormelix
