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

/// \brief Which tables LLohn::Update and LLohn::Refresh write or read: a bit set,
/// where only 0 means all.
///
/// Combine with `|` (`ucTableLohnzettel | ucTableLohnarten`). ucTableKinder,
/// ucTableLaufbahn and ucTableSendedaten have no effect there: the host writes
/// career and children itself.
enum eUpdateConstants {
  ucAllTables = 0,             ///< every table below (only the value 0 means all)
  ucTableMitarbeiter = 1,      ///< Mitarbeiter: master record (LLohn_Arbeiter and LLohn's own columns)
  ucTableBankverbindung = 2,   ///< Mitarbeiter_Bankverbindung: BankName, IBAN, BIC, Barauszahler
  ucTableKinder = 4,           ///< no effect
  ucTableLaufbahn = 8,         ///< no effect
  ucTableLohnarten = 16,       ///< Mitarbeiter_Lohnarten: the wage-type lines (always of AktMonat)
  ucTableLohnzettel = 32,      ///< Mitarbeiter_Lohnzettel with its short-time and replacement-benefit rows
  ucTableSendedaten = 64,      ///< no effect
  ucTableÜbertritte = 128,     ///< Mitarbeiter_Übertritte: the transfer of the month
  uctableJahresdaten = 256,    ///< Mitarbeiter_Jahresdaten: the year data of AktJahr
  ucTablePDFEncrypt = 512      ///< Mitarbeiter_PDFEncrypt: the document password
};

/// \brief Twelve children of one kind, one per month, made at their first use.
///
/// Twelve children of one kind, one per month. Each is made at its first use (a
/// getter, or a load that finds a row for it) rather than with its owner, in its
/// initial state all the same: most employees have no short-time work and no
/// replacement benefit in most months, and a year of empty records would cost
/// kilobytes per employee. Once made, the getter hands out the same object.
template <class T>
class MonthlyChildren {
 public:
  /// An empty set; name is the property's, for the message of a bad month.
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

/// \brief One employee for one calendar year: master record, bank details, career,
/// children, twelve pay months, wage-type lines, transfers, year data, password.
///
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
///
/// Tables: Mitarbeiter and Mitarbeiter_Bankverbindung (the master record),
/// Mitarbeiter_Lohnzettel (one row per pay month, with
/// Mitarbeiter_Lohnzettel_Kurzarbeit and Mitarbeiter_Lohnzettel_EL below it),
/// Mitarbeiter_Lohnarten (the wage-type lines), Mitarbeiter_Übertritte,
/// Mitarbeiter_Jahresdaten and Mitarbeiter_PDFEncrypt; the career and the
/// children read Mitarbeiter_Laufbahn, Mitarbeiter_Kinder and Mitarbeiter_Kinder_ZB.
/// Each table is read by LoadMitarbeiter (and Refresh) and written by Update.
///
/// Units: amounts of the pay month are single precision in memory and rounded to
/// 2 decimals on the way to the store only; the figures the calculation keeps in
/// double precision are stored as they stand; dates are day counts (0: none);
/// 16-bit options and `_Eingabe` flags hold True as -1. An `_Eingabe` flag beside a
/// value records that the user typed the value: the library stores the pair and
/// leaves its meaning to the host.
///
/// A month without a row in Mitarbeiter_Lohnzettel loads as UE_Laufend_Tage 30,
/// op_Angestellter True (-1) and, for November only, op_KrankenscheinNetto True;
/// its other values stay as they were. One quirk of the pay row is kept:
/// MinderSonderBasisGesamt is read from the column MinderLaufendBasisGesamt (its
/// own column is written and never read), so after a save and a load both show
/// MinderLaufendBasisGesamt's value.
class LLohn {
 public:
  /// Every property starts at 0, "" or False by its own initialiser. (The
  /// constructor is defined out of line so that make_shared does not zero the
  /// whole object before the members initialise themselves.)
  LLohn();
  /// Not copyable: the employee list and the host share one object per employee.
  LLohn(const LLohn&) = delete;
  /// Not assignable.
  LLohn& operator=(const LLohn&) = delete;

  /// \name Identity
  ///@{

  /// Identity, set by LoadMitarbeiter.
  ///
  /// Identity, set by LoadMitarbeiter: the key in Mitarbeiter ("" for a blank
  /// employee) and the position in the employee list, from 1.
  const std::string& ID() const { return id_; }
  std::int16_t Index() const { return index_; }
  ///@}

