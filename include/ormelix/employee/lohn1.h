#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/indexed_array.h"

namespace ormelix {

class LLohn1;

/// The one-sixth figures of one month, in single precision (LLohn1::Sechstel); no
/// table holds them.
class LLohn1_Werte {
 public:
  /// \name The one-sixth figures
  ///@{

  /// A one-sixth figure of the month, single precision.
  ///
  /// The year total, the limit, the special payment and what goes beyond the
  /// limit, each also for the replacement benefits (EL), the one-off bonus (EP) and
  /// the jubilee money (JG) where named so. Single precision, kept as set.
  float JahresSumme = 0;
  float JahresSummeEL = 0;
  float grenze = 0;
  float grenzeEL = 0;
  float Sonderzahlung = 0;
  float Ueberschreitung = 0;
  float ueberhang = 0;
  float ueberhang_EP = 0;
  float ueberhang_JG = 0;
  ///@}

  /// The record that made this object; null for one the caller made.
  const LLohn1* Owner() const { return owner_; }

 private:
  friend class LLohn1;
  const LLohn1* owner_ = nullptr;
};

/// One stretch of days (day counts) of a month with a transfer
/// (LLohn1_Uebertritt::Datum1, Datum2); no table holds it.
class LLohn1_UebertrittDatum {
 public:
  double Begin = 0;  ///< the first day of the stretch, a day count
  double Ende = 0;   ///< the last day of the stretch, a day count

  /// The record whose transfer made this object; null for one the caller made or
  /// one whose record is gone.
  const LLohn1* Owner() const { return owner_; }

 private:
  friend class LLohn1_Uebertritt;
  const LLohn1* owner_ = nullptr;
};

/// A change of contribution group within one month, as the calculation sees it
/// (LLohn1::Uebertritt); no table holds it (the stored transfer is LLohn_Übertritt).
class LLohn1_Uebertritt {
 public:
  /// Creates Datum1 and Datum2.
  LLohn1_Uebertritt();
  /// Not copyable: the Datum objects belong to this one.
  LLohn1_Uebertritt(const LLohn1_Uebertritt&) = delete;
  /// Not assignable.
  LLohn1_Uebertritt& operator=(const LLohn1_Uebertritt&) = delete;

  bool IsUebertritt = false;  ///< the month has a transfer
  /// \name The two stretches of the month
  ///@{

  /// Get and replace the stretch before (Datum1) and after (Datum2) the transfer.
  ///
  /// Get and replace the stretch before (Datum1) and after (Datum2) the transfer;
  /// a replacement is the caller's own and gets no owner.
  const std::shared_ptr<LLohn1_UebertrittDatum>& Datum1() const { return datum1_; }
  void SetDatum1(std::shared_ptr<LLohn1_UebertrittDatum> p) { datum1_ = std::move(p); }
  const std::shared_ptr<LLohn1_UebertrittDatum>& Datum2() const { return datum2_; }
  void SetDatum2(std::shared_ptr<LLohn1_UebertrittDatum> p) { datum2_ = std::move(p); }
  ///@}
  /// \name Contribution groups before (1) and after (2)
  ///@{

  /// A contribution group before or after the transfer.
  ///
  /// The contribution-group codes (BERGR1, BERGR2) and their BERZUG numbers
  /// before (1) and after (2) the transfer, kept as set.
  std::string BERGR1;
  std::string BERGR2;
  std::int16_t BERZUG1 = 0;
  std::int16_t BERZUG2 = 0;
  ///@}

  /// The record that made this object; null for one the caller made or one whose
  /// record is gone.
  const LLohn1* Owner() const { return owner_; }

 private:
  friend class LLohn1;
  /// Takes the owner (or lets go of it, for null) and hands it on to the Datum
  /// objects that this one made.
  void SetOwner(const LLohn1* owner);

