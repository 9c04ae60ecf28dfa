#pragma once

#include <cstdint>

#include "ormelix/store/variant.h"

namespace ormelix {

/// The short-time work record of one employee and month, a row of
/// Mitarbeiter_Lohnzettel_Kurzarbeit beside the monthly pay row, and what the pay run
/// makes of it: amounts taken down to the part of the month that short-time work
/// covers, the minimum pay for that part, the bonus on top, and the day counts
/// behind them.
///
/// The calling pay calculation fills the stored properties; the record is saved and
/// loaded with the pay month (LLohn::Kurzarbeit(m)). The computed figures have no
/// column: each is worked out on every call from the stored values and keeps no
/// result. Only DivideExact (to 14 decimals) and MultiplyExact (to 2) round, always
/// dividing first; sums and differences use the doubles as they stand. A division
/// by 0 gives 0, so no figure is ever infinite or NaN.
///
/// The record works on its own values alone: it refers to neither the employee nor
/// the session. Reductions, rates, commission, leave pay and the apprentice and
/// quarantine figures enter no calculation here; they are carried for the caller.
///
/// Table Mitarbeiter_Lohnzettel_Kurzarbeit, one row per pay row (LohnzettelID): read
/// by LLohn::LoadMitarbeiter and Refresh for each month that has a pay row (no row
/// leaves the record as it stands), written by LLohn::Update of the month, which
/// inserts the row when there is none: every saved pay month gets its short-time
/// row, blank or not. A figure that is NaN or infinite is refused before anything
/// is written (ConversionError).
class LLohn_Kurzarbeit {
 public:
  /// \name Stored values (Mitarbeiter_Lohnzettel_Kurzarbeit)
  /// In the order of the table's columns, each the column of its own name:
  /// amounts and hours double as they stand, dates day counts, flags -1/0.
  ///@{

  /// A stored value of the short-time record.
  ///
  /// A stored value: the column of its own name in the row of
  /// Mitarbeiter_Lohnzettel_Kurzarbeit below the month's pay row.
  bool IsKurzarbeit = false;
  /// Only part of the month is short-time work (from Beginndatum to the month's end,
  /// or from its first day to Endedatum).
  bool IsZeitraumAliquot = false;
  Date Beginndatum = 0;
  Date Endedatum = 0;
  double SVBG = 0;
  double BVBG = 0;
  double ReferenzGehalt = 0;
  double Überstundenpauschale = 0;
  double Sachbezug = 0;
  double ReferenzBezügeLstPflSVPfl = 0;
  double ReferenzBezügeLstFreiSvPfl = 0;
  double ReferenzZulagenSVPfl = 0;
  bool Stundenlöhner = false;
  double AktuellesGehalt = 0;
  double AktuellerSatz = 0;

  /// Hours in the month before short-time work. The getter gives 0 unless
  /// IsZeitraumAliquot: a value set for a whole short-time month is saved as 0 and
  /// comes back as 0.
  double StundenVorKurzarbeit() const { return IsZeitraumAliquot ? stunden_vor_kurzarbeit_ : 0; }
  void SetStundenVorKurzarbeit(double value) { stunden_vor_kurzarbeit_ = value; }

  /// Continued pay; above 0 it takes the place of the minimum pay.
  double EFZEntgelt = 0;
  double Wochenstunden = 0;
  double Stundenteiler = 0;
  double Provision = 0;
  bool IsReduktionProzent = false;
  double ReduktionProzentUm = 0;
  bool IsReduktionStunden = false;
  double ReduktionStundenAuf = 0;
  bool IsReduktionGehalt = false;
  double ReduktionGehaltAuf = 0;
  /// A change of short-time phase in the month: no aliquot rule applies, and the two
  /// phases are carried by Gehalt and GehaltWechsel.
  bool IsPhasenWechsel = false;
  bool IsReduktionProzentWechsel = false;
  double ReduktionProzentUmWechsel = 0;
  bool IsReduktionStundenWechsel = false;
  double ReduktionStundenAufWechsel = 0;
  bool IsReduktionGehaltWechsel = false;
  double ReduktionGehaltAufWechsel = 0;
  double Nettoersatzrate = 0;
  /// Gross replacement rate in percent.
  double Bruttoersatzrate = 0;
  double MindestentgeltBrutto = 0;
  double MindestentgeltBruttoMitAufschlag = 0;
  double AufschlagProzent = 0;
  double Gehalt = 0;
  double GehaltWechsel = 0;
  double GehaltOhneKurzarbeit = 0;
  double ProvisionKurzarbeit = 0;
  double ProvisionOhneKurzarbeit = 0;
  double Urlaubsstunden = 0;
  double Zeitausgleich = 0;
  double Urlaubsentgelt = 0;
  double Zeitausgleichsentgelt = 0;
  bool IsLehrling = false;
  double Quarantäne = 0;
  double QuarantäneStunden = 0;
  /// Looked at by no calculation here: KurzarbeitsbonusAliquot takes Kurzarbeitsbonus
  /// as it stands.
  bool IsKurzarbeitsbonus = false;
  double Kurzarbeitsbonus = 0;
  ///@}

