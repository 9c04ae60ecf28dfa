#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/benefits/ersatzleistungen.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/children/kinder.h"
#include "ormelix/employee/jahresdaten.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/lohn_values.h"
#include "ormelix/employee/lohnarten.h"
#include "ormelix/employee/uebertritt.h"
#include "ormelix/employer/lohn_pdf_encrypt.h"
#include "ormelix/indexed_array.h"
#include "ormelix/shorttime/kurzarbeit.h"

namespace ormelix {

class clsManager;

/// Which tables Update and Refresh write or read: a bit set, where only 0 means all.
/// Kinder, Laufbahn and Sendedaten have no effect there.
enum eUpdateConstants {
  ucAllTables = 0,
  ucTableMitarbeiter = 1,
  ucTableBankverbindung = 2,
  ucTableKinder = 4,
  ucTableLaufbahn = 8,
  ucTableLohnarten = 16,
  ucTableLohnzettel = 32,
  ucTableSendedaten = 64,
  ucTableÜbertritte = 128,
  uctableJahresdaten = 256,
  ucTablePDFEncrypt = 512
};

/// Twelve children of one kind, one per month. Each is made at its first use (a
/// getter, or a load that finds a row for it) rather than with its owner, in its
/// initial state all the same: most employees have no short-time work and no
/// replacement benefit in most months, and a year of empty records would cost
/// kilobytes per employee. Once made, the getter hands out the same object.
template <class T>
class MonthlyChildren {
 public:
  explicit MonthlyChildren(const char* name) : name_(name) {}
  /// Null for month 0; std::out_of_range outside 0..12.
  std::shared_ptr<T> operator()(int month) const {
    if (month < 0 || month > 12) detail::IndexOutOfRange(name_, month, 0, 12);
    if (month == 0) return nullptr;
    if (!items_) items_ = std::make_unique<Items>();
    std::shared_ptr<T>& item = (*items_)[static_cast<std::size_t>(month - 1)];
    if (!item) item = std::make_shared<T>();
    return item;
  }
  /// Whether the child of a month (1..12) has been made.
  bool Made(int month) const {
    return items_ && month >= 1 && month <= 12 && (*items_)[static_cast<std::size_t>(month - 1)] != nullptr;
  }

 private:
  using Items = std::array<std::shared_ptr<T>, 12>;
  mutable std::unique_ptr<Items> items_;  ///< made with the first child
  const char* name_;
};

/// One employee with everything the payroll needs of that employee for one
/// calendar year: master data, bank details, career, children, the twelve monthly pay
/// records, wage-type lines, transfers, year data and document protection.
///
/// A large bag of plain values. Month-indexed properties are checked arrays: an
/// index outside their range is std::out_of_range naming the property and the index.
/// Element 0 of a 0..12 array exists but is never loaded or saved. The monthly
/// children exist for the months 1 to 12; index 0 gives a null pointer.
///
/// The object keeps no reference to the session: LoadMitarbeiter, Update and Refresh
/// take the manager and hand it on to the table routines (modDatabase).
class LLohn {
 public:
  /// Every property starts at 0, "" or False by its own initialiser. (The
  /// constructor is defined out of line so that make_shared does not zero the
  /// whole object before the members initialise themselves.)
  LLohn();
  LLohn(const LLohn&) = delete;
  LLohn& operator=(const LLohn&) = delete;

  /// Identity, set by LoadMitarbeiter: the key in Mitarbeiter ("" for a blank
  /// employee) and the position in the employee list, from 1.
  const std::string& ID() const { return id_; }
  std::int16_t Index() const { return index_; }

  /// Children, created with the object; each getter hands out the same object.
  const std::shared_ptr<LLohn_Laufbahnen>& Laufbahn() const { return laufbahn_; }
  const std::shared_ptr<LLohn_Arbeiter>& Mitarbeiter() const { return mitarbeiter_; }
  const std::shared_ptr<LLohn_Jahresdaten>& Jahresdaten() const { return jahresdaten_; }
  const std::shared_ptr<LLohn_Kinder>& Kinder() const { return kinder_; }
  const std::shared_ptr<LLohn_PDFEncrypt>& PDFEncrypt() const { return pdf_encrypt_; }