  std::shared_ptr<LLohn1_UebertrittDatum> datum1_;
  std::shared_ptr<LLohn1_UebertrittDatum> datum2_;
  const LLohn1* owner_ = nullptr;
};

/// The working record of a pay calculation. The host creates one, stores in
/// it what it works out for an employee, and keeps it as long as it needs it; what
/// it wants to keep it copies into the month properties of LLohn. Nothing of these
/// classes is stored: no table, load or save touches them, and no other class of
/// the library holds or returns one. Every property only keeps its value.
///
/// Month-indexed properties take 0 to 12 (entry 0 has no meaning of its own); the
/// N70 figures have a first index of 0 to 2, AIV_ERS and AIV_ERSBasis 0 to 5. An
/// index outside its range is std::out_of_range naming the property and the index.
///
/// Each child made by LLohn1 (a Sechstel and an Uebertritt per index, and the two
/// Datum objects of each Uebertritt) knows its LLohn1 through a non-owning pointer:
/// the record owns its children, never the other way round, so dropping the last
/// reference to a record frees it with all its children. A child that the caller
/// keeps beyond its record reports no owner any more.
/// \brief The working record of a pay calculation, kept by the host; no table holds it.
///
/// The working record of a pay calculation. The host creates one, stores in
/// it what it works out for an employee, and keeps it as long as it needs it; what
/// it wants to keep it copies into the month properties of LLohn. Nothing of these
/// classes is stored: no table, load or save touches them, and no other class of
/// the library holds or returns one. Every property only keeps its value.
///
/// Month-indexed properties take 0 to 12 (entry 0 has no meaning of its own); the
/// N70 figures have a first index of 0 to 2, AIV_ERS and AIV_ERSBasis 0 to 5. An
/// index outside its range is std::out_of_range naming the property and the index.
///
/// Each child made by LLohn1 (a Sechstel and an Uebertritt per index, and the two
/// Datum objects of each Uebertritt) knows its LLohn1 through a non-owning pointer:
/// the record owns its children, never the other way round, so dropping the last
/// reference to a record frees it with all its children. A child that the caller
/// keeps beyond its record reports no owner any more.
class LLohn1 {
 public:
  /// Creates a Sechstel and an Uebertritt for each index 0 to 12.
  LLohn1();
  /// Lets go of the owner reference of each child that is still its own, so that a
  /// child kept by the caller does not point to a record that is gone.
  ~LLohn1();
  /// Not copyable: the children belong to this record.
  LLohn1(const LLohn1&) = delete;
  /// Not assignable.
  LLohn1& operator=(const LLohn1&) = delete;

  /// \name The employee and the dates of the calculation
  ///@{

  /// The employee and the dates of the calculation.
  ///
  /// The employee's key, and the entry, suspension and exit dates that the calculation
  /// works with (day counts) with the months they fall in (...Idx, 1 to 12).
  std::string ID;
  double Ein_Datum = 0;
  double Abm_Datum = 0;
  double Aus_Datum = 0;
  std::int16_t Ein_DatumIdx = 0;
  std::int16_t Abm_DatumIdx = 0;
  std::int16_t Aus_DatumIdx = 0;
  ///@}

  /// \name Gross pay and overtime of a month
  ///@{

  /// Month arrays 0 to 12 in double precision.
  ///
  /// Month arrays 0 to 12 in double precision: the gross pay (Brutto, and Brutto_ali for
  /// part of a month), the overtime amounts, and the special payments drawn ahead
  /// (..._vorbezug), kept as set.
  MonthArray<double> Brutto_ali{"Brutto_ali"};
  MonthArray<double> Ueberst__50_Betrag{"Ueberst__50_Betrag"};
  MonthArray<double> UeBasis{"UeBasis"};
  MonthArray<double> Ueberst_100_Betrag{"Ueberst_100_Betrag"};
  MonthArray<double> Ueberst__xx_Betrag{"Ueberst__xx_Betrag"};
  MonthArray<double> sz_vorbezug{"sz_vorbezug"};
  MonthArray<double> sz_Vorbezug_OU{"sz_Vorbezug_OU"};
  MonthArray<double> LST_sz_Vorbezug{"LST_sz_Vorbezug"};
  MonthArray<double> sz_Vorbezug_UA_UE{"sz_Vorbezug_UA_UE"};
  MonthArray<double> ep_Vorbezug{"ep_Vorbezug"};
  MonthArray<double> jg_Vorbezug{"jg_Vorbezug"};
  MonthArray<double> Brutto{"Brutto"};
  ///@}