  /// \name Computed figures
  /// No column, never saved: each is worked out on every call.
  ///@{

  /// SVBG and BVBG for the short-time days (whole in a month with a change of phase).
  double SVBGAliquot() const;
  double BVBGAliquot() const;
  /// The pay of the reference period: Überstundenpauschale + ReferenzGehalt +
  /// Sachbezug + the three reference amounts, added in this order.
  double Referenzentgelt() const;
  /// The surcharge: MindestentgeltBruttoMitAufschlag - MindestentgeltBrutto.
  double MindestentgeltBruttoAufschlag() const { return MindestentgeltBruttoMitAufschlag - MindestentgeltBrutto; }
  /// The minimum pay (EFZEntgelt where that is above 0) for the short-time days, or
  /// Gehalt + GehaltWechsel where that is higher.
  double MindestentgeltBruttoAliquot() const;
  /// The same with the surcharge (MindestentgeltBruttoMitAufschlag where
  /// AufschlagProzent is above 0 and EFZEntgelt is not).
  double MindestentgeltBruttoMitAufschlagAliquot() const;
  /// What the minimum pay with the bonus, or the salary where that is higher, stands
  /// above MindestentgeltBruttoAliquot. Always holds a double.
  Variant KurzarbeitsbonusAliquot() const;
  /// For one paid by the hour: the hours of both phases, before short-time work, of
  /// leave, time off and quarantine; 0 for anyone else.
  double GesamtStunden() const;
  ///@}

  // ---- Functions.

  /// pValue at the gross replacement rate: pValue / 100 (14 decimals) x Bruttoersatzrate.
  double ErmittleBruttoersatzrateFürBetrag(double pValue) const;
  /// \name The aliquot parts of an amount
  ///@{

  /// The part of pValue that falls into the short-time days, and the part outside
  /// them. With pMaxTage or pAliTage other than 0 both give pValue / pMaxTage x
  /// pAliTage; otherwise the days come from Beginndatum (a start after the 1st runs
  /// to the month's end; a start on the 1st runs to the day of Endedatum). A month
  /// with a change of phase, or one wholly in short-time work, gives pValue and 0.
  double ErmittleAliquotBetragInKurzarbeit(double pValue, std::int16_t pMaxTage, std::int16_t pAliTage) const;
  double ErmittleAliquotBetragOhneKurzarbeit(double pValue, std::int16_t pMaxTage, std::int16_t pAliTage) const;
  ///@}
  /// Calendar days of the month in which short-time work begins (28 to 31).
  double ErmittleMaxTage() const;
  /// Social-insurance days in short-time work: Endedatum - Beginndatum + 1 for part
  /// of a month, else 30.
  double ErmittleMaxTageSVKurzareit() const;
  /// Social-insurance days outside it: 0 for a whole month; the days before a start
  /// after the 1st; else 30 less the day of Endedatum (-1 for an end on the 31st).
  double ErmittleMaxTageSVOhneKurzareit() const;
  /// The social-insurance month: always 30.
  double ErmittleMaxTageSV() const { return 30; }

 private:
  /// B of the minimum-pay figures: the amount for the short-time days.
  double AliquotBase(double amount) const;
  double stunden_vor_kurzarbeit_ = 0;
};

}  // namespace ormelix
