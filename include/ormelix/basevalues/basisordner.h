#pragma once

#include <memory>
#include <string>

#include "ormelix/basevalues/basis_zeittabellen.h"
#include "ormelix/session/manager.h"

namespace ormelix {

/// One folder of base values (a row of Basiswerte), a complete and
/// independently editable series of dated tables.
///
/// A row of Basiswerte (Bezeichnung, Wiederherstellung, Standardordner) with its
/// tables below it in Basiswerte_Zeittabelle (BasisID).
class clsBasisordner {
 public:
  /// A new folder without tables, not saved.
  clsBasisordner() : zeittabellen_(std::make_shared<clsBasisZeittabellen>()) {}

  /// The key in the form SqlID gives; "" until saved.
  const std::string& ID() const { return id_; }
  std::string Bezeichnung;  ///< the folder's name (column Bezeichnung)
  bool Wiederherstellung = false;  ///< a restore folder: sorts last (column Wiederherstellung)
  bool Standardordner = false;  ///< the standard folder: sorts first (column Standardordner)
  /// The folder's dated tables; created with the folder, never replaced.
  const std::shared_ptr<clsBasisZeittabellen>& Zeittabellen() const { return zeittabellen_; }

  /// Saves the folder's own row of Basiswerte (not its tables) through the session
  /// given, inserting it when the folder has no ID.
  void Update(clsManager& Manager);
  /// Reads the folder's own row of Basiswerte again; the tables stay as they are.
  void Refresh();

  /// \cond INTERNAL
  // Library-internal.
  void SetID(std::string pID) { id_ = std::move(pID); }
  void SetManager(const std::shared_ptr<clsManager>& pManager) { manager_.Set(pManager); }
  // Loads the tables of the folder pBasisID (its own ID by default) into Zeittabellen.
  void LoadZeittabellen(clsManager& pManager, const std::string& pBasisID);
  void LoadZeittabellen(clsManager& pManager) { LoadZeittabellen(pManager, id_); }
  /// \endcond

 private:
  std::string id_;
  ManagerRef manager_;
  std::shared_ptr<clsBasisZeittabellen> zeittabellen_;
};

}  // namespace ormelix
