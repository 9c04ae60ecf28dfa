#pragma once

#include <cstdint>
#include <memory>

#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/indexed_array.h"

namespace ormelix {

/// The contribution rate of one insurance group: a row of
/// Basiswerte_Zeittabelle_SA_Werte (VGruppe, eBasisSAVersicherungsgruppe), each
/// value rounded to 2 decimals on load and stored as it stands.
class LBasis_SA_Wert {
 public:
  double Prozent = 0;  ///< the employee's share in percent (column Prozent_DN)
  double Prozent_DG = 0;  ///< the employer's share in percent (column Prozent_DG)
  double Obergrenze = 0;  ///< the upper limit of the basis (column Obergrenze)
  double Sonderzahlung = 0;  ///< the limit for special payments (column Sonderzahlung)

  /// Employee's and employer's share together.
  double ProzentGesamt() const { return Prozent + Prozent_DG; }
};

/// The contribution rates of a dated table, one value object per
/// insurance group, and three flat values.
///
/// GrenzbetragGeringBeschaeftigte has no row in the tables of the rates: its Prozent
/// and Obergrenze are loaded and saved with the marginal-employment row (LBasis_DG_GF);
/// its other two values are stored nowhere. LohnStufe is stored nowhere either and
/// is 0 in every loaded table.
///
/// Tables: Basiswerte_Zeittabelle_SA (the three flat values, read unrounded) and
/// Basiswerte_Zeittabelle_SA_Werte (a row per insurance group). Read with the
/// dated table and written by LBasis::Update.
class LBasis_SA {
 public:
  /// An insurance group's rates, shared.
  using Wert = std::shared_ptr<LBasis_SA_Wert>;

  /// Creates the 17 value objects.
  LBasis_SA();

  std::int16_t LohnStufe = 0;  ///< stored nowhere: 0 in every loaded table

  /// \name The insurance groups
  ///@{

  /// The rates of an insurance group.
  ///
  /// The rates of the insurance group of that name (eBasisSAVersicherungsgruppe),
  /// the same object each time. GrenzbetragGeringBeschaeftigte is the limit of
  /// marginal employment: its Prozent and Obergrenze lie in the row of
  /// Basiswerte_Zeittabelle_DG_Geringfügig (columns Prozent and Grenzbetrag).
  const Wert& Arbeitslosenversicherung() const { return Gruppe(eBasisSAArbeitslosenversicherung); }
  const Wert& ArbeitslosenversicherungLehrlinge2016() const {
    return Gruppe(eBasisSAArbeitslosenversicherungLehrlinge2016);
  }
  const Wert& Unfallversicherung() const { return Gruppe(eBasisSAUnfallversicherung); }
  const Wert& Krankenversicherung() const { return Gruppe(eBasisSAKrankenversicherung); }
  const Wert& KrankenversicherungArbeiter() const { return Gruppe(eBasisSAKrankenversicherungArbeiter); }
  const Wert& KrankenversicherungAngestellte() const { return Gruppe(eBasisSAKrankenversicherungAngestellte); }
  const Wert& KrankenversicherungFreierMitarbeiter() const {
    return Gruppe(eBasisSAKrankenversicherungFreierMitarbeiter);
  }
  const Wert& KrankenversicherungLehrlinge2016() const { return Gruppe(eBasisSAKrankenversicherungLehrlinge2016); }
  const Wert& KrankenversicherungLehrlingeBis2016() const {
    return Gruppe(eBasisSAKrankenversicherungLehrlingeBis2016);
  }
  const Wert& Pensionsversicherung() const { return Gruppe(eBasisSAPensionsversicherung); }
  const Wert& Kammerumlage() const { return Gruppe(eBasisSAKammerumlage); }
  const Wert& LandArbeiterKammerumlage() const { return Gruppe(eBasisSALandArbeiterKammerumlage); }
  const Wert& Wohnbaufoederung() const { return Gruppe(eBasisSAWohnbaufoederung); }
  const Wert& Schlechtwetter() const { return Gruppe(eBasisSASchlechtwetter); }
  const Wert& IESGZuschlag() const { return Gruppe(eBasisSAIESGZuschlag); }
  const Wert& Nachtschwerarbeit() const { return Gruppe(eBasisSANachtschwerarbeit); }
  const Wert& GrenzbetragGeringBeschaeftigte() const { return gering_; }
  ///@}

