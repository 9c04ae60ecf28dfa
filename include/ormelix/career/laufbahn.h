#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/variant.h"

namespace ormelix {

/// The kinds of career step, the values of the column Schritt. 91 and 92 exist only
/// in memory, around a change of contribution account.
enum eLaufbahnschritte : std::int16_t {
  eLBNone = 0,          ///< no step (a blank step)
  eLBEintritt = 1,      ///< entry
  eLBDVRuht = 2,        ///< the employment is suspended
  eLBAustritt = 3,      ///< exit
  eLBBKZEintritt = 91,  ///< in memory: entry under a new contribution account
  eLBBKZAustritt = 92   ///< in memory: exit under the old contribution account
};

/// One step of an employee's career (entry, suspension, exit, or a
/// step made in memory around a change of contribution account), with the row of
/// Mitarbeiter_Laufbahn behind it and the figures the payroll program keeps on it.
///
/// A plain holder of values. Its only logic: Zeitraum, WochengeldDatumEnde, and the
/// two Bef_EL_Kalendertage getters, which give ELKalendertage whatever their setters
/// were told (the payroll program relies on that; it is not to be straightened out).
///
/// The host writes the rows of Mitarbeiter_Laufbahn; LLohn_Laufbahnen::Load reads
/// them (every column below of the property's name, amounts as they stand, dates
/// as day counts), and LLohn_Laufbahnen::UpdateBef writes back the Bef_ figures
/// only. One crossing of the load is kept: the column Bef_Tage2 is read into the
/// property Bef_Tage, so the property Bef_Tage2 stays 0 after a load.
class LLohn_Laufbahn {
 public:
  /// Position in the loaded career, from 1 in date order; 0 for a step made in memory.
  std::int16_t Index = 0;
  std::string ID;  ///< the key of the row ("" for a step made in memory)
  eLaufbahnschritte Schritt = eLBNone;  ///< the kind of step (column Schritt)
  Date Datum = 0;  ///< the day of the step (column Datum); 0 on a blank step
  /// \name The employment
  ///@{

  /// Fixed-term (until BefristetBis, a day count), casual employment, and the gross salary.
  ///
  /// Fixed-term (until BefristetBis, a day count), casual employment, and the gross
  /// salary: columns of their own name.
  bool BefristetBeschäftigt = false;
  Date BefristetBis = 0;
  bool FallweiseBeschäftigt = false;
  double Bruttogehalt = 0;
  ///@}
  /// \name The exit reason
  ///@{

  /// The exit reason from the catalogue.
  ///
  /// The exit reason from the catalogue: Code + 1 (0 for none), the Code (Null for
  /// none; Empty on a step that was never loaded), its short form and text. The
  /// column Grund holds the Code; the rest comes from DM_Austrittsgründe of the
  /// reference store (nothing without one).
  std::int16_t GrundIndex = 0;
  Variant GrundNr;
  std::string GrundKürzel;
  std::string GrundText;
  ///@}
  std::string Anmerkung;  ///< a remark (column Anmerkung)
  /// \name Severance, maternity pay, parental leave
  ///@{

  /// Severance, maternity-pay basis and parental leave of the step.
  ///
  /// The new severance scheme (flag, day and percentage), the basis of maternity
  /// pay and a voluntary extension of parental leave: columns of their own name.
  bool AbfertigungNeu = false;
  Date AbfertigungNeuDatum = 0;
  double AbfertigungNeuProzent = 0;
  double WochengeldBemessungsgrundlage = 0;
  bool FreiwilligeVerlängerungKarenz = false;
  ///@}

  /// The last day on which the time before this step ran: for an exit its own day,
  /// for other steps the day before. A blank step (no Datum) gives 31 December of
  /// the year after the date its setter was given (1900 when it never was).
  Date WochengeldDatumEnde() const;
  /// The date a blank step's WochengeldDatumEnde counts from (the list's end marker
  /// gets the Datum of the last step).
  void SetWochengeldDatumEnde(Date value) { wochengeld_datum_ende_ = value; }

  /// \name Pay figures of the wage slip (read only)
  ///@{

  /// A figure for the annual wage slip, read only.
  ///
  /// Figures for the annual wage slip (gross pay, pay by § 67 (1, 2), (3 to 8),
  /// other pay, contributions of code 220): columns of their own name (sic:
  /// Sosntige_...), read by the load and never written by the library.
  double Bruttobezüge_25 = 0;
  double Bezüge_67_1_und_2 = 0;
  double SVBeiträge_Kennzahl_220 = 0;
  double Bezüge_67_3_bis_8 = 0;
  double Sosntige_Bezüge_nach_67_2_6_10 = 0;
  ///@}
  /// \name The Bef_ figures (read, and written back by UpdateBef)
  ///@{

