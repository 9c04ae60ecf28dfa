#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/countries/land_indikatoren.h"

namespace ormelix {

/// A country of the reference store, with its dated indicators.
///
/// A row of Länder in the reference store (read-only: the library never writes it),
/// with its rows of Länder_Indikatoren.
class clsLand {
 public:
  std::int32_t ID = 0;  ///< the row's key (column ID), a number
  /// The country code (column HVB): the order of the list and its key.
  std::int32_t Code = 0;
  /// \name Names and codes
  ///@{

  /// The short and the full name (columns of their own name) and the ISO codes
  /// (columns ISOA3, ISOA2).
  std::string Kurzbezeichnung;
  std::string Bezeichnung;
  std::string ISO_A3;
  std::string ISO_A2;
  ///@}
  /// The vehicle registration code, by which GetIndikator asks for a country.
  std::string KFZ;
  bool EULand = false;  ///< a member of the EU (column EULand, read as a text boolean)

  /// The country's dated indicators; created with it, the same object each time.
  const std::shared_ptr<clsLand_Indikatoren>& Indikatoren() const { return indikatoren_; }

 private:
  std::shared_ptr<clsLand_Indikatoren> indikatoren_ = std::make_shared<clsLand_Indikatoren>();
};

}  // namespace ormelix