  /// Monthly children, months 1 to 12 (null for 0, std::out_of_range outside 0..12).
  std::shared_ptr<LLohn_Eingabe> Sechstel(int pIndex) const { return sechstel_(pIndex); }
  std::shared_ptr<LLohn_Fallweise> FB_Fallweise(int pIndex) const { return fb_fallweise_(pIndex); }
  std::shared_ptr<LLohn_Übertritt> Uebertritt(int pIndex) const { return uebertritt_(pIndex); }
  std::shared_ptr<LLohn_PendlerAR> PendlerAR(int pIndex) const { return pendler_ar_(pIndex); }
  std::shared_ptr<LLohn_Ersatzleistungen> SV_EL_Laufend(int pIndex) const { return sv_el_laufend_(pIndex); }
  std::shared_ptr<LLohn_Kurzarbeit> Kurzarbeit(int pIndex) const { return kurzarbeit_(pIndex); }
  /// \cond INTERNAL
  // Library-internal: whether SV_EL_Laufend(pIndex) has been made (by its getter or
  // a load), so that a load without rows for the month leaves it unmade.
  bool HasSV_EL_Laufend(int pIndex) const { return sv_el_laufend_.Made(pIndex); }
  /// \endcond

  /// Loads the employee pMitarbeiterID for the manager's AktJahr: identity, career,
  /// children, then the tables in the order master record, bank details, wage-type
  /// lines, pay record, transfers, year data, document password.
  void LoadMitarbeiter(clsManager& Manager, const std::string& pMitarbeiterID, std::int16_t pIndex);
  /// Writes the tables that pUpdate flags (0: all) in the fixed order of the load.
  /// pMonat reaches the pay record only (0: AktMonat); the wage-type lines always
  /// take AktMonat. Career and children are not written here.
  void Update(clsManager& Manager, int pUpdate = ucAllTables, std::int16_t pMonat = 0);
  /// Reads the flagged tables (0: all) again; career and children stay as they are.
  void Refresh(clsManager& Manager, int pUpdate = ucAllTables);

  /// The contribution account in force for the period: the newest entry of
  /// Mitarbeiter_Beitragskonto not after it, "" when there is none.
  std::string BeitragskontoID(clsManager& Manager, std::int32_t pZeitraum) const;

  /// The marked part of a month's amount of wage-type lines, when the month's lines
  /// of the group add up to the base amount (both rounded to 2 decimals); else 0.
  double GetDBDZKST_frei(std::int16_t pMonat) const;
  double GetTeuerungsprämie(std::int16_t pMonat) const;
  double GetTeuerungsprämieKV(std::int16_t pMonat) const;
  double GetMitarbeitergewinnbeteiligung(std::int16_t pMonat) const;

  /// A date as a day count.
  double Geb_Datum = 0;

  /// Options and output selections of the employee (16-bit; a flag holds True as -1).
  std::int16_t op_Frei_Forstarbeiter = 0;
  std::int16_t op_ForstarbeiterLand = 0;
  std::int16_t pAbgaben = 0;
  std::int16_t pMitarbeiterblatt = 0;
  std::int16_t pBankliste = 0;
  std::int16_t pAusdruck = 0;
  std::int16_t pMitarbeiter = 0;
  std::int16_t pBeitragsNachweis = 0;
  std::int16_t pDienstgeber = 0;
  std::int16_t pGrafik = 0;
  std::int16_t pLohnkonto = 0;
  std::int16_t pJahresLohnZettel = 0;
  std::int16_t pBeitragsNachweisJahr = 0;
  std::int16_t pZahlschein = 0;
  std::int16_t pTelebanking = 0;
  std::int16_t pLohnjournal = 0;
  std::int16_t pBanklisteBerechnung = 0;
  std::int16_t op_ErntehelferLAGKULK = 0;
  std::int16_t pBuchungsliste = 0;
  std::int16_t op_NoLKKUForstArbeiter = 0;
  std::int16_t op_NoLKKUForstAngestellter = 0;
  std::int16_t pKommunal = 0;
  std::int16_t op_ForstarbeiterLandWF = 0;
  std::int16_t IsEhepartner = 0;
  std::int16_t Malus_Monat = 0;
  std::int16_t op_ForstarbeiterKULK = 0;
  std::int16_t KinderWegfallFB = 0;

  /// Bank details and the base-value folder.
  std::string BankName;
  std::string BasisID;
  std::string IBAN;
  std::string BIC;