  /// \name Replacing a group's object
  ///@{

  /// Replacing a value object; an unset one is refused (Error).
  void SetArbeitslosenversicherung(Wert p) { SetGruppe(eBasisSAArbeitslosenversicherung, std::move(p)); }
  void SetArbeitslosenversicherungLehrlinge2016(Wert p) {
    SetGruppe(eBasisSAArbeitslosenversicherungLehrlinge2016, std::move(p));
  }
  void SetUnfallversicherung(Wert p) { SetGruppe(eBasisSAUnfallversicherung, std::move(p)); }
  void SetKrankenversicherung(Wert p) { SetGruppe(eBasisSAKrankenversicherung, std::move(p)); }
  void SetKrankenversicherungArbeiter(Wert p) { SetGruppe(eBasisSAKrankenversicherungArbeiter, std::move(p)); }
  void SetKrankenversicherungAngestellte(Wert p) { SetGruppe(eBasisSAKrankenversicherungAngestellte, std::move(p)); }
  void SetKrankenversicherungFreierMitarbeiter(Wert p) {
    SetGruppe(eBasisSAKrankenversicherungFreierMitarbeiter, std::move(p));
  }
  void SetKrankenversicherungLehrlinge2016(Wert p) {
    SetGruppe(eBasisSAKrankenversicherungLehrlinge2016, std::move(p));
  }
  void SetKrankenversicherungLehrlingeBis2016(Wert p) {
    SetGruppe(eBasisSAKrankenversicherungLehrlingeBis2016, std::move(p));
  }
  void SetPensionsversicherung(Wert p) { SetGruppe(eBasisSAPensionsversicherung, std::move(p)); }
  void SetKammerumlage(Wert p) { SetGruppe(eBasisSAKammerumlage, std::move(p)); }
  void SetLandArbeiterKammerumlage(Wert p) { SetGruppe(eBasisSALandArbeiterKammerumlage, std::move(p)); }
  void SetWohnbaufoederung(Wert p) { SetGruppe(eBasisSAWohnbaufoederung, std::move(p)); }
  void SetSchlechtwetter(Wert p) { SetGruppe(eBasisSASchlechtwetter, std::move(p)); }
  void SetIESGZuschlag(Wert p) { SetGruppe(eBasisSAIESGZuschlag, std::move(p)); }
  void SetNachtschwerarbeit(Wert p) { SetGruppe(eBasisSANachtschwerarbeit, std::move(p)); }
  void SetGrenzbetragGeringBeschaeftigte(Wert p);
  ///@}

  /// \name Flat values (Basiswerte_Zeittabelle_SA)
  ///@{

  /// A flat value of the contribution rates.
  ///
  /// The service charge, the levy at the end of an employment and the contribution
  /// rate of temporary agency work: columns of their own name, read unrounded.
  double ServiceEntgelt = 0;
  double Auflösungsabgabe = 0;
  double BeitragssatzAÜG = 0;
  ///@}

  /// The value object of an insurance group by its number (1 to 16; std::out_of_range else).
  const Wert& Gruppe(int pVGruppe) const { return gruppen_[pVGruppe]; }
  /// Replaces the value object of an insurance group (1 to 16); an unset one is
  /// refused (Error), a bad number is std::out_of_range.
  void SetGruppe(int pVGruppe, Wert pWert);

 private:
  IndexedArray<Wert, 1, 16> gruppen_{"LBasis_SA group"};
  Wert gering_;
};

}  // namespace ormelix
