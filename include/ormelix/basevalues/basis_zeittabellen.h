#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/basevalues/basis.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The dated tables of one folder, ascending by period, and
/// the answer to the central question of the base values: which table holds for a
/// month (GetZeittabelle).
///
/// The rows of Basiswerte_Zeittabelle whose BasisID is the folder's, each with
/// its sub-tables (LBasis).
class clsBasisZeittabellen {
 public:
  /// An empty list; each folder makes its own.
  clsBasisZeittabellen() : tables_("the dated tables") {}

  /// By position from 1 or by ID; KeyNotFound for an unknown one. No names here.
  const std::shared_ptr<LBasis>& Item(const Variant& pIndex) const { return tables_.Item(pIndex); }
  /// \name Iteration
  ///@{

  /// The tables in ascending order of period.
  Collection<LBasis>::const_iterator begin() const { return tables_.begin(); }
  Collection<LBasis>::const_iterator end() const { return tables_.end(); }
  ///@}
  /// The number of tables loaded.
  long Count() const { return tables_.Count(); }
  /// Deletes every table of the folder in the store (the sub-tables go by cascade)
  /// and in memory, one at a time.
  void Clear();
  /// Deletes the table in the store and in memory; an unknown ID does nothing.
  void Remove(const std::string& pID);
  /// True if the list holds the key and its entry's ID is pID; never fails.
  bool Exist(const std::string& pID) const;
  /// True if the store has a table of the folder with that period (reads
  /// Basiswerte_Zeittabelle).
  bool ExistZeitraum(std::int32_t pZeitraum) const;
  /// Saves the table (with all sub-objects) into this folder and puts it at its place.
  /// Writes Basiswerte_Zeittabelle and the sub-tables.
  void AddItem(const std::shared_ptr<LBasis>& pBasis);
  /// With a period above 0: a new table of zeroes, saved and put at its place.
  /// Otherwise nothing happens and no object is returned.
  std::shared_ptr<LBasis> AddNew(std::int32_t pZeitraum, const std::string& pBezeichnung);
  /// A saved copy, with every value, of any table (also of another folder) into
  /// this folder under the new period; an empty name keeps the source's name.
  std::shared_ptr<LBasis> Copy(const std::shared_ptr<LBasis>& pBasis, std::int32_t pNewZeitraum,
                               const std::string& pBezeichnung);
  /// The table in force for the period: the one with the greatest period not later
  /// than pZeitraum, or, for a period before all tables, the newest one. It asks the
  /// store and hands out the object of the session's collection. A folder without
  /// tables is KeyNotFound naming the folder. Reads Basiswerte_Zeittabelle.
  ///
  /// The fall-back is deliberate and kept: for a month before the folder's first
  /// table, the answer is the newest table, not the oldest nor none.
  std::shared_ptr<LBasis> GetZeittabelle(std::int32_t pZeitraum) const;

  /// \cond INTERNAL
  // Library-internal: binds the list to the session and the folder, and loads
  // every table of the folder with all sub-objects.
  void LoadZeittabellen(clsManager& pManager, const std::string& pBasisID);
  const std::string& BasisID() const { return basis_id_; }
  /// \endcond

 private:
  ManagerRef manager_;
  std::string basis_id_;
  Collection<LBasis> tables_;
};

}  // namespace ormelix