  /// Flags of the employee. E18_TestMeldung lives in memory only: no table holds it.
  bool E18_TestMeldung = false;
  bool PartnerWegfallÄnderung = false;
  bool PartnerAlleinlaufendeJahr = false;
  bool PartnerAlleinFolgendeJahr = false;
  bool Barauszahler = false;
  bool AuswahlBNW = false;
  bool AnzeigeVNWErsteintritt = false;
  bool Neuanlage = false;
  bool Anonymize = false;

  /// Month arrays 0 to 12, double precision (dates as day counts).
  MonthArray<double> Von_Datum{"Von_Datum"};
  MonthArray<double> Bis_Datum{"Bis_Datum"};
  MonthArray<double> MinderLaufendBasisGesamt{"MinderLaufendBasisGesamt"};
  MonthArray<double> MinderSonderBasisGesamt{"MinderSonderBasisGesamt"};
  MonthArray<double> MinderLaufendBasis_UA_UEGesamt{"MinderLaufendBasis_UA_UEGesamt"};
  MonthArray<double> MinderSonderBasis_UA_UEGesamt{"MinderSonderBasis_UA_UEGesamt"};
  MonthArray<double> SV_Laufend_Basis_Berechnet{"SV_Laufend_Basis_Berechnet"};
  MonthArray<double> SV_Laufend_Basis_UA_UE_Berechnet{"SV_Laufend_Basis_UA_UE_Berechnet"};
  MonthArray<double> SV_Sonder_Basis_Berechnet{"SV_Sonder_Basis_Berechnet"};
  MonthArray<double> SV_Sonder_Basis_UA_UE_Berechnet{"SV_Sonder_Basis_UA_UE_Berechnet"};
  MonthArray<double> SV_Laufend_DG{"SV_Laufend_DG"};
  MonthArray<double> SV_Sonder_DG{"SV_Sonder_DG"};
  MonthArray<double> SV_Laufend_DG_UA_UE{"SV_Laufend_DG_UA_UE"};
  MonthArray<double> SV_Sonder_DG_UA_UE{"SV_Sonder_DG_UA_UE"};
  MonthArray<double> NeuFög_Laufend{"NeuFög_Laufend"};
  MonthArray<double> NeuFög_Sonder{"NeuFög_Sonder"};
  MonthArray<double> NeuFög_Laufend_UA_UE{"NeuFög_Laufend_UA_UE"};
  MonthArray<double> NeuFög_Sonder_UA_UE{"NeuFög_Sonder_UA_UE"};
  MonthArray<double> SV_Laufend_DGA{"SV_Laufend_DGA"};
  MonthArray<double> SV_Sonder_DGA{"SV_Sonder_DGA"};
  MonthArray<double> SV_Laufend_DGA_UA_UE{"SV_Laufend_DGA_UA_UE"};
  MonthArray<double> SV_Sonder_DGA_UA_UE{"SV_Sonder_DGA_UA_UE"};
  MonthArray<double> KontrollSechstelLStBasisAufrollung{"KontrollSechstelLStBasisAufrollung"};
  MonthArray<double> KontrollSechstelLstAufrollung{"KontrollSechstelLstAufrollung"};
  MonthArray<double> KontrollSechstelLStSonstBasisAufrollung{"KontrollSechstelLStSonstBasisAufrollung"};
  MonthArray<double> KontrollSechstelLstSonstAufrollung{"KontrollSechstelLstSonstAufrollung"};
  MonthArray<double> KontrollSechstelSVSZUAufrollung{"KontrollSechstelSVSZUAufrollung"};
  MonthArray<double> KontrollSechstelSVSZU_EPAufrollung{"KontrollSechstelSVSZU_EPAufrollung"};
  MonthArray<double> ATZReferenzBrutto{"ATZReferenzBrutto"};
  MonthArray<double> ATZReferenzBruttoSchnitt{"ATZReferenzBruttoSchnitt"};
  MonthArray<double> ATZReduktion{"ATZReduktion"};
  MonthArray<double> HomeofficePauschale{"HomeofficePauschale"};
  MonthArray<double> Jobticket{"Jobticket"};
  MonthArray<double> Jobticket_PendlerAbzug{"Jobticket_PendlerAbzug"};

