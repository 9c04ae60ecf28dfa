/// \file
/// LLohn_Ersatzleistung and LLohn_Ersatzleistungen: the replacement benefits of one
/// month of an employee (compensation in lieu of leave and its contributions), rows
/// of Mitarbeiter_Lohnzettel_EL below the monthly pay row.
///
/// A benefit belongs to a pay month but counts for its own period (Zeitraum), often
/// the months after an exit; a month holds at most one per period. The list of a
/// month is LLohn::SV_EL_Laufend(m): loaded in period order with the pay month, and
/// at its save the month's rows are deleted and the list inserted anew, so every row
/// gets a new key. The amounts are the caller's; the library adds up only the sums.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/collection.h"
#include "ormelix/store/value_helpers.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// One replacement benefit of a pay month: a row of Mitarbeiter_Lohnzettel_EL below
/// the month's pay row, each property the column of its own name.
class LLohn_Ersatzleistung {
 public:
  /// The key of the row it was loaded from; nothing refers to it after a save, which
  /// gives every row a new one.
  std::string ID;
  /// The career step (Mitarbeiter_Laufbahn) the benefit belongs to.
  std::string LaufbahnID;
  bool Geringfügig = false;  ///< the benefit is of a marginal employment
  /// The contribution group, as text.
  std::string TarifGruppe;
  std::int16_t SVTage = 0;  ///< the social-insurance days it counts for
  /// The period the benefit counts for; its key in the list, and the order of the rows.
  std::int32_t Zeitraum = 0;
  /// \name Unemployment insurance
  ///@{

  /// The step (ALV_Index), the basis and the contribution of unemployment insurance.
  ///
  /// The step (ALV_Index), the basis and the contribution of unemployment
  /// insurance; amounts double as the caller set them, stored as they stand.
  std::int16_t ALV_Index = 0;
  double ALV_Basis = 0;
  double ALV = 0;
  ///@}
  /// \name Social insurance, current
  ///@{

  /// The basis and the employee's (DN) and employer's (DG) contribution on current pay.
  ///
  /// The basis and the employee's (DN) and employer's (DG) contribution on current
  /// pay; stored as they stand.
  double SV_Laufend_Basis = 0;
  double SV_Laufend_DN = 0;
  double SV_Laufend_DG = 0;
  ///@}
  /// Employee's and employer's share together, not rounded; no column holds it.
  double SV_Laufend_Gesamt() const { return SV_Laufend_DN + SV_Laufend_DG; }
  /// \name Further contributions
  ///@{

  /// A further contribution of the benefit.
  ///
  /// The N70 contributions (employee's and employer's), the relief for new
  /// businesses (NeuFög), the contribution SV_Laufend_DGA, the A22 basis and
  /// amount, and the provision-fund basis, amount, surcharge and percentage
  /// (BV): columns of their own name, stored as they stand.
  double SV_N70_Laufend_DN = 0;
  double SV_N70_Laufend_DG = 0;
  double NeuFög_Laufend = 0;
  double SV_Laufend_DGA = 0;
  double SV_A22_Laufend_Basis = 0;
  double SV_A22_Laufend_Betrag = 0;
  double BV_Basis = 0;
  double BV_Betrag = 0;
  double BV_Zuschlag = 0;
  double BV_Prozent = 0;
  ///@}
};

/// The replacement benefits of one pay month (LLohn::SV_EL_Laufend), keyed by the
/// period each counts for: the rows of Mitarbeiter_Lohnzettel_EL of the month's pay
/// row, loaded in period order and deleted and inserted anew at each save.
class LLohn_Ersatzleistungen {
 public:
  /// A benefit, shared.
  using Ptr = std::shared_ptr<LLohn_Ersatzleistung>;

  /// An empty list.
  LLohn_Ersatzleistungen() : col_("the replacement benefits of a month") {}

  /// Adds the entry at the end under its period as text ("202503"); a second entry
  /// of one period is an Error of the list, and the list stays as it was.
  void Add(const Ptr& pEL) { col_.Add(pEL, ValueHelpers::ToText(Variant(pEL->Zeitraum))); }
  /// By position (from 1) or by key, the period as text; KeyNotFound otherwise.
  void Remove(const Variant& pIndex) { col_.Remove(pIndex); }
  /// Empties the list in memory (the next save of the month deletes the rows).
  void Clear() { col_.Clear(); }
  /// By position (from 1) or by key, the period as text; KeyNotFound otherwise.
  const Ptr& Item(const Variant& pIndex) const { return col_.Item(pIndex); }
  /// The number of benefits.
  long Count() const { return col_.Count(); }
  /// The underlying collection.
  const Collection<LLohn_Ersatzleistung>& Col() const { return col_; }

  /// \name Iteration
  ///@{

  /// The entries in order (NewEnum).
  Collection<LLohn_Ersatzleistung>::const_iterator begin() const { return col_.begin(); }
  Collection<LLohn_Ersatzleistung>::const_iterator end() const { return col_.end(); }
  ///@}

  /// \name Sums
  ///@{

  /// Sums over the entries, from 0, not rounded. The bases and amounts of A22 and BV
  /// have none.
  double ALV_Basis_Gesamt() const { return Sum(&LLohn_Ersatzleistung::ALV_Basis); }
  double ALV_Gesamt() const { return Sum(&LLohn_Ersatzleistung::ALV); }
  double SV_Laufend_Basis_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_Laufend_Basis); }
  double SV_Laufend_DN_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_Laufend_DN); }
  double SV_N70_Laufend_DN_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_N70_Laufend_DN); }
  double SV_N70_Laufend_DG_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_N70_Laufend_DG); }
  double SV_Laufend_DG_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_Laufend_DG); }
  double NeuFög_Laufend_Gesamt() const { return Sum(&LLohn_Ersatzleistung::NeuFög_Laufend); }
  double SV_Laufend_DGA_Gesamt() const { return Sum(&LLohn_Ersatzleistung::SV_Laufend_DGA); }
  ///@}

 private:
  double Sum(double LLohn_Ersatzleistung::*amount) const {
    double sum = 0;
    for (const Ptr& entry : col_) sum += (*entry).*amount;
    return sum;
  }

  Collection<LLohn_Ersatzleistung> col_;
};

}  // namespace ormelix
