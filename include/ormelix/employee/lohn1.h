#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/indexed_array.h"

namespace ormelix {

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
class LLohn1;

/// The one-sixth figures of one month, in single precision.
class LLohn1_Werte {
 public:
  float JahresSumme = 0;
  float JahresSummeEL = 0;
  float grenze = 0;
  float grenzeEL = 0;
  float Sonderzahlung = 0;
  float Ueberschreitung = 0;
  float ueberhang = 0;
  float ueberhang_EP = 0;
  float ueberhang_JG = 0;

  /// The record that made this object; null for one the caller made.
  const LLohn1* Owner() const { return owner_; }

 private:
  friend class LLohn1;
  const LLohn1* owner_ = nullptr;
};

/// One stretch of days (day counts) of a month with a transfer.
class LLohn1_UebertrittDatum {
 public:
  double Begin = 0;
  double Ende = 0;

  const LLohn1* Owner() const { return owner_; }

 private:
  friend class LLohn1_Uebertritt;
  const LLohn1* owner_ = nullptr;
};

/// A change of contribution group within one month, as the calculation sees it.
class LLohn1_Uebertritt {
 public:
  /// Creates Datum1 and Datum2.
  LLohn1_Uebertritt();
  LLohn1_Uebertritt(const LLohn1_Uebertritt&) = delete;
  LLohn1_Uebertritt& operator=(const LLohn1_Uebertritt&) = delete;

  bool IsUebertritt = false;
  /// Get and replace; a replacement is the caller's own and gets no owner.
  const std::shared_ptr<LLohn1_UebertrittDatum>& Datum1() const { return datum1_; }
  void SetDatum1(std::shared_ptr<LLohn1_UebertrittDatum> p) { datum1_ = std::move(p); }
  const std::shared_ptr<LLohn1_UebertrittDatum>& Datum2() const { return datum2_; }
  void SetDatum2(std::shared_ptr<LLohn1_UebertrittDatum> p) { datum2_ = std::move(p); }
  std::string BERGR1;
  std::string BERGR2;
  std::int16_t BERZUG1 = 0;
  std::int16_t BERZUG2 = 0;

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
class LLohn1 {
 public:
  /// Creates a Sechstel and an Uebertritt for each index 0 to 12.
  LLohn1();
  /// Lets go of the owner reference of each child that is still its own, so that a
  /// child kept by the caller does not point to a record that is gone.
  ~LLohn1();
  LLohn1(const LLohn1&) = delete;
  LLohn1& operator=(const LLohn1&) = delete;

  std::string ID;
  double Ein_Datum = 0;
  double Abm_Datum = 0;
  double Aus_Datum = 0;
  std::int16_t Ein_DatumIdx = 0;
  std::int16_t Abm_DatumIdx = 0;
  std::int16_t Aus_DatumIdx = 0;

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

  MonthArray<double> SV_Laufend_EP{"SV_Laufend_EP"};
  MonthArray<double> SV_Laufend{"SV_Laufend"};
  MonthArray<double> SV_Laufend_DiffSachbezug{"SV_Laufend_DiffSachbezug"};
  MonthArray<double> SV_Laufend2{"SV_Laufend2"};
  MonthArray<double> SV_Laufend_Basis{"SV_Laufend_Basis"};
  MonthArray<double> SV_Laufend_Basis2{"SV_Laufend_Basis2"};
  MonthArray<double> SV_Laufend_BasisGesamt{"SV_Laufend_BasisGesamt"};
  MonthArray<double> SV_Laufend_Basis_ohne_Kontrolle{"SV_Laufend_Basis_ohne_Kontrolle"};

  MonthArray<double> SV_SonderLKKaernten{"SV_SonderLKKaernten"};
  MonthArray<double> SV_SonderUBBauarbeiter{"SV_SonderUBBauarbeiter"};
  MonthArray<double> SV_Sonder{"SV_Sonder"};
  MonthArray<double> SV_SonderOrg{"SV_SonderOrg"};
  MonthArray<double> SV_Sonder_Basis{"SV_Sonder_Basis"};
  MonthArray<double> SV_Sonder_Basis1{"SV_Sonder_Basis1"};
  MonthArray<double> SV_Sonder_BasisGesamt{"SV_Sonder_BasisGesamt"};

  MonthArray<double> SV_Laufend_UA_UE{"SV_Laufend_UA_UE"};
  MonthArray<double> SV_Laufend_Basis_UA_UE{"SV_Laufend_Basis_UA_UE"};
  MonthArray<double> SV_Laufend_Basis_UA_UEGesamt{"SV_Laufend_Basis_UA_UEGesamt"};
  MonthArray<double> SV_Sonder_UA_UE{"SV_Sonder_UA_UE"};
  MonthArray<double> SV_Sonder_Basis_UA_UE{"SV_Sonder_Basis_UA_UE"};
  MonthArray<double> SV_Sonder_Basis_UA_UEGesamt{"SV_Sonder_Basis_UA_UEGesamt"};