  /// Month arrays 0 to 12, single precision: the amounts of a month, rounded to 2
  /// decimals on save only.
  MonthArray<float> LST_AufRollen{"LST_AufRollen"};
  MonthArray<float> LST_AufRollenWert{"LST_AufRollenWert"};
  MonthArray<float> StundenLohn{"StundenLohn"};
  MonthArray<float> StundenAnzahl{"StundenAnzahl"};
  MonthArray<float> Gehalt{"Gehalt"};
  MonthArray<float> Ueberst__50{"Ueberst__50"};
  MonthArray<float> UeBasis{"UeBasis"};
  MonthArray<float> Ueberst_100{"Ueberst_100"};
  MonthArray<float> Ueberst__xx{"Ueberst__xx"};
  MonthArray<float> Ueberst_pauschale{"Ueberst_pauschale"};
  MonthArray<float> LFD_Bezuege{"LFD_Bezuege"};
  MonthArray<float> LFD_Bezuege_LS_frei{"LFD_Bezuege_LS_frei"};
  MonthArray<float> LFD_Bezuege_LS_frei_pfl{"LFD_Bezuege_LS_frei_pfl"};
  MonthArray<float> LFD_Bezuege_LS_pfl_frei{"LFD_Bezuege_LS_pfl_frei"};
  MonthArray<float> LFD_Bezuege_L_frei{"LFD_Bezuege_L_frei"};
  MonthArray<float> sonst_Bezuege{"sonst_Bezuege"};
  MonthArray<float> Bezuege_Wert{"Bezuege_Wert"};
  MonthArray<float> Sachbezug{"Sachbezug"};
  MonthArray<float> UE_laufend{"UE_laufend"};
  MonthArray<float> Sechstel_Basis{"Sechstel_Basis"};
  MonthArray<float> Einmalpraemie{"Einmalpraemie"};
  MonthArray<float> Jubilaeumsgeld{"Jubilaeumsgeld"};
  MonthArray<float> SV_Laufend{"SV_Laufend"};
  MonthArray<float> SV_Laufend_Basis{"SV_Laufend_Basis"};
  MonthArray<float> SV_Sonder{"SV_Sonder"};
  MonthArray<float> SV_Sonder_Basis{"SV_Sonder_Basis"};
  MonthArray<float> SV_Laufend_Basis_UA_UE{"SV_Laufend_Basis_UA_UE"};
  MonthArray<float> SV_Sonder_Basis_UA_UE{"SV_Sonder_Basis_UA_UE"};
  MonthArray<float> LST_Laufend{"LST_Laufend"};
  MonthArray<float> LST_Laufend_Basis{"LST_Laufend_Basis"};
  MonthArray<float> LST_sonder{"LST_sonder"};
  MonthArray<float> LST_sonder_Basis{"LST_sonder_Basis"};
  MonthArray<float> Lst_Abfertigung{"Lst_Abfertigung"};
  MonthArray<float> Gewerkschaft{"Gewerkschaft"};
  MonthArray<float> Betriebsrat{"Betriebsrat"};
  MonthArray<float> sonstige_abz{"sonstige_abz"};
  MonthArray<float> Aufwand{"Aufwand"};
  MonthArray<float> Abfertigung{"Abfertigung"};
  MonthArray<float> Trinkgeld{"Trinkgeld"};
  MonthArray<float> Netto{"Netto"};
  MonthArray<float> op_Frei_FreibetragsEingabe{"op_Frei_FreibetragsEingabe"};
  MonthArray<float> op_Pendler_km{"op_Pendler_km"};
  MonthArray<float> MinderLaufendBasis{"MinderLaufendBasis"};
  MonthArray<float> MinderSonderBasis{"MinderSonderBasis"};
  MonthArray<float> MinderLaufendBasis_UA_UE{"MinderLaufendBasis_UA_UE"};
  MonthArray<float> MinderSonderBasis_UA_UE{"MinderSonderBasis_UA_UE"};
  MonthArray<float> PersonalUSTPauschale{"PersonalUSTPauschale"};
  MonthArray<float> PersonalSonstiges{"PersonalSonstiges"};
  MonthArray<float> PersonalPrdStunden{"PersonalPrdStunden"};
  MonthArray<float> LFD_Bezuege_Schmutz{"LFD_Bezuege_Schmutz"};
  MonthArray<float> Gewerkschaft_Basis{"Gewerkschaft_Basis"};
  MonthArray<float> Betriebsrat_Basis{"Betriebsrat_Basis"};
  MonthArray<float> AbfertigungNeu_Basis{"AbfertigungNeu_Basis"};
  MonthArray<float> AbfertigungNeu{"AbfertigungNeu"};
  MonthArray<float> SV_Laufend_UA_UE{"SV_Laufend_UA_UE"};
  MonthArray<float> SV_Sonder_UA_UE{"SV_Sonder_UA_UE"};
  MonthArray<float> SV_Laufend_Basis2{"SV_Laufend_Basis2"};
  MonthArray<float> MVZuschlagBasis{"MVZuschlagBasis"};
  MonthArray<float> MVZuschlag{"MVZuschlag"};
  MonthArray<float> UeZBasis_50{"UeZBasis_50"};
  MonthArray<float> UeZBasis100{"UeZBasis100"};
  MonthArray<float> SZUB_Bauarbeiter{"SZUB_Bauarbeiter"};
  MonthArray<float> SachbezugAnteil{"SachbezugAnteil"};