  /// \name Children of the employee
  ///@{

  /// Children, created with the object.
  ///
  /// Children, created with the object; each getter hands out the same object:
  /// the career (Mitarbeiter_Laufbahn), the master record (LLohn_Arbeiter, table
  /// Mitarbeiter), the year data of AktJahr (Mitarbeiter_Jahresdaten), the children
  /// (Mitarbeiter_Kinder) and the document password (Mitarbeiter_PDFEncrypt).
  const std::shared_ptr<LLohn_Laufbahnen>& Laufbahn() const { return laufbahn_; }
  const std::shared_ptr<LLohn_Arbeiter>& Mitarbeiter() const { return mitarbeiter_; }
  const std::shared_ptr<LLohn_Jahresdaten>& Jahresdaten() const { return jahresdaten_; }
  const std::shared_ptr<LLohn_Kinder>& Kinder() const { return kinder_; }
  const std::shared_ptr<LLohn_PDFEncrypt>& PDFEncrypt() const { return pdf_encrypt_; }
  ///@}

  /// \name Monthly children
  ///@{

  /// A monthly child of the employee, month 1 to 12.
  ///
  /// Monthly children, months 1 to 12 (null for 0, std::out_of_range outside
  /// 0..12), each made at its first use and the same object afterwards: the
  /// one-sixth total (Sechstel), the days of casual employment (FB_Fallweise) and
  /// the commuter allowance at a recalculation (PendlerAR), all three columns of
  /// the month's row of Mitarbeiter_Lohnzettel; the transfer (Uebertritt, a row of
  /// Mitarbeiter_Übertritte); the replacement benefits (SV_EL_Laufend, rows of
  /// Mitarbeiter_Lohnzettel_EL) and the short-time record (Kurzarbeit, a row of
  /// Mitarbeiter_Lohnzettel_Kurzarbeit), both below the month's pay row.
  std::shared_ptr<LLohn_Eingabe> Sechstel(int pIndex) const { return sechstel_(pIndex); }
  std::shared_ptr<LLohn_Fallweise> FB_Fallweise(int pIndex) const { return fb_fallweise_(pIndex); }
  std::shared_ptr<LLohn_Übertritt> Uebertritt(int pIndex) const { return uebertritt_(pIndex); }
  std::shared_ptr<LLohn_PendlerAR> PendlerAR(int pIndex) const { return pendler_ar_(pIndex); }
  std::shared_ptr<LLohn_Ersatzleistungen> SV_EL_Laufend(int pIndex) const { return sv_el_laufend_(pIndex); }
  std::shared_ptr<LLohn_Kurzarbeit> Kurzarbeit(int pIndex) const { return kurzarbeit_(pIndex); }
  ///@}
  /// \cond INTERNAL
  // Library-internal: whether SV_EL_Laufend(pIndex) has been made (by its getter or
  // a load), so that a load without rows for the month leaves it unmade.
  bool HasSV_EL_Laufend(int pIndex) const { return sv_el_laufend_.Made(pIndex); }
  /// \endcond

