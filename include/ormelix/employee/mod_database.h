/// \file
/// modDatabase: the routines that read and write the employee's tables, field by
/// field. LLohn and clsMitarbeiter call them; each takes the session (for AktDB,
/// AktJahr and AktMonat), the employee object and the employee's ID.
///
/// A load writes only what it finds (the pay record alone sets defaults for a month
/// without a row); a save writes every column of its row. Nothing is caught: a store
/// failure goes to the caller, and what was written before it stays.
#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/columns.h"

namespace ormelix {

class clsManager;
class LLohn;
class LLohn_Ersatzleistung;
class LLohn_Ersatzleistungen;
class LLohn_Jahresdaten;
class LLohn_Kurzarbeit;
class LLohn_Übertritt;

/// \brief The table routines of the employee's tables, field by field, and their
/// column declarations.
///
/// LLohn and clsMitarbeiter call them; each takes the session (for AktDB, AktJahr
/// and AktMonat), the employee object and the employee's ID. A load writes only what
/// it finds; a save writes every column of its row; nothing is caught.
namespace modDatabase {

// ---- Mitarbeiter and Mitarbeiter_Bankverbindung

/// Reads the row of Mitarbeiter into LLohn::Mitarbeiter and LLohn's own columns; no
/// row sets nothing.
void LoadMitarbeiterRecord(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes the row in two steps (up to SVNRAnforderungsID, then the rest); a missing
/// row is not inserted, and nothing is reported.
void SaveMitarbeiterRecord(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Inserts a bare row for the current employer and gives its ID.
std::string InsertMitarbeiterRecord(clsManager& pManager);
/// Reads the employee's row of Mitarbeiter_Bankverbindung into BankName, IBAN, BIC
/// and Barauszahler; no row leaves them.
void LoadBankverbindung(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes the bank row, creating it when the employee has none.
void SaveBankverbindung(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);

// ---- Mitarbeiter_Lohnzettel

/// Reads the twelve months of AktJahr from one query; a month without a row gets the
/// defaults (UE_Laufend_Tage 30, op_Angestellter True, op_KrankenscheinNetto True in
/// November) and keeps its other values.
void LoadLohnzettel(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes one month (pMonat, or AktMonat for 0) under AktJahr, with its replacement
/// benefits and short-time record.
void SaveLohnzettel(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID, std::int16_t pMonat);

// ---- Mitarbeiter_Jahresdaten

/// Reads the row of the employee and AktJahr into Jahresdaten; without a row the
/// object keeps what it held (also the values of another year).
void LoadJahresdaten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes Jahresdaten to the row of the employee and AktJahr, inserting it when
/// there is none.
void SaveJahresdaten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);

// ---- Mitarbeiter_Lohnarten

/// Reads the lines of the twelve months of AktJahr (one query, picked by month and
/// group). Lines without a row keep their values; a SortNr outside 1..5 is the
/// range failure of the line (std::out_of_range naming the row).
void LoadLohnarten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes the full grid of 40 rows (8 groups of 5 lines) of AktMonat, whatever
/// month the caller works on: existing rows of a group in the order of SortNr, new
/// ones where a group has fewer. Rows whose SortNr is no line 1..5 stay untouched.
void SaveLohnarten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);

// ---- Mitarbeiter_Übertritte

/// Reads the transfers of the twelve months of AktJahr into Uebertritt(1..12), from
/// one query of all the employee's rows picked by month; a month without a row keeps
/// what its object held, and of several rows of a month the last one wins.
void LoadUebertritte(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes Uebertritt(AktMonat) to the row of AktMonat, inserting it when there is
/// none; the rows of other months stay as they are.
void SaveUebertritte(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);

// ---- Mitarbeiter_PDFEncrypt (in the employer area, with the document protection)

/// Reads the employee's password into PDFEncrypt; without a row it stays as it was.
/// An ID goes into the statement as it stands, any other key in its SqlID form.
void LoadPDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);
/// Writes the password row, inserting it when there is none, also for an empty password.
void SavePDFEncrypt(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID);

// ---- Mitarbeiter_Lohnzettel_EL (in the benefits area)

/// Fills the list of a month with the replacement benefits of the pay row, in the
/// order of their periods (the list is emptied first). Two benefits of one period
/// cannot both be held: the second fails the list's Add.
void LoadErsatzleistungen(clsManager& pManager, LLohn_Ersatzleistungen& pListe, const std::string& pLohnzettelID);
/// The same into SV_EL_Laufend(pMonat) of the employee, as the pay record's load
/// does it: a list not made yet is made only when the pay row has benefits.
void LoadErsatzleistungen(clsManager& pManager, LLohn& pLohn, std::int16_t pMonat, const std::string& pLohnzettelID);
/// Deletes every replacement benefit of the pay row and inserts SV_EL_Laufend(pMonat)
/// anew (each row gets a new ID; the objects keep the IDs of their load). An empty
/// list leaves the pay row with none. A benefit with an amount that is no finite
/// number is refused before anything is deleted.
void SaveErsatzleistungen(clsManager& pManager, LLohn& pLohn, const std::string& pLohnzettelID, std::int16_t pMonat);
/// ConversionError naming the table, the column and the benefit if one would be
/// written with NaN or an infinite amount.
void RequireStorableErsatzleistungen(const LLohn_Ersatzleistungen& pListe, const std::string& pRow);

// ---- Mitarbeiter_Lohnzettel_Kurzarbeit (in the shorttime area)

/// Reads the short-time row of the pay row into the record; without a row the
/// record stays as it is.
void LoadKurzarbeit(clsManager& pManager, LLohn_Kurzarbeit& pKurzarbeit, const std::string& pLohnzettelID);
/// The same into Kurzarbeit(pMonat) of the employee, made only when there is a row.
void LoadKurzarbeit(clsManager& pManager, LLohn& pLohn, std::int16_t pMonat, const std::string& pLohnzettelID);
/// Writes the record to the short-time row of the pay row, inserting it when there
/// is none. StundenVorKurzarbeit goes in as its getter gives it.
void SaveKurzarbeit(clsManager& pManager, LLohn_Kurzarbeit& pKurzarbeit, const std::string& pLohnzettelID);

// ---- The column declarations of the employee's own tables, in table order. They
// drive load and save; tests walk them too.

/// One month of one employee: the target of a row of Mitarbeiter_Lohnzettel.
struct LohnzettelMonth {
  LLohn* lohn;  ///< the employee
  int month;    ///< the month, 1 to 12
};

/// \name Column declarations
///@{

/// The column declarations of the employee's tables.
///
/// The columns of a table of the employee, in table order, each with the property
/// it feeds and its conversions: Mitarbeiter, Mitarbeiter_Bankverbindung,
/// Mitarbeiter_Lohnzettel (one month), Mitarbeiter_Jahresdaten,
/// Mitarbeiter_Übertritte, Mitarbeiter_Lohnzettel_EL and
/// Mitarbeiter_Lohnzettel_Kurzarbeit. A tool walks them to show or compare every
/// stored value of a record.
const ColumnSet<LLohn>& MitarbeiterColumns();
const ColumnSet<LLohn>& BankverbindungColumns();
const ColumnSet<LohnzettelMonth>& LohnzettelColumns();
const ColumnSet<LLohn_Jahresdaten>& JahresdatenColumns();
const ColumnSet<LLohn_Übertritt>& UebertritteColumns();
const ColumnSet<LLohn_Ersatzleistung>& ErsatzleistungColumns();
const ColumnSet<LLohn_Kurzarbeit>& KurzarbeitColumns();
///@}

/// One line of one wage-type group in one month: the target of a row of
/// Mitarbeiter_Lohnarten.
struct LohnartenLine {
  LLohn* lohn;  ///< the employee
  int group;  ///< Lohnarttyp, 1 to 8 (eLohnartenConstants)
  int line;   ///< SortNr, 1 to 5
  int month;  ///< the month, 1 to 12
};

/// The columns that a row of the group reads and writes: groups 1 to 6 the ZSL_
/// grids with their percentage and the flags of the group, group 7 the SonstigeAbz_
/// grids, group 8 the Aufwandsentsch_ grids. std::out_of_range for another group.
const ColumnSet<LohnartenLine>& LohnartenColumns(int pLohnarttyp);

}  // namespace modDatabase
}  // namespace ormelix