  /// \name Social insurance on current pay
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the employee's social-insurance contribution on current pay and
  /// its bases, in the variants the calculation keeps apart (EP one-off bonus, 2 second
  /// part, DiffSachbezug the difference from benefits in kind, Gesamt the total), kept as
  /// set.
  MonthArray<double> SV_Laufend_EP{"SV_Laufend_EP"};
  MonthArray<double> SV_Laufend{"SV_Laufend"};
  MonthArray<double> SV_Laufend_DiffSachbezug{"SV_Laufend_DiffSachbezug"};
  MonthArray<double> SV_Laufend2{"SV_Laufend2"};
  MonthArray<double> SV_Laufend_Basis{"SV_Laufend_Basis"};
  MonthArray<double> SV_Laufend_Basis2{"SV_Laufend_Basis2"};
  MonthArray<double> SV_Laufend_BasisGesamt{"SV_Laufend_BasisGesamt"};
  MonthArray<double> SV_Laufend_Basis_ohne_Kontrolle{"SV_Laufend_Basis_ohne_Kontrolle"};
  ///@}

  /// \name Social insurance on special payments
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the employee's social-insurance contribution on special payments
  /// and its bases, with the parts the calculation keeps apart (LKKaernten, UBBauarbeiter,
  /// Org the figure before a correction), kept as set.
  MonthArray<double> SV_SonderLKKaernten{"SV_SonderLKKaernten"};
  MonthArray<double> SV_SonderUBBauarbeiter{"SV_SonderUBBauarbeiter"};
  MonthArray<double> SV_Sonder{"SV_Sonder"};
  MonthArray<double> SV_SonderOrg{"SV_SonderOrg"};
  MonthArray<double> SV_Sonder_Basis{"SV_Sonder_Basis"};
  MonthArray<double> SV_Sonder_Basis1{"SV_Sonder_Basis1"};
  MonthArray<double> SV_Sonder_BasisGesamt{"SV_Sonder_BasisGesamt"};
  ///@}

  /// \name Social insurance on leave compensation
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: contributions and bases on compensation for leave not taken
  /// (UA_UE), current and special, kept as set.
  MonthArray<double> SV_Laufend_UA_UE{"SV_Laufend_UA_UE"};
  MonthArray<double> SV_Laufend_Basis_UA_UE{"SV_Laufend_Basis_UA_UE"};
  MonthArray<double> SV_Laufend_Basis_UA_UEGesamt{"SV_Laufend_Basis_UA_UEGesamt"};
  MonthArray<double> SV_Sonder_UA_UE{"SV_Sonder_UA_UE"};
  MonthArray<double> SV_Sonder_Basis_UA_UE{"SV_Sonder_Basis_UA_UE"};
  MonthArray<double> SV_Sonder_Basis_UA_UEGesamt{"SV_Sonder_Basis_UA_UEGesamt"};
  ///@}

  /// \name Provision-fund contribution
  ///@{

  /// Provision-fund contribution and basis.
  ///
  /// The provision-fund contribution and its basis per month (0 to 12), and the reduced
  /// ones (Minder) of the whole record, kept as set.
  MonthArray<double> AbfertigungNeu{"AbfertigungNeu"};
  MonthArray<double> AbfertigungNeu_Basis{"AbfertigungNeu_Basis"};
  double AbfertigungNeuMinder = 0;
  double AbfertigungNeuMinder_Basis = 0;
  ///@}