  /// \brief Loads the employee pMitarbeiterID for the manager's AktJahr.
  ///
  /// Loads the employee pMitarbeiterID for the manager's AktJahr: identity, career,
  /// children, then the tables in the order master record, bank details, wage-type
  /// lines, pay record, transfers, year data, document password.
  ///
  /// Reads tables Mitarbeiter_Laufbahn (with DM_Austrittsgründe of the reference
  /// store), Mitarbeiter_Kinder, Mitarbeiter_Kinder_ZB, Mitarbeiter,
  /// Mitarbeiter_Bankverbindung, Mitarbeiter_Lohnarten, Mitarbeiter_Lohnzettel (with
  /// Mitarbeiter_Lohnzettel_EL and Mitarbeiter_Lohnzettel_Kurzarbeit per month
  /// found), Mitarbeiter_Übertritte, Mitarbeiter_Jahresdaten and
  /// Mitarbeiter_PDFEncrypt of AktDB. A load sets only what it finds; a failure
  /// of the store unwinds to the caller.
  void LoadMitarbeiter(clsManager& Manager, const std::string& pMitarbeiterID, std::int16_t pIndex);
  /// \brief Writes the tables that pUpdate flags (eUpdateConstants; 0: all).
  ///
  /// Writes the tables that pUpdate flags (0: all) in the fixed order of the load.
  /// pMonat reaches the pay record only (0: AktMonat); the wage-type lines always
  /// take AktMonat. Career and children are not written here.
  ///
  /// Writes the row of the employee in Mitarbeiter (never inserting it: a deleted
  /// row is not made anew, and nothing says so) and in Mitarbeiter_Bankverbindung;
  /// the 40 rows of AktMonat in Mitarbeiter_Lohnarten (whatever month pMonat
  /// names); the row of the month in Mitarbeiter_Lohnzettel with its row of
  /// Mitarbeiter_Lohnzettel_Kurzarbeit (blank or not) and its rows of
  /// Mitarbeiter_Lohnzettel_EL (deleted and inserted anew); the row of AktMonat in
  /// Mitarbeiter_Übertritte; the row of AktJahr in Mitarbeiter_Jahresdaten; the row
  /// of Mitarbeiter_PDFEncrypt. Every column of a row is written, changed or not.
  /// Each record's save is one write transaction; a failure keeps what was written
  /// before it. The save of a pay month refuses a figure that is NaN or infinite
  /// (ConversionError naming table, column and row) before it writes anything.
  void Update(clsManager& Manager, int pUpdate = ucAllTables, std::int16_t pMonat = 0);
  /// Reads the flagged tables (0: all) again; career and children stay as they are.
  /// Reads the tables that Update would write for the same flags, for AktJahr.
  void Refresh(clsManager& Manager, int pUpdate = ucAllTables);

  /// The contribution account in force for the period: the newest entry of
  /// Mitarbeiter_Beitragskonto not after it, "" when there is none. Reads table
  /// Mitarbeiter_Beitragskonto (which the host writes).
  std::string BeitragskontoID(clsManager& Manager, std::int32_t pZeitraum) const;

  /// \name The marked parts of the wage-type lines
  ///@{

  /// The marked part of a group of wage-type lines in a month.
  ///
  /// The marked part of a month's amount of wage-type lines, when the month's lines
  /// of the group add up to the base amount (both rounded to 2 decimals); else 0.
  /// A line's amount is ZSL_Anzahl x ZSL_Satz (to 2 decimals) + ZSL_Betrag; it
  /// counts when its flag is set. GetDBDZKST_frei: group 1 against LFD_Bezuege,
  /// flag ZSL_DBDZKST_frei; GetTeuerungsprämie and GetTeuerungsprämieKV: group 2
  /// against LFD_Bezuege_LS_frei; GetMitarbeitergewinnbeteiligung: group 3
  /// against LFD_Bezuege_LS_frei_pfl. In memory only; nothing is read.
  double GetDBDZKST_frei(std::int16_t pMonat) const;
  double GetTeuerungsprämie(std::int16_t pMonat) const;
  double GetTeuerungsprämieKV(std::int16_t pMonat) const;
  double GetMitarbeitergewinnbeteiligung(std::int16_t pMonat) const;
  ///@}

  /// The birth date, a day count (column Geburtsdatum of Mitarbeiter).
  double Geb_Datum = 0;

  /// \name Options and output selections (table Mitarbeiter)
  ///@{

  /// Options and output selections of the employee (16-bit; a flag holds True as -1).
  /// Columns of Mitarbeiter: the `p...` selections, IsEhepartner, Malus_Monat and
  /// KinderWegfallFB under their own names, the `op_...` options under their name
  /// without `op_` (op_ForstarbeiterLand is the column ForstarbeiterLand). Two
  /// are kept as they always were: ForstarbeiterLandWF is read only where
  /// op_ForstarbeiterLand is not 0 (else it loads as 0, and the next save writes
  /// False over the column), and ForstarbeiterKULK is read as a number but saved
  /// as a flag (any value but 0 comes back as -1).
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
  ///@}

  /// \name Bank details and base-value folder
  ///@{

  /// Bank details and the base-value folder. BankName, IBAN and BIC are the
  /// columns Bank, IBAN and BIC of Mitarbeiter_Bankverbindung (a row is made at
  /// the first save); BasisID is the column BasisID of Mitarbeiter, the folder of
  /// base values (clsBasisdaten::Item) whose tables hold for this employee. A
  /// BasisID that is no ID is stored as Null and reads back as "".
  std::string BankName;
  std::string BasisID;
  std::string IBAN;
  std::string BIC;
  ///@}

