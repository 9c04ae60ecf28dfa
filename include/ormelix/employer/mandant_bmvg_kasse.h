#pragma once

#include <memory>
#include <string>

#include "ormelix/employer/bmvg_kasse.h"
#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// The employer's company provision fund, a row of
/// Mandanten_BMVG_Kasse whose column BMVG_Kasse names a fund of the catalogue
/// BMVG_Kassen.
///
/// The column is written with the catalogue row's ID (from the pBMVG_Kasse of
/// Update) but read as a Leitzahl, through ToLong (clsBMVG_Kasse::Load). Nothing
/// converts between the two: after a save with a fund whose ID is no number, the
/// next load of the employer fails with a ConversionError. A host that wants the
/// fund found writes its Leitzahl into the column.
class clsMandant_BMVG_Kasse {
 public:
  std::string ID;  ///< the key of the row, in its SqlID form

  /// The fund, created with the record; a caller may put another in its place.
  const std::shared_ptr<clsBMVG_Kasse>& Kasse() const { return kasse_; }
  /// Puts another fund object in the place of Kasse (not saved by itself).
  void SetKasse(std::shared_ptr<clsBMVG_Kasse> pKasse) { kasse_ = std::move(pKasse); }

  /// \cond INTERNAL
  // Library-internal: the stores, handed on to Kasse too.
  void InitLohnDB(const StoreConnectionPtr& pDatabase);
  void InitImportDB(const StoreConnectionPtr& pDatabase);
  /// \endcond

  /// Reads the employer's row of Mandanten_BMVG_Kasse, then the fund (BMVG_Kassen) whose
  /// Leitzahl its column BMVG_Kasse holds (no such fund clears Kasse). No row (or no store)
  /// changes nothing and gives False.
  bool Load(const std::string& pID);

  /// Writes the record for the employer pMandant into Mandanten_BMVG_Kasse: with pBMVG_Kasse the column
  /// BMVG_Kasse gets its ID, without it the column stays as it is (empty on a new
  /// row). False, touching nothing, without an employer, without a key on either
  /// side, or without a store. A record without a key selects the whole table: a
  /// row is added only to an empty table, and otherwise the first row is
  /// overwritten. Afterwards ID is the key of the row written.
  bool Update(const clsMandant* pMandant = nullptr, const clsBMVG_Kasse* pBMVG_Kasse = nullptr);

 private:
  std::shared_ptr<clsBMVG_Kasse> kasse_ = std::make_shared<clsBMVG_Kasse>();
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
