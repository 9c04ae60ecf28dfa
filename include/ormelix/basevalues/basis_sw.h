#pragma once

#include <cstdint>
#include <memory>

#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/indexed_array.h"

namespace ormelix {

/// The wage-group rate of one employee group: a row of
/// Basiswerte_Zeittabelle_SW_Werte (DNGruppe, eBasisSWDienstnehmergruppe), each
/// value rounded to 2 decimals on load.
class LBasis_SW_Wert {
 public:
  double USTeiler = 0;  ///< the divisor (column USTeiler)
  double Prozent = 0;   ///< the percentage (column Prozent)
  double grenze = 0;    ///< the limit (column grenze)
};

/// The wage-group rates of a dated table. Two flat values and, for each
/// of eleven employee groups, a divisor, a percentage and a limit.
///
/// LehrlingArbeiter is read from the row of group 3 (so an apprentice blue-collar
/// worker gets the values of Arbeiter) but written to the row of group 8, which is
/// never read: a value entered there lasts until the next load.
///
/// Tables: Basiswerte_Zeittabelle_SW (Betriebsrat, Betrag) and
/// Basiswerte_Zeittabelle_SW_Werte (a row per group). Read with the dated table and
/// written by LBasis::Update.
class LBasis_SW {
 public:
  /// A group's rates, shared.
  using Wert = std::shared_ptr<LBasis_SW_Wert>;

  /// Creates the eleven value objects.
  LBasis_SW();

  double Betriebsrat = 0;   ///< the works-council rate (column Betriebsrat, 2 decimals on load)
  std::int16_t Betrag = 0;  ///< an amount, 16-bit (column Betrag)

  /// \name The employee groups
  ///@{

  /// The rates of an employee group.
  ///
  /// The rates of the employee group of that name (eBasisSWDienstnehmergruppe),
  /// the same object each time. LehrlingArbeiter reads the row of group 3 and
  /// writes that of group 8 (see the class).
  const Wert& Geschäftsführer() const { return Gruppe(eBasisSWGeschäftsführer); }
  const Wert& Angestellte() const { return Gruppe(eBasisSWAngestellte); }
  const Wert& Arbeiter() const { return Gruppe(eBasisSWArbeiter); }
  const Wert& Bauarbeiter() const { return Gruppe(eBasisSWBauarbeiter); }
  const Wert& RAWAnwaerter() const { return Gruppe(eBasisSWRAWAnwärter); }
  const Wert& FreierMitarbeiter() const { return Gruppe(eBasisSWFreierMitarbeiter); }
  const Wert& LehrlingAngestellt() const { return Gruppe(eBasisSWLehrlingAngestellte); }
  const Wert& LehrlingArbeiter() const { return Gruppe(eBasisSWLehrlingArbeiter); }
  const Wert& Ferialpraktikant() const { return Gruppe(eBasisSWFerialpraktikant); }
  const Wert& Forstarbeiter() const { return Gruppe(eBasisSWForstarbeiter); }
  const Wert& LehrlingForstArbeiter() const { return Gruppe(eBasisSWLehrlingForstArbeiter); }
  ///@}

  /// \name Replacing a group's object
  ///@{

  /// Replacing a value object; an unset one is refused (Error).
  void SetGeschäftsführer(Wert p) { SetGruppe(eBasisSWGeschäftsführer, std::move(p)); }
  void SetAngestellte(Wert p) { SetGruppe(eBasisSWAngestellte, std::move(p)); }
  void SetArbeiter(Wert p) { SetGruppe(eBasisSWArbeiter, std::move(p)); }
  void SetBauarbeiter(Wert p) { SetGruppe(eBasisSWBauarbeiter, std::move(p)); }
  void SetRAWAnwaerter(Wert p) { SetGruppe(eBasisSWRAWAnwärter, std::move(p)); }
  void SetFreierMitarbeiter(Wert p) { SetGruppe(eBasisSWFreierMitarbeiter, std::move(p)); }
  void SetLehrlingAngestellt(Wert p) { SetGruppe(eBasisSWLehrlingAngestellte, std::move(p)); }
  void SetLehrlingArbeiter(Wert p) { SetGruppe(eBasisSWLehrlingArbeiter, std::move(p)); }
  void SetFerialpraktikant(Wert p) { SetGruppe(eBasisSWFerialpraktikant, std::move(p)); }
  void SetForstarbeiter(Wert p) { SetGruppe(eBasisSWForstarbeiter, std::move(p)); }
  void SetLehrlingForstArbeiter(Wert p) { SetGruppe(eBasisSWLehrlingForstArbeiter, std::move(p)); }
  ///@}

  /// The value object of a group by its number (1 to 11; std::out_of_range else).
  const Wert& Gruppe(int pGruppe) const { return gruppen_[pGruppe]; }
  /// Replaces the value object of a group (1 to 11); an unset one is refused
  /// (Error), a bad number is std::out_of_range.
  void SetGruppe(int pGruppe, Wert pWert);

 private:
  IndexedArray<Wert, 1, 11> gruppen_{"LBasis_SW group"};
};

}  // namespace ormelix
