#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/session/manager.h"

namespace ormelix {

/// The order of clsMitarbeiter::Load: by Personalnummer, or by family name and first
/// name (columns of Mitarbeiter). Any value but lcName sorts by Personalnummer.
enum eSortOrderMitarbeiter {
  lcPersonalnummer = 1,  ///< by the column Personalnummer
  lcName = 2             ///< by Familienname, then VorName
};

/// The employees of the current employer, one fully loaded LLohn per
/// employee who passes the year filter, in sort order, keyed by ID. Created once
/// with the session; each Load fills it anew.
///
/// Reached as clsManager::Mitarbeiter. Reads table Mitarbeiter (the employer's
/// rows), Mitarbeiter_Laufbahn and Mitarbeiter_Lohnzettel_EL (for the year
/// filter), then every table of an employee through LLohn::LoadMitarbeiter.
class clsMitarbeiter {
 public:
  /// An empty list; the session makes the one it hands out.
  clsMitarbeiter() : entries_("the employee list"), empty_employee_(std::make_shared<LLohn>()) {}

  /// \cond INTERNAL
  // Library-internal: the session gives its back reference once, at creation.
  void SetManager(const std::shared_ptr<clsManager>& manager) { manager_.Set(manager); }
  /// \endcond

  /// Called by Load after each employee row of the employer, with the rows done and
  /// the rows in all, so that a host can show how far a long load has come. An
  /// empty function (the default) is not called.
  void SetProgress(std::function<void(long done, long total)> progress) { progress_ = std::move(progress); }

  /// How many employees Load reads ahead together: their rows of each table in
  /// one statement (on a server, all tables at once: two waits for the server per
  /// so many employees instead of some thirty per employee), held until each
  /// employee is loaded from them and gone when Load returns.
  ///
  /// The default, kReadAheadOfTheStore, takes as many as suit the store (a
  /// thousand on a server, a hundred on SQLite); 0 reads each employee's rows on
  /// their own. The loaded list is the same either way.
  void SetReadAhead(std::size_t employees) { read_ahead_ = employees; }
  /// SetReadAhead's default: as many employees as suit the store.
  static constexpr std::size_t kReadAheadOfTheStore = static_cast<std::size_t>(-1);

  /// Reads the flagged tables (eUpdateConstants, 0: all) of every employee again
  /// (LLohn::Refresh).
  void Refresh(int pRefresh);
  /// Empties the list, then loads every employee of the current employer who
  /// belongs to the year pFilterAbrechnungsjahr (0: all of them): one whose last
  /// career step up to the year's end is no exit, whose exit falls into the year,
  /// who is marked Neuanlage, or who has a replacement benefit in the year. Each
  /// LLohn loads the pay records of the session's AktJahr. Fails (ormelix::Error)
  /// when no employer is selected.
  ///
  /// Reads tables Mitarbeiter (WHERE MandantenID is AktMandant's), Mitarbeiter_Laufbahn
  /// and Mitarbeiter_Lohnzettel_EL with Mitarbeiter_Lohnzettel for the filter, then
  /// each employee's tables (LLohn::LoadMitarbeiter), all in one read snapshot.
  void Load(std::int16_t pFilterAbrechnungsjahr, eSortOrderMitarbeiter pSortOrder = lcPersonalnummer);
  /// Inserts a row for the current employer, saves the master data, bank details
  /// and year data of pLohn under its new ID, loads the list again and replaces
  /// pLohn by the freshly loaded object of the list. Pay records, wage-type lines,
  /// career and children of pLohn are not saved. If the year filter leaves the new
  /// employee out, the row exists and the lookup fails with KeyNotFound.
  ///
  /// Inserts a row into Mitarbeiter (MandantenID of AktMandant), writes the rows of
  /// Mitarbeiter, Mitarbeiter_Bankverbindung and Mitarbeiter_Jahresdaten, then reads
  /// as Load does.
  void Add(std::shared_ptr<LLohn>& pLohn, std::int16_t pFilterAbrechnungsjahr,
           eSortOrderMitarbeiter pMSortOrder = lcPersonalnummer);

  /// An ID (IsID) or a number goes to the list: a number by position from 1, an ID
  /// by key, failing with KeyNotFound for one that is not there. Anything else gives
  /// the blank employee.
  std::shared_ptr<LLohn> Item(const Variant& pIndex) const;
  /// The number of employees in the list.
  long Count() const { return entries_.Count(); }
  /// True when the employee is in the list: pIndex is an ID, or a number taken as
  /// the SortNr of the current employer's employee (reads table Mitarbeiter). Never
  /// fails.
  bool Exist(const std::string& pIndex) const;
  /// The social-insurance base of the marginally employed staff in the month: for
  /// each employee with op_mBeschaeftigt, SV_Laufend_Basis_Berechnet plus BV_Basis
  /// of the first replacement benefit of the month, if there is one.
  double SUM_SV_Laufend_Basis(std::int16_t pMonat) const;

  /// \name Iteration
  ///@{

  /// Iteration over the LLohn objects in list order (NewEnum).
  Collection<LLohn>::const_iterator begin() const { return entries_.begin(); }
  Collection<LLohn>::const_iterator end() const { return entries_.end(); }
  ///@}

 private:
  std::string GetIDBySortNr(const std::string& pSortNr) const;

  ManagerRef manager_;
  std::function<void(long, long)> progress_;
  std::size_t read_ahead_ = kReadAheadOfTheStore;
  Collection<LLohn> entries_;
  std::shared_ptr<LLohn> empty_employee_;
};

}  // namespace ormelix
