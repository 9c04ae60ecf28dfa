#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/variant.h"

namespace ormelix {

/// The kinds of career step, the values of the column Schritt. 91 and 92 exist only
/// in memory, around a change of contribution account.
enum eLaufbahnschritte : std::int16_t {
  eLBNone = 0,
  eLBEintritt = 1,
  eLBDVRuht = 2,
  eLBAustritt = 3,
  eLBBKZEintritt = 91,
  eLBBKZAustritt = 92
};

/// One step of an employee's career (entry, suspension, exit, or a
/// step made in memory around a change of contribution account), with the row of
/// Mitarbeiter_Laufbahn behind it and the figures the payroll program keeps on it.
///
/// A plain holder of values. Its only logic: Zeitraum, WochengeldDatumEnde, and the
/// two Bef_EL_Kalendertage getters, which give ELKalendertage whatever their setters
/// were told (the payroll program relies on that; it is not to be straightened out).
class LLohn_Laufbahn {
 public:
  /// Position in the loaded career, from 1 in date order; 0 for a step made in memory.
  std::int16_t Index = 0;
  std::string ID;
  eLaufbahnschritte Schritt = eLBNone;
  Date Datum = 0;
  bool BefristetBeschäftigt = false;
  Date BefristetBis = 0;
  bool FallweiseBeschäftigt = false;
  double Bruttogehalt = 0;
  /// The exit reason from the catalogue: Code + 1 (0 for none), the Code (Null for
  /// none; Empty on a step that was never loaded), its short form and text.
  std::int16_t GrundIndex = 0;
  Variant GrundNr;
  std::string GrundKürzel;
  std::string GrundText;
  std::string Anmerkung;
  bool AbfertigungNeu = false;
  Date AbfertigungNeuDatum = 0;
  double AbfertigungNeuProzent = 0;
  double WochengeldBemessungsgrundlage = 0;
  bool FreiwilligeVerlängerungKarenz = false;

  /// The last day on which the time before this step ran: for an exit its own day,
  /// for other steps the day before. A blank step (no Datum) gives 31 December of
  /// the year after the date its setter was given (1900 when it never was).
  Date WochengeldDatumEnde() const;
  void SetWochengeldDatumEnde(Date value) { wochengeld_datum_ende_ = value; }

  double Bruttobezüge_25 = 0;
  double Bezüge_67_1_und_2 = 0;
  double SVBeiträge_Kennzahl_220 = 0;
  double Bezüge_67_3_bis_8 = 0;
  double Sosntige_Bezüge_nach_67_2_6_10 = 0;
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
  double Sonderzahlung = 0;
  double Bef_SV_Sonder_Basis = 0;
  double Ersatzleistung = 0;
  double ErsatzleistungSZ = 0;
  std::int16_t ELKalendertage = 0;
  double Bef_SV_Sonder_Basis2 = 0;

  /// Both getters give ELKalendertage; the setters fill fields of their own that
  /// nothing reads.
  std::int16_t Bef_EL_Kalendertage() const { return ELKalendertage; }
  void SetBef_EL_Kalendertage(std::int16_t value) { bef_el_kalendertage_ = value; }
  std::int16_t Bef_EL_Kalendertage2() const { return ELKalendertage; }
  void SetBef_EL_Kalendertage2(std::int16_t value) { bef_el_kalendertage2_ = value; }

  double Bef_EL_Laufend_Basis = 0;
  double Bef_EL_Laufend_Basis2 = 0;
  double Bef_EL_Sonder_Basis = 0;
  double Bef_EL_Sonder_Basis2 = 0;
  double Bef_SonderBasis = 0;
  double Bef_SonderBasis2 = 0;
  bool Aushilfskraft = false;
  bool Pauschallohnsteuer2Prozent = false;
  double Trinkgeldpauschale = 0;
  double PlusMinusPosten = 0;
  double DiätenNach26Z4 = 0;
  bool AushilfskraftKU = false;
  bool AushilfskraftLK = false;

  /// The step's period, yyyymm of Datum; 189912 for a blank step.
  std::int32_t Zeitraum() const;

 private:
  Date wochengeld_datum_ende_ = 0;
  std::int16_t bef_el_kalendertage_ = 0;
  std::int16_t bef_el_kalendertage2_ = 0;
};

}  // namespace ormelix
