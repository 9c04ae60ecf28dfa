#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/career/laufbahn.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

class Recordset;

/// The selection of LaufbahnschritteImZeitraum. 1 to 3 leave out the employments
/// that began in another way: 1 those that began casual or fixed-term, 2 those that
/// did not begin fixed-term, 3 those that did not begin casual.
enum eAusgabeLaufbahnen : std::int32_t {
  eALBAlle = 0,
  eALBNurNormalBeschäftigt = 1,
  eALBNurBefristetBeschäftigt = 2,
  eALBNurFallweiseBeschäftigt = 3
};

/// The career of one employee, its steps in date order as the rows
/// of Mitarbeiter_Laufbahn hold them, and the questions the pay calculation asks of
/// it (which step holds for a month, is it an entry month, which steps fall into a
/// range of months, where is the next exit).
///
/// Two kinds of question. The position walkers (Next..., Previous...) work on the
/// loaded list alone. All others ask the store again for keys and dates and hand out
/// the step of that key from the loaded list, so the list must be loaded and current:
/// a step saved since Load fails the key lookup (KeyNotFound). A step a query hands
/// out is the object of the list, not a copy; a query that finds nothing gives a
/// fresh blank step (or, where named, no object at all).
///
/// Lists made by LaufbahnschritteImZeitraum and LaufbahnschritteImMonat are further
/// objects of this class, holding the steps of this career plus steps made in memory.
///
/// Reads table Mitarbeiter_Laufbahn (the host writes it; the library writes back only
/// the Bef_ figures, UpdateBef), with DM_Austrittsgründe of the reference store, and
/// Mitarbeiter_Beitragskonto for the changes of contribution account.
///
/// What a query gives when it finds nothing (the fall-backs a host must know):
/// - Item: a position outside the list, or a text that is no ID, gives the end
///   marker: one blank step shared by every such call and living as long as the
///   list (a position past the end first sets its WochengeldDatumEnde to the Datum
///   of the last step, so whoever holds it sees the date of the last call). An
///   unknown well-formed ID is KeyNotFound.
/// - Laufbahnschritt, LaufbahnschrittDate, IsEintritt, IsDVRuht (pRetLaufbahn):
///   a fresh blank step (Schritt eLBNone, Zeitraum 189912), also without a session.
/// - Eintritt and Austritt do not give a blank step when their filter finds
///   nothing but one on the other side: Eintritt the earliest entry of all (after
///   the month), Austritt(pkleiner) the earliest exit of all, Austritt() the latest
///   exit. Only a career without such a step at all gives a blank step.
/// - Letzten_Eintritt: a blank step without entries or without a session;
///   Letzten_Austritt: a blank step without exits, but no object (nullptr) without
///   a session.
/// - LaufbahnschritteImZeitraum and LaufbahnschritteImMonat: no object (nullptr)
///   without a session. The list of LaufbahnschritteImZeitraum has no session of
///   its own, so the store queries on it give blank steps; that of
///   LaufbahnschritteImMonat is bound to this session (unbound when the store has
///   no step at all).
/// - The position walkers give 0 for none.
class LLohn_Laufbahnen {
 public:
  /// A step, shared: the object of the list, not a copy.
  using StepPtr = std::shared_ptr<LLohn_Laufbahn>;
  /// A list of steps, shared.
  using ListPtr = std::shared_ptr<LLohn_Laufbahnen>;

  /// An empty career without session; LLohn binds its own at LoadMitarbeiter.
  LLohn_Laufbahnen();

  /// Adds the step under its ID, before the position or key pBefore or after pAfter
  /// when one is given, else at the end. Index stays as it is. A second step with
  /// the same ID is an Error. The result is always Empty.
  Variant AddItem(const StepPtr& pLaufbahn, const Variant& pBefore = {}, const Variant& pAfter = {});

  /// Reads the employee's steps, by Datum and then Nr, with their exit reasons from
  /// DM_Austrittsgründe of the reference store (no reasons when the session has no
  /// reference store). A row whose Datum is Null or no date, or whose column cannot
  /// be read, is a StoreError naming table, column and the row's ID; the list is
  /// then left empty. Reads Mitarbeiter_Laufbahn (and DM_Austrittsgründe).
  void Load();

  /// Writes the Bef_ figures of the step to its row. Bef_Tage goes to both Bef_Tage
  /// columns; both Bef_EL_Kalendertage columns get ELKalendertage (what their
  /// getters give). False, never a failure, when the step is unset, its row is gone
  /// or the store refuses the write. Writes the step's row of Mitarbeiter_Laufbahn.
  bool UpdateBef(const StepPtr& pLaufbahn);
  /// Removes by position or key; False, never a failure, for one not in the list.
  bool Remove(const Variant& pIndex);
  /// Empties the list in memory; nothing is deleted in the store.
  void Clear();

  /// The step at a position from 1 or with an ID. Any position outside the list
  /// (and any text that is no ID) gives the end marker, one blank step that lives
  /// as long as the list; a position past the end first sets its
  /// WochengeldDatumEnde to the Datum of the last step. An unknown ID is KeyNotFound.
  StepPtr Item(const Variant& pIndex) const;
  /// The number of steps in the list.
  long Count() const { return steps_.Count(); }
  /// \name Iteration
  ///@{

  /// The steps in list order (date order after Load).
  Collection<LLohn_Laufbahn>::const_iterator begin() const { return steps_.begin(); }
  Collection<LLohn_Laufbahn>::const_iterator end() const { return steps_.end(); }
  ///@}

  /// \name Position walkers, forward (the loaded list only)
  ///@{

