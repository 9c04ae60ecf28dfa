#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/children/kind.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

class Recordset;

/// The children of one employee, by birth date, and the monthly
/// questions of the bonus selection: for which children the family bonus (FABO) or
/// the sole-earner allowance (AVAB, "AVAE" in the names) holds in a month, for which
/// it ended, and for which its terms changed against the entry before.
///
/// The questions read the store anew on each call (the loaded histories play no
/// part, but for the children without any entry in GetAVAEKinder) and hand out the
/// children of this list. Their tests differ on purpose, and payroll hosts rely on
/// each difference:
/// - GetFABOKinderWegfall reports a loss in every month until a newer entry replaces
///   it; GetAVAEKinderWegfall only in the month of the entry itself.
/// - GetFABOKinderAenderung compares the new country in upper case with the old one
///   as stored (an old entry in lower case always counts as a change);
///   GetAVAEKinderAenderung compares both in upper case, and looks at nothing else.
/// - The family-bonus questions count a child up to and including the month it turns
///   18 (the month is reckoned from the birth date as a whole day number), and after
///   it only with FABO18.
///
/// Reads tables Mitarbeiter_Kinder and Mitarbeiter_Kinder_ZB (the host writes
/// them). A question that finds nothing answers with an empty selection, never an
/// unset one.
class LLohn_Kinder {
 public:
  /// A child, shared: the object of the list, not a copy.
  using KindPtr = std::shared_ptr<LLohn_Kind>;
  /// What a question answers: children of this list, each under its ID, in the
  /// order of the list. Never unset; empty when the list has no session.
  using Auswahl = Collection<LLohn_Kind>;

  /// An empty list without session; LLohn binds its own at LoadMitarbeiter.
  LLohn_Kinder();

  /// Reads the employee's children by birth date, each with its history. A value
  /// that cannot be read (a birth date that is no date, a text in a numeric column)
  /// is a StoreError naming table, column and the row's ID; the list is then left
  /// empty. A birth date that is Null reads as date 0. Reads Mitarbeiter_Kinder and,
  /// per child, Mitarbeiter_Kinder_ZB.
  void Load();
  /// Empties the list in memory.
  void Clear();
  /// By position from 1 or by ID; KeyNotFound for one not in the list.
  const KindPtr& Item(const Variant& pIndex) const;

  /// Entry in force with FB_Bezieher neither Wegfall nor Unterhaltszahler, a bonus,
  /// and the age rule.
  Auswahl GetFABOKinderOhneUnterhaltszahler(std::int32_t pZeitraum) const;
  /// Entry in force with FB_Bezieher Unterhaltszahler, a bonus, and the age rule.
  Auswahl GetFABOKinderUnterhaltszahler(std::int32_t pZeitraum) const;
  /// Entry in force with FB_Bezieher not Wegfall, a bonus, and the age rule.
  Auswahl GetFABOKinder(std::int32_t pZeitraum) const;
  /// Entry in force without bonus after an entry with one.
  Auswahl GetFABOKinderWegfall(std::int32_t pZeitraum) const;
  /// An entry beginning in pZeitraum with a bonus, after an entry with one, that
  /// differs in FB_Bezieher, in FABO, or in its upper-case KFZ against the old KFZ.
  Auswahl GetFABOKinderAenderung(std::int32_t pZeitraum) const;
  /// Every child without any entry in its loaded history, then those whose entry in
  /// force has FB_Bezieher not Wegfall and AVAB.
  Auswahl GetAVAEKinder(std::int32_t pZeitraum) const;
  /// The entry of exactly pZeitraum has FB_Bezieher Wegfall or no AVAB.
  Auswahl GetAVAEKinderWegfall(std::int32_t pZeitraum) const;
  /// An entry beginning in pZeitraum with FB_Bezieher not Wegfall, after one with an
  /// entitlement, whose KFZ differs in upper case.
  Auswahl GetAVAEKinderAenderung(std::int32_t pZeitraum) const;

  /// \name Iteration
  ///@{

  /// The children by birth date.
  Collection<LLohn_Kind>::const_iterator begin() const { return children_.begin(); }
  Collection<LLohn_Kind>::const_iterator end() const { return children_.end(); }
  ///@}
  /// The number of children.
  long Count() const { return children_.Count(); }

  /// \cond INTERNAL
  // Library-internal: binds the list to the session and the employee, once, before Load.
  void InitKinder(const std::shared_ptr<clsManager>& manager, const std::string& employee_id) {
    manager_.Set(manager);
    employee_id_ = employee_id;
  }
  const std::string& EmployeeID() const { return employee_id_; }
  /// \endcond

 private:
  struct Frame;
  /// Runs a question: the join of children and entries for the employee with the
  /// period clause and the ordering, each child of the list looked at in turn; a
  /// hit is added to `result`.
  Auswahl Select(const Frame& frame, std::int32_t pZeitraum, Auswahl result) const;

  ManagerRef manager_;
  std::string employee_id_;
  Collection<LLohn_Kind> children_;
};

}  // namespace ormelix