  /// The bases and amounts the payroll program keeps on the step (with a second figure each, ...2).
  ///
  /// The bases and amounts the payroll program keeps on the step (with a second
  /// figure each, ...2): columns of their own name, read by the load and written
  /// back by LLohn_Laufbahnen::UpdateBef. Bef_Tage is read from the column Bef_Tage2
  /// and written to both Bef_Tage columns; Bef_Tage2 stays 0 after a load.
  double Bef_SV_Laufend_Basis = 0;
  double Bef_SV_Laufend_Basis2 = 0;
  double Bef_BV_Laufend = 0;
  double Bef_BV_Laufend2 = 0;
  double Bef_BV_Laufend_Basis = 0;
  double Bef_BV_Laufend_Basis2 = 0;
  double Bef_Bruttoentgelt = 0;
  double Bef_Bruttoentgelt2 = 0;
  /// A load fills Bef_Tage from the column Bef_Tage2 and leaves Bef_Tage2 at 0.
  std::int16_t Bef_Tage = 0;
  std::int16_t Bef_Tage2 = 0;
  double Bef_AllgemeineBasis = 0;
  double Bef_AllgemeineBasis2 = 0;
  ///@}
  double Sonderzahlung = 0;  ///< special payment (column Sonderzahlung, read only)
  double Bef_SV_Sonder_Basis = 0;  ///< a Bef_ figure (see above)
  /// \name Replacement benefit of the step (read only)
  ///@{

  /// The replacement benefit (current and special payment) and its calendar days.
  ///
  /// The replacement benefit (current and special payment) and its calendar days:
  /// columns of their own name; ELKalendertage is rounded half to even.
  double Ersatzleistung = 0;
  double ErsatzleistungSZ = 0;
  std::int16_t ELKalendertage = 0;
  ///@}
  double Bef_SV_Sonder_Basis2 = 0;  ///< a Bef_ figure (see above)

  /// \name Bef_EL_Kalendertage (the kept asymmetry)
  ///@{

  /// Both getters give ELKalendertage.
  ///
  /// Both getters give ELKalendertage; the setters fill fields of their own that
  /// nothing reads (a load puts the columns Bef_EL_Kalendertage and
  /// Bef_EL_Kalendertage2 there). UpdateBef writes both columns from the getters.
  std::int16_t Bef_EL_Kalendertage() const { return ELKalendertage; }
  void SetBef_EL_Kalendertage(std::int16_t value) { bef_el_kalendertage_ = value; }
  std::int16_t Bef_EL_Kalendertage2() const { return ELKalendertage; }
  void SetBef_EL_Kalendertage2(std::int16_t value) { bef_el_kalendertage2_ = value; }
  ///@}

  /// \name More Bef_ figures (read, and written back by UpdateBef)
  ///@{

  /// A Bef_ figure of replacement benefits or special payments.
  ///
  /// The bases of the replacement benefit and of special payments that the payroll
  /// program keeps on the step: columns of their own name.
  double Bef_EL_Laufend_Basis = 0;
  double Bef_EL_Laufend_Basis2 = 0;
  double Bef_EL_Sonder_Basis = 0;
  double Bef_EL_Sonder_Basis2 = 0;
  double Bef_SonderBasis = 0;
  double Bef_SonderBasis2 = 0;
  ///@}
  /// \name Temporary staff, tips, allowances (read only)
  ///@{

  /// Temporary staff, tips and allowances of the step, read only.
  ///
  /// Temporary staff (with the flat 2 percent wage tax, and the KU and LK marks,
  /// read as numbers: True when not 0), the flat amount of tips, the plus-minus
  /// item and the daily allowances of § 26 Z 4: columns of their own name.
  bool Aushilfskraft = false;
  bool Pauschallohnsteuer2Prozent = false;
  double Trinkgeldpauschale = 0;
  double PlusMinusPosten = 0;
  double DiätenNach26Z4 = 0;
  bool AushilfskraftKU = false;
  bool AushilfskraftLK = false;
  ///@}

  /// The step's period, yyyymm of Datum; 189912 for a blank step.
  std::int32_t Zeitraum() const;

 private:
  Date wochengeld_datum_ende_ = 0;
  std::int16_t bef_el_kalendertage_ = 0;
  std::int16_t bef_el_kalendertage2_ = 0;
};

}  // namespace ormelix