  /// \name Flags of the employee
  ///@{

  /// Flags of the employee. E18_TestMeldung lives in memory only: no table holds it.
  /// Barauszahler is a column of Mitarbeiter_Bankverbindung; the Partner... flags
  /// are the columns Partner_WegfallÄnderung, Partner_AlleinlaufendeJahr and
  /// Partner_AlleinFolgendeJahr of Mitarbeiter; the others columns of Mitarbeiter
  /// of their own name.
  bool E18_TestMeldung = false;
  bool PartnerWegfallÄnderung = false;
  bool PartnerAlleinlaufendeJahr = false;
  bool PartnerAlleinFolgendeJahr = false;
  bool Barauszahler = false;
  bool AuswahlBNW = false;
  bool AnzeigeVNWErsteintritt = false;
  bool Neuanlage = false;
  bool Anonymize = false;
  ///@}

  /// \name Pay month: figures in double precision (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 0 to 12, double precision (dates as day counts).
  ///
  /// Month arrays 0 to 12, double precision (dates as day counts): X(m) is the
  /// column X of the row of month m of AktJahr in Mitarbeiter_Lohnzettel, except
  /// Von_Datum and Bis_Datum, the columns Abrechnung_Von and Abrechnung_Bis (day
  /// counts). The four Minder...Gesamt figures are rounded to 2 decimals on save;
  /// the others are stored as they stand. MinderSonderBasisGesamt loads from the
  /// column MinderLaufendBasisGesamt (see the class). Element 0 is never loaded
  /// or saved.
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
  ///@}

  /// \name Pay month: amounts in single precision (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 0 to 12, single precision.
  ///
  /// Month arrays 0 to 12, single precision: the amounts of a month, rounded to 2
  /// decimals on save only (SZUB_Bauarbeiter on load too). X(m) is the column X of
  /// the row of month m, with the umlauts of the column written out in the name:
  /// Ueberst__50, UeBasis, Ueberst_100, Ueberst__xx and Ueberst_pauschale are the
  /// columns Überstunden_50, Überstunden_Basis, Überstunden_100, Überstunden_XX
  /// and Überstundenpauschale; LFD_Bezuege... and sonst_Bezuege, Bezuege_Wert are
  /// LFD_Bezüge..., sonst_Bezüge, Bezüge_Wert; Einmalpraemie and Jubilaeumsgeld
  /// are Einmalprämie and Jubiläumsgeld; UeZBasis_50 and UeZBasis100 are
  /// ÜZBasis_50 and ÜZBasis_100. op_Frei_FreibetragsEingabe is an amount, not a
  /// flag. Element 0 is never loaded or saved.
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
  ///@}

  /// \name Pay month: flags (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 0 to 12, boolean.
  ///
  /// Month arrays 0 to 12, boolean: columns of the month's row of the same name,
  /// but LST_AufRollenWertEingabe (column LST_AufRollenWert_Eingabe) and
  /// op_Covid19Bonus (column Covid19Bonus). Stored as -1 and 0.
  MonthArray<bool> LST_AufRollenWertEingabe{"LST_AufRollenWertEingabe"};
  MonthArray<bool> op_AngestellterSonderfallNurWF{"op_AngestellterSonderfallNurWF"};
  MonthArray<bool> op_FamilienbonusPlus{"op_FamilienbonusPlus"};
  MonthArray<bool> op_Covid19Bonus{"op_Covid19Bonus"};
  MonthArray<bool> Aushilfskraft{"Aushilfskraft"};
  MonthArray<bool> KontrollSechstelRechnen{"KontrollSechstelRechnen"};
  MonthArray<bool> EingabeSperre{"EingabeSperre"};
  MonthArray<bool> op_Altersteilzeit{"op_Altersteilzeit"};
  MonthArray<bool> Jobticket_Check{"Jobticket_Check"};
  ///@}