  /// Month arrays 0 to 12, boolean.
  MonthArray<bool> LST_AufRollenWertEingabe{"LST_AufRollenWertEingabe"};
  MonthArray<bool> op_AngestellterSonderfallNurWF{"op_AngestellterSonderfallNurWF"};
  MonthArray<bool> op_FamilienbonusPlus{"op_FamilienbonusPlus"};
  MonthArray<bool> op_Covid19Bonus{"op_Covid19Bonus"};
  MonthArray<bool> Aushilfskraft{"Aushilfskraft"};
  MonthArray<bool> KontrollSechstelRechnen{"KontrollSechstelRechnen"};
  MonthArray<bool> EingabeSperre{"EingabeSperre"};
  MonthArray<bool> op_Altersteilzeit{"op_Altersteilzeit"};
  MonthArray<bool> Jobticket_Check{"Jobticket_Check"};

  /// Month arrays 0 to 12, 16-bit (options and _Eingabe flags hold True as -1).
  MonthArray<std::int16_t> UeBasis_Eingabe{"UeBasis_Eingabe"};
  MonthArray<std::int16_t> Ueberst__xx_Prozent{"Ueberst__xx_Prozent"};
  MonthArray<std::int16_t> UE_Laufend_Tage{"UE_Laufend_Tage"};
  MonthArray<std::int16_t> SV_Laufend_Eingabe{"SV_Laufend_Eingabe"};
  MonthArray<std::int16_t> SV_Laufend_Basis_Eingabe{"SV_Laufend_Basis_Eingabe"};
  MonthArray<std::int16_t> SV_Sonder_Eingabe{"SV_Sonder_Eingabe"};
  MonthArray<std::int16_t> SV_Sonder_Basis_Eingabe{"SV_Sonder_Basis_Eingabe"};
  MonthArray<std::int16_t> SV_Laufend_Basis_UA_UE_Eingabe{"SV_Laufend_Basis_UA_UE_Eingabe"};
  MonthArray<std::int16_t> SV_Sonder_Basis_UA_UE_Eingabe{"SV_Sonder_Basis_UA_UE_Eingabe"};
  MonthArray<std::int16_t> LST_laufend_Eingabe{"LST_laufend_Eingabe"};
  MonthArray<std::int16_t> LST_Laufend_Basis_Eingabe{"LST_Laufend_Basis_Eingabe"};
  MonthArray<std::int16_t> LST_Sonder_Eingabe{"LST_Sonder_Eingabe"};
  MonthArray<std::int16_t> LST_Sonder_Basis_Eingabe{"LST_Sonder_Basis_Eingabe"};
  MonthArray<std::int16_t> Lst_AbfertigungEingabe{"Lst_AbfertigungEingabe"};
  MonthArray<std::int16_t> GewerkschaftRechnen{"GewerkschaftRechnen"};
  MonthArray<std::int16_t> Gehaelter{"Gehaelter"};
  MonthArray<std::int16_t> Krankenschein{"Krankenschein"};
  MonthArray<std::int16_t> op_Geschaeftsfuehrer{"op_Geschaeftsfuehrer"};
  MonthArray<std::int16_t> op_Angestellter{"op_Angestellter"};
  MonthArray<std::int16_t> op_AngestellterOhneAK{"op_AngestellterOhneAK"};
  MonthArray<std::int16_t> op_Arbeiter{"op_Arbeiter"};
  MonthArray<std::int16_t> op_Bauarbeiter{"op_Bauarbeiter"};
  MonthArray<std::int16_t> op_Hausbesorger{"op_Hausbesorger"};
  MonthArray<std::int16_t> op_Ferialpraktikant{"op_Ferialpraktikant"};
  MonthArray<std::int16_t> op_Forstarbeiter{"op_Forstarbeiter"};
  MonthArray<std::int16_t> op_LehrZeit{"op_LehrZeit"};
  MonthArray<std::int16_t> op_LehrJahr{"op_LehrJahr"};
  MonthArray<std::int16_t> op_mBeschaeftigt{"op_mBeschaeftigt"};
  MonthArray<std::int16_t> op_Malus{"op_Malus"};
  MonthArray<std::int16_t> op_Malus30{"op_Malus30"};
  MonthArray<std::int16_t> op_Nacht{"op_Nacht"};
  MonthArray<std::int16_t> op_U_Bahn{"op_U_Bahn"};
  MonthArray<std::int16_t> op_Frei_Alleinverdiener{"op_Frei_Alleinverdiener"};
  MonthArray<std::int16_t> op_Frei_Alleinerzieher{"op_Frei_Alleinerzieher"};
  MonthArray<std::int16_t> op_Frei_Freibetragsbescheid{"op_Frei_Freibetragsbescheid"};
  MonthArray<std::int16_t> op_Pendler{"op_Pendler"};
  MonthArray<std::int16_t> op_KrankenscheinNetto{"op_KrankenscheinNetto"};
  MonthArray<std::int16_t> Schlechtwetter_Eingabe{"Schlechtwetter_Eingabe"};
  MonthArray<std::int16_t> op_Bonus{"op_Bonus"};
  MonthArray<std::int16_t> SV_Laufend_UA_UE_Eingabe{"SV_Laufend_UA_UE_Eingabe"};
  MonthArray<std::int16_t> SV_Sonder_UA_UE_Eingabe{"SV_Sonder_UA_UE_Eingabe"};
  MonthArray<std::int16_t> AbfertigungNeu_Eingabe{"AbfertigungNeu_Eingabe"};
  MonthArray<std::int16_t> AbfertigungNeu_Basis_Eingabe{"AbfertigungNeu_Basis_Eingabe"};
  MonthArray<std::int16_t> AbrechnungsTage{"AbrechnungsTage"};
  MonthArray<std::int16_t> Gewerkschaft_Basis_Eingabe{"Gewerkschaft_Basis_Eingabe"};
  MonthArray<std::int16_t> Betriebsrat_Basis_Eingabe{"Betriebsrat_Basis_Eingabe"};
  MonthArray<std::int16_t> Ueberst__50_Prozent{"Ueberst__50_Prozent"};
  MonthArray<std::int16_t> Ueberst_100_Prozent{"Ueberst_100_Prozent"};
  MonthArray<std::int16_t> op_RAWAnwaerter{"op_RAWAnwaerter"};
  MonthArray<std::int16_t> op_FreiDienstnehmer{"op_FreiDienstnehmer"};
  MonthArray<std::int16_t> op_Erntehelfer{"op_Erntehelfer"};
  MonthArray<std::int16_t> op_ErntehelferLAG{"op_ErntehelferLAG"};
  MonthArray<std::int16_t> op_Behindert{"op_Behindert"};
  MonthArray<std::int16_t> op_GeschaeftsfuehrerGSVG{"op_GeschaeftsfuehrerGSVG"};
  MonthArray<std::int16_t> op_AuflösungsAbgabe{"op_AuflösungsAbgabe"};
  MonthArray<std::int16_t> op_AÜGN18{"op_AÜGN18"};
  MonthArray<std::int16_t> op_NachtSchwerArbeiter{"op_NachtSchwerArbeiter"};
  MonthArray<std::int16_t> FallweiseKörperTätigkeit55{"FallweiseKörperTätigkeit55"};
  MonthArray<std::int16_t> UeZBasis_50_Eingabe{"UeZBasis_50_Eingabe"};
  MonthArray<std::int16_t> UeZBasis100_Eingabe{"UeZBasis100_Eingabe"};
  MonthArray<std::int16_t> HomeofficeTage{"HomeofficeTage"};