  /// \name Wage tax
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the wage tax on current pay and on special payments with their
  /// bases, for temporary staff (Aushilfskraft), before the allowance deduction
  /// (ohne_FBAbzug) and for leave compensation (UA_UE), kept as set.
  MonthArray<double> LST_Laufend{"LST_Laufend"};
  MonthArray<double> LST_Laufend_Basis{"LST_Laufend_Basis"};
  MonthArray<double> LST_Laufend_BasisGesamt{"LST_Laufend_BasisGesamt"};
  MonthArray<double> LST_Laufend_BasisAushilfskraft{"LST_Laufend_BasisAushilfskraft"};
  MonthArray<double> LST_sonder{"LST_sonder"};
  MonthArray<double> LST_sonder_Basis{"LST_sonder_Basis"};
  MonthArray<double> LST_sonder_Basis_ohne_FBAbzug{"LST_sonder_Basis_ohne_FBAbzug"};
  MonthArray<double> LST_sonder_UBBauArb{"LST_sonder_UBBauArb"};
  MonthArray<double> LST_Sonder_BasisAushilfskraft{"LST_Sonder_BasisAushilfskraft"};
  MonthArray<double> LST_UA_UE{"LST_UA_UE"};
  MonthArray<double> LST_Basis_UA_UE{"LST_Basis_UA_UE"};
  ///@}

  /// \name Deductions and net pay
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the bases of the union and works-council dues, all deductions
  /// together, and the net pay, kept as set.
  MonthArray<double> Gewerkschaft_Basis{"Gewerkschaft_Basis"};
  MonthArray<double> Betriebsrat_Basis{"Betriebsrat_Basis"};
  MonthArray<double> Abzuege_gesamt{"Abzuege_gesamt"};
  MonthArray<double> Netto{"Netto"};
  ///@}

  /// \name One-sixth figures
  ///@{

  /// The one-sixth figures of a month (0 to 12): get and replace. A replacement is
  /// the caller's own object and gets no owner from the setter; null is allowed.
  const std::shared_ptr<LLohn1_Werte>& Sechstel(int pIndex) const { return sechstel_(pIndex); }
  void SetSechstel(int pIndex, std::shared_ptr<LLohn1_Werte> p) { sechstel_(pIndex) = std::move(p); }
  ///@}
  /// \name Solidarity scale of the one-sixth
  ///@{

  /// The solidarity scale of the one-sixth.
  ///
  /// The step, value and basis of the solidarity scale, and the wage tax on special
  /// payments at 50 percent, of the whole record; kept as set.
  std::int16_t SechstelSolidarStaffelIndex = 0;
  double SechstelSolidarStaffelWert = 0;
  double SechstelSolidarStaffelBasis = 0;
  double SechstelLST_sonder50Prozent = 0;
  ///@}

  /// \name Employer's social insurance
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the employer's social-insurance contributions, current and
  /// special, and on leave compensation (UA_UE), kept as set.
  MonthArray<double> SV_Laufend_DG{"SV_Laufend_DG"};
  MonthArray<double> SV_Laufend2_DG{"SV_Laufend2_DG"};
  MonthArray<double> SV_Sonder_DG{"SV_Sonder_DG"};
  MonthArray<double> SV_Laufend_DG_UA_UE{"SV_Laufend_DG_UA_UE"};
  MonthArray<double> SV_Sonder_DG_UA_UE{"SV_Sonder_DG_UA_UE"};
  ///@}

  /// \name The N70 figures
  ///@{

  /// An N70 figure by kind and month.
  ///
  /// The N70 contributions by kind (first index 0 to 2) and month (0 to 12), employee's and
  /// employer's, current and special, and their sums per kind (sumN70, 0 to 2), kept as
  /// set.
  MonthGrid<double, 0, 2> SV_N70_Laufend{"SV_N70_Laufend"};
  MonthGrid<double, 0, 2> SV_N70_Sonder{"SV_N70_Sonder"};
  MonthGrid<double, 0, 2> SV_N70_Laufend_DG{"SV_N70_Laufend_DG"};
  MonthGrid<double, 0, 2> SV_N70_Sonder_DG{"SV_N70_Sonder_DG"};
  IndexedArray<double, 0, 2> sumN70{"sumN70"};
  ///@}