  /// \name Pay month: options, day counts and entry flags (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 0 to 12, 16-bit (options and _Eingabe flags hold True as -1).
  /// Columns of the month's row of the same name, with the umlauts of the column
  /// written out in the name (UeBasis_Eingabe: Überstunden_Basis_Eingabe,
  /// Ueberst__xx_Prozent: Überstunden_XX_Prozent, Gehaelter: Gehälter,
  /// op_Geschaeftsfuehrer: op_Geschäftsführer, op_RAWAnwaerter: op_rAWAnwärter,
  /// UeZBasis_50_Eingabe: ÜZBasis_50_Eingabe), and these of other names:
  /// Lst_AbfertigungEingabe is LST_Abfertigung_Eingabe, op_mBeschaeftigt is
  /// op_GFBeschäftigt, op_U_Bahn is op_UBahn, FallweiseKörperTätigkeit55 is
  /// FallweiseKoerperTaetigkeit55. Ueberst__50_Prozent and Ueberst_100_Prozent
  /// (columns Überstunden_50_Prozent, Überstunden_100_Prozent) are read as amounts
  /// and rounded to whole numbers. Element 0 is never loaded or saved.
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
  ///@}

  /// The pay day of a month, 32-bit: the column Zahltag of the month's row.
  MonthArray<std::int32_t> Zahltag{"Zahltag"};

  /// \name Pay month: texts (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 0 to 12, text, stored as they stand. Text1 to Text8 are the
  /// headings of the wage-type groups 1 to 6, of the special payments and of the
  /// one-off bonus: columns Bezüge_LST_pfl_SV_pfl_Text, Bezüge_LST_frei_SV_frei_Text,
  /// Bezüge_LST_frei_SV_pfl_Text, Bezüge_LST_pfl_SV_frei_Text,
  /// Zulagen_LST_frei_SV_pfl_Text, Zulagen_LST_frei_SV_frei_Text,
  /// Sonderzahlungen_Text and Einmalprämie_Text; Beitragsgruppe and Jobticket_Text
  /// are columns of their own name.
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
  ///@}

  /// \name Pay month: arrays of months 1 to 12 (Mitarbeiter_Lohnzettel)
  ///@{

  /// Month arrays 1 to 12: there is no element 0 (index 0 is std::out_of_range).
  /// Columns Sonstige_Abzüge_Text (a text) and op_PendlerDrittel (16-bit).
  Month1Array<std::string> Sonstige_Abzuege_Text{"Sonstige_Abzuege_Text"};
  Month1Array<std::int16_t> op_PendlerDrittel{"op_PendlerDrittel"};
  ///@}

  /// \name Wage-type lines of the groups 7 and 8 (Mitarbeiter_Lohnarten)
  ///@{

  /// Wage-type lines of the groups 7 and 8, and the markings of a line.
  ///
  /// Wage-type lines of the groups 7 and 8 (line 1 to 5, month 0 to 12), and the
  /// markings of a line (group-specific: one flag per line and month).
  /// A row of Mitarbeiter_Lohnarten per month (Zeitraum), group (Lohnarttyp, 7
  /// Sonstige_Abzüge_Zusatz or 8 Aufwandsentschädigung_Zusatz) and line (SortNr):
  /// ..._text is the column Bezeichnung, ..._Anzahl Anzahl (2 decimals in the
  /// store), ..._Satz Satz (3 decimals), ..._Betrag Betrag (2 decimals). The
  /// ZSL_... flags are the columns of their own name on the lines of group 1
  /// (ZSL_DBDZKST_frei), 2 (ZSL_Teuerungsprämie, ZSL_TeuerungsprämieKV) and 3
  /// (ZSL_Mitarbeitergewinnbeteiligung). A save writes all 40 lines of AktMonat.
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
  ///@}

  /// \name Wage-type lines of the groups 1 to 6 (Mitarbeiter_Lohnarten)
  ///@{

  /// Wage-type lines of the groups 1 to 6 (group 1 to 6, line 1 to 5, month 0 to 12).
  /// The group is eLohnartenConstants 1 to 6 (column Lohnarttyp), the line the
  /// column SortNr: ZSL_Text is Bezeichnung, ZSL_Anzahl Anzahl (2 decimals in the
  /// store), ZSL_Satz Satz (3), ZSL_Prozent Zuschlag_Prozent (3), ZSL_Betrag
  /// Betrag (2). A load fills only the lines it finds; a save writes the lines of
  /// AktMonat only.
  MonthGrid3<std::string, 1, 6, 1, 5> ZSL_Text{"ZSL_Text"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Anzahl{"ZSL_Anzahl"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Satz{"ZSL_Satz"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Prozent{"ZSL_Prozent"};
  MonthGrid3<float, 1, 6, 1, 5> ZSL_Betrag{"ZSL_Betrag"};
  ///@}

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