  /// Month array 0 to 12, 32-bit.
  MonthArray<std::int32_t> Zahltag{"Zahltag"};

  /// Month arrays 0 to 12, text.
  MonthArray<std::string> Text1{"Text1"};
  MonthArray<std::string> Text2{"Text2"};
  MonthArray<std::string> Text3{"Text3"};
  MonthArray<std::string> Text4{"Text4"};
  MonthArray<std::string> Text5{"Text5"};
  MonthArray<std::string> Text6{"Text6"};
  MonthArray<std::string> Text7{"Text7"};
  MonthArray<std::string> Text8{"Text8"};
  MonthArray<std::string> Beitragsgruppe{"Beitragsgruppe"};
  MonthArray<std::string> Jobticket_Text{"Jobticket_Text"};

  /// Month arrays 1 to 12: there is no element 0.
  Month1Array<std::string> Sonstige_Abzuege_Text{"Sonstige_Abzuege_Text"};
  Month1Array<std::int16_t> op_PendlerDrittel{"op_PendlerDrittel"};

  /// Wage-type lines of the groups 7 and 8 (line 1 to 5, month 0 to 12), and the
  /// markings of a line (group-specific: one flag per line and month).
  MonthGrid<std::string, 1, 5> SonstigeAbz_text{"SonstigeAbz_text"};
  MonthGrid<std::string, 1, 5> Aufwandsentsch_text{"Aufwandsentsch_text"};
  MonthGrid<float, 1, 5> SonstigeAbz_Anzahl{"SonstigeAbz_Anzahl"};
  MonthGrid<float, 1, 5> SonstigeAbz_Satz{"SonstigeAbz_Satz"};
  MonthGrid<float, 1, 5> SonstigeAbz_Betrag{"SonstigeAbz_Betrag"};
  MonthGrid<float, 1, 5> Aufwandsentsch_Anzahl{"Aufwandsentsch_Anzahl"};
  MonthGrid<float, 1, 5> Aufwandsentsch_Satz{"Aufwandsentsch_Satz"};
  MonthGrid<float, 1, 5> Aufwandsentsch_Betrag{"Aufwandsentsch_Betrag"};
  MonthGrid<bool, 1, 5> ZSL_DBDZKST_frei{"ZSL_DBDZKST_frei"};
  MonthGrid<bool, 1, 5> ZSL_Teuerungsprämie{"ZSL_Teuerungsprämie"};
  MonthGrid<bool, 1, 5> ZSL_TeuerungsprämieKV{"ZSL_TeuerungsprämieKV"};
  MonthGrid<bool, 1, 5> ZSL_Mitarbeitergewinnbeteiligung{"ZSL_Mitarbeitergewinnbeteiligung"};