  /// The position walkers: a position, 0 for none or for a pIndex below 1.
  /// Next...: from pIndex + 1 up to Count; the first entry (exit). AustrittImZeitraum
  /// is NextAustritt under another name.
  std::int16_t NextEintritt(std::int16_t pIndex) const;
  std::int16_t NextAustritt(std::int16_t pIndex) const;
  std::int16_t AustrittImZeitraum(std::int16_t pIndex) const;
  ///@}
  /// From pIndex + 1 on: the last suspension passed before the first exit.
  std::int16_t NextAbmeldungImZeitraum(std::int16_t pIndex) const;
  /// \name Position walkers, backward (the loaded list only)
  ///@{

  /// From pIndex + 1 (sic: one place after pIndex) down to 1: the first entry (exit).
  /// With pIndex at Count or beyond, the first read is KeyNotFound.
  std::int16_t PreviousEintritt(std::int16_t pIndex) const;
  std::int16_t PreviousAustritt(std::int16_t pIndex) const;
  ///@}
  /// From pIndex - 1 down to 1: the last suspension passed before the first exit.
  std::int16_t PreviousAbmeldungImZeitraum(std::int16_t pIndex) const;

  /// The step in force at the month's boundary: the latest step (of one day the one
  /// with the highest Nr) up to the last day of the month; with pPrüfeAb1DesMonats up
  /// to the first day, including it only with pPrüfeAb1DesMonateskleinergleich.
  /// Reads Mitarbeiter_Laufbahn; a blank step when nothing matches.
  StepPtr Laufbahnschritt(std::int32_t pZeitraum, bool pPrüfeAb1DesMonats,
                          bool pPrüfeAb1DesMonateskleinergleich) const;
  /// The latest step up to and including the day. Reads Mitarbeiter_Laufbahn; a
  /// blank step when nothing matches.
  StepPtr LaufbahnschrittDate(Date pDatum) const;
  /// Does an entry (a suspension) decide the month? The earliest one of the month,
  /// or, when the month has none, the last step before the month if it is one.
  /// pRetLaufbahn gets that step, or a blank one. Reads Mitarbeiter_Laufbahn.
  bool IsEintritt(std::int32_t pZeitraum, StepPtr& pRetLaufbahn) const;
  /// The same for a suspension (eLBDVRuht).
  bool IsDVRuht(std::int32_t pZeitraum, StepPtr& pRetLaufbahn) const;

  /// The steps that matter for a range of months, from the last step before its
  /// first month on, as a new list without session; with pBKZBerücksichtigen, with
  /// pairs of steps made around each change of contribution account. No object
  /// when this career has no session. Reads Mitarbeiter_Laufbahn, and with
  /// pBKZBerücksichtigen Mitarbeiter_Beitragskonto.
  ListPtr LaufbahnschritteImZeitraum(std::int32_t pVonZeitraum, std::int32_t pBisZeitraum, bool pBKZBerücksichtigen,
                                     eAusgabeLaufbahnen pAusgabeLaufbahn) const;
  /// The steps of a month with the step in force before it, ending with the exit
  /// of an entry that is the last step; a new list bound to this session (unbound
  /// when the store has no step at all). No object when this career has no session.
  /// Reads Mitarbeiter_Laufbahn.
  ListPtr LaufbahnschritteImMonat(std::int32_t pZeitraum) const;

  /// The latest entry up to the end of the month; with none, the earliest entry.
  StepPtr Eintritt(std::int32_t pZeitraum) const;
  /// The same up to and including the day number pDate.
  StepPtr EintrittDate(std::int32_t pDate) const;
  /// pkleiner: the latest exit before the month, else the earliest exit of all.
  /// Otherwise: the earliest exit from the month's first day on, else the latest.
  StepPtr Austritt(std::int32_t pZeitraum, bool pkleiner) const;
  /// The latest entry; a blank step without entries or without a session.
  StepPtr Letzten_Eintritt() const;
  /// The latest exit; no object when this career has no session.
  StepPtr Letzten_Austritt() const;

  /// \cond INTERNAL
  // Library-internal: binds the career to the session and the employee, once,
  // before Load.
  void InitLaufbahnen(const std::shared_ptr<clsManager>& manager, const std::string& employee_id) {
    manager_.Set(manager);
    employee_id_ = employee_id;
  }
  const std::string& EmployeeID() const { return employee_id_; }
  /// \endcond

 private:
  /// "SELECT [ID], [Datum] FROM [Mitarbeiter_Laufbahn] WHERE [MitarbeiterID]=" and the key.
  std::string StepSqlHead() const;
  std::unique_ptr<Recordset> OpenRead(const std::string& sql) const;
  /// The step of the current row's ID, from the loaded list (KeyNotFound if not there).
  StepPtr StepOf(const Recordset& rs) const;
  StepPtr LatestStep(const std::string& filter) const;
  StepPtr FirstOrLast(eLaufbahnschritte schritt, const char* order, const std::string& filter) const;
  bool MonthHasStep(std::int32_t pZeitraum, StepPtr& pRetLaufbahn, eLaufbahnschritte wanted,
                    const char* order) const;
  std::int16_t WalkUp(std::int16_t from, eLaufbahnschritte wanted) const;
  std::int16_t WalkDown(std::int16_t from, eLaufbahnschritte wanted) const;
  std::int16_t LastRestBeforeExit(std::int16_t from, int direction) const;
  /// A new list of the steps with a Datum from start to end, in date order, selected;
  /// any_rows tells whether the store had any step in the range.
  ListPtr StepsBetween(Date start, Date end, eAusgabeLaufbahnen selection, bool& any_rows) const;
  void AddAccountChanges(LLohn_Laufbahnen& list, std::int32_t pVonZeitraum, std::int32_t pBisZeitraum) const;

  ManagerRef manager_;
  std::string employee_id_;
  Collection<LLohn_Laufbahn> steps_;
  StepPtr end_marker_;
};

}  // namespace ormelix