  /// \name Employer levies
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the employer's contribution to the family-burden fund
  /// (Falast_DB) and its second figure (Falast_DBK), the underground levy of Vienna
  /// (UBahn_Abgabe) and the service charge (ServiceEntgelt), kept as set.
  MonthArray<double> Falast_DB{"Falast_DB"};
  MonthArray<double> Falast_DBK{"Falast_DBK"};
  MonthArray<double> UBahn_Abgabe{"UBahn_Abgabe"};
  MonthArray<double> ServiceEntgelt{"ServiceEntgelt"};
  ///@}

  /// \name Unemployment insurance
  ///@{

  /// The unemployment-insurance figures of the record.
  ///
  /// The unemployment-insurance figures of the record: the step (..._Index), its basis and
  /// amount, current, special and of replacement benefits; AIV_ERS and AIV_ERSBasis are
  /// indexed 0 to 5. Kept as set.
  double ALV = 0;
  std::int16_t AIV2_Index = 0;
  double AIV2_Basis = 0;
  double AIV2 = 0;
  std::int16_t AIV_Index = 0;
  double AIV_Basis = 0;
  double AIV = 0;
  std::int16_t AIV_Sonder_Index = 0;
  double AIV_SonderBasis = 0;
  double AIV_Sonder = 0;
  std::int16_t AIV_ERSSonder_Index = 0;
  double AIV_ERSSonderBasis = 0;
  double AIV_ERSSonder = 0;
  IndexedArray<double, 0, 5> AIV_ERS{"AIV_ERS"};
  IndexedArray<double, 0, 5> AIV_ERSBasis{"AIV_ERSBasis"};
  ///@}

  /// \name Malus and special-payment surcharges
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the malus (and MalusBGL_GKK) and the social-insurance surcharge
  /// on special payments (SVSZU, and SVSZU_EP of the one-off bonus), kept as set.
  MonthArray<double> Malus{"Malus"};
  MonthArray<double> MalusBGL_GKK{"MalusBGL_GKK"};
  MonthArray<double> SVSZU{"SVSZU"};
  MonthArray<double> SVSZU_EP{"SVSZU_EP"};
  ///@}

  /// \name Commuter allowance
  ///@{

  /// A commuter-allowance figure of the record.
  ///
  /// The small and the large commuter allowance of the record, and the commuter euro per
  /// month (0 to 12, single precision), kept as set.
  double Pendler_klein = 0;
  double Pendler_gross = 0;
  MonthArray<float> PendlerEuro{"PendlerEuro"};
  ///@}

  /// \name Transfers
  ///@{

  /// The transfer of a month (0 to 12): get and replace, as Sechstel.
  const std::shared_ptr<LLohn1_Uebertritt>& Uebertritt(int pIndex) const { return uebertritt_(pIndex); }
  void SetUebertritt(int pIndex, std::shared_ptr<LLohn1_Uebertritt> p) { uebertritt_(pIndex) = std::move(p); }
  ///@}

  /// \name Cent rounding, works-council levy and N18
  ///@{

  /// Month arrays 0 to 12.
  ///
  /// Month arrays 0 to 12: the cent rounding (Centausgleich), the works-council levy, and
  /// the N18 social-insurance figures (current, special, of replacement benefits, and their
  /// bases), kept as set.
  MonthArray<double> Centausgleich{"Centausgleich"};
  MonthArray<double> Betriebsratsumlage{"Betriebsratsumlage"};
  MonthArray<double> N18_SV_Laufend{"N18_SV_Laufend"};
  MonthArray<double> N18_SV_Sonder{"N18_SV_Sonder"};
  MonthArray<double> N18_SV_Laufend_Ersatz{"N18_SV_Laufend_Ersatz"};
  MonthArray<double> N18_SV_Sonder_Ersatz{"N18_SV_Sonder_Ersatz"};
  MonthArray<double> N18_SV_LaufendBasis{"N18_SV_LaufendBasis"};
  MonthArray<double> N18_SV_SonderBasis{"N18_SV_SonderBasis"};
  ///@}

 private:
  MonthArray<std::shared_ptr<LLohn1_Werte>> sechstel_{"Sechstel"};
  MonthArray<std::shared_ptr<LLohn1_Uebertritt>> uebertritt_{"Uebertritt"};
};

}  // namespace ormelix