  /// Wage-type lines of the groups 1 to 6 (group 1 to 6, line 1 to 5, month 0 to 12).
  MonthGrid3<std::string, 1, 6, 1, 5> ZSL_Text{"ZSL_Text"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Anzahl{"ZSL_Anzahl"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Satz{"ZSL_Satz"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Prozent{"ZSL_Prozent"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Betrag{"ZSL_Betrag"};

 private:
  std::string id_;
  std::int16_t index_ = 0;

  std::shared_ptr<LLohn_Laufbahnen> laufbahn_ = std::make_shared<LLohn_Laufbahnen>();
  std::shared_ptr<LLohn_Arbeiter> mitarbeiter_ = std::make_shared<LLohn_Arbeiter>();
  std::shared_ptr<LLohn_Jahresdaten> jahresdaten_ = std::make_shared<LLohn_Jahresdaten>();
  std::shared_ptr<LLohn_Kinder> kinder_ = std::make_shared<LLohn_Kinder>();
  std::shared_ptr<LLohn_PDFEncrypt> pdf_encrypt_ = std::make_shared<LLohn_PDFEncrypt>();
  MonthlyChildren<LLohn_Eingabe> sechstel_{"Sechstel"};
  MonthlyChildren<LLohn_Fallweise> fb_fallweise_{"FB_Fallweise"};
  MonthlyChildren<LLohn_Übertritt> uebertritt_{"Uebertritt"};
  MonthlyChildren<LLohn_PendlerAR> pendler_ar_{"PendlerAR"};
  MonthlyChildren<LLohn_Ersatzleistungen> sv_el_laufend_{"SV_EL_Laufend"};
  MonthlyChildren<LLohn_Kurzarbeit> kurzarbeit_{"Kurzarbeit"};
};

}  // namespace ormelix