  MonthArray<double> AbfertigungNeu{"AbfertigungNeu"};
  MonthArray<double> AbfertigungNeu_Basis{"AbfertigungNeu_Basis"};
  double AbfertigungNeuMinder = 0;
  double AbfertigungNeuMinder_Basis = 0;

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

  MonthArray<double> Gewerkschaft_Basis{"Gewerkschaft_Basis"};
  MonthArray<double> Betriebsrat_Basis{"Betriebsrat_Basis"};
  MonthArray<double> Abzuege_gesamt{"Abzuege_gesamt"};
  MonthArray<double> Netto{"Netto"};

  /// The one-sixth figures of a month: get and replace. A replacement is the
  /// caller's own object and gets no owner from the setter; null is allowed.
  const std::shared_ptr<LLohn1_Werte>& Sechstel(int pIndex) const { return sechstel_(pIndex); }
  void SetSechstel(int pIndex, std::shared_ptr<LLohn1_Werte> p) { sechstel_(pIndex) = std::move(p); }
  std::int16_t SechstelSolidarStaffelIndex = 0;
  double SechstelSolidarStaffelWert = 0;
  double SechstelSolidarStaffelBasis = 0;
  double SechstelLST_sonder50Prozent = 0;

  MonthArray<double> SV_Laufend_DG{"SV_Laufend_DG"};
  MonthArray<double> SV_Laufend2_DG{"SV_Laufend2_DG"};
  MonthArray<double> SV_Sonder_DG{"SV_Sonder_DG"};
  MonthArray<double> SV_Laufend_DG_UA_UE{"SV_Laufend_DG_UA_UE"};
  MonthArray<double> SV_Sonder_DG_UA_UE{"SV_Sonder_DG_UA_UE"};

  /// (pIndex1 0 to 2, pIndex2 0 to 12)
  MonthGrid<double, 0, 2> SV_N70_Laufend{"SV_N70_Laufend"};
  MonthGrid<double, 0, 2> SV_N70_Sonder{"SV_N70_Sonder"};
  MonthGrid<double, 0, 2> SV_N70_Laufend_DG{"SV_N70_Laufend_DG"};
  MonthGrid<double, 0, 2> SV_N70_Sonder_DG{"SV_N70_Sonder_DG"};
  IndexedArray<double, 0, 2> sumN70{"sumN70"};

  MonthArray<double> Falast_DB{"Falast_DB"};
  MonthArray<double> Falast_DBK{"Falast_DBK"};
  MonthArray<double> UBahn_Abgabe{"UBahn_Abgabe"};
  MonthArray<double> ServiceEntgelt{"ServiceEntgelt"};

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

  MonthArray<double> Malus{"Malus"};
  MonthArray<double> MalusBGL_GKK{"MalusBGL_GKK"};
  MonthArray<double> SVSZU{"SVSZU"};
  MonthArray<double> SVSZU_EP{"SVSZU_EP"};

  double Pendler_klein = 0;
  double Pendler_gross = 0;
  MonthArray<float> PendlerEuro{"PendlerEuro"};

  /// The transfer of a month: get and replace, as Sechstel.
  const std::shared_ptr<LLohn1_Uebertritt>& Uebertritt(int pIndex) const { return uebertritt_(pIndex); }
  void SetUebertritt(int pIndex, std::shared_ptr<LLohn1_Uebertritt> p) { uebertritt_(pIndex) = std::move(p); }

  MonthArray<double> Centausgleich{"Centausgleich"};
  MonthArray<double> Betriebsratsumlage{"Betriebsratsumlage"};
  MonthArray<double> N18_SV_Laufend{"N18_SV_Laufend"};
  MonthArray<double> N18_SV_Sonder{"N18_SV_Sonder"};
  MonthArray<double> N18_SV_Laufend_Ersatz{"N18_SV_Laufend_Ersatz"};
  MonthArray<double> N18_SV_Sonder_Ersatz{"N18_SV_Sonder_Ersatz"};
  MonthArray<double> N18_SV_LaufendBasis{"N18_SV_LaufendBasis"};
  MonthArray<double> N18_SV_SonderBasis{"N18_SV_SonderBasis"};

 private:
  MonthArray<std::shared_ptr<LLohn1_Werte>> sechstel_{"Sechstel"};
  MonthArray<std::shared_ptr<LLohn1_Uebertritt>> uebertritt_{"Uebertritt"};
};

}  // namespace ormelix
