#pragma once

#include <memory>
#include <string>

#include "ormelix/basevalues/basisordner.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The folders of statutory base values of the session (clsManager::Basis).
/// Load is eager: every folder, every dated table and all sub-objects are in memory
/// afterwards. The list is ordered as the store sorts the folders: the Standard
/// folder first, ordinary folders by name, restore folders last.
///
/// Tables: Basiswerte (the folders), Basiswerte_Zeittabelle (their dated tables)
/// and the sub-tables of each dated table, all of AktDB.
class clsBasisdaten {
 public:
  /// An empty list; the session makes the one it hands out (clsManager::Basis).
  clsBasisdaten() : folders_("the base-value folders") {}

  /// \cond INTERNAL
  // Library-internal: the session gives its back reference once, at creation.
  void SetManager(const std::shared_ptr<clsManager>& manager) { manager_.Set(manager); }
  /// \endcond

  /// A number is a position from 1 and an ID a key (KeyNotFound for an unknown one);
  /// anything else is a folder name, compared without regard to case in the store:
  /// an unknown name gives no object (nullptr). The name is put into the SQL as it
  /// stands, so a name with an apostrophe fails with a StoreError.
  /// A name is looked up in table Basiswerte.
  std::shared_ptr<clsBasisordner> Item(const Variant& pIndex) const;
  /// \name Iteration
  ///@{

  /// The folders in list order.
  Collection<clsBasisordner>::const_iterator begin() const { return folders_.begin(); }
  Collection<clsBasisordner>::const_iterator end() const { return folders_.end(); }
  ///@}
  /// The number of folders loaded.
  long Count() const { return folders_.Count(); }
  /// Deletes every folder in the store (its tables go by cascade), then in memory.
  /// Writes table Basiswerte (and by cascade every table below it).
  void Clear();
  /// Deletes the folder in the store, then in memory; an unknown ID does nothing.
  /// Nothing checks the flags or whether an employee still names the folder.
  void Remove(const std::string& pID);
  /// True if the list holds the key and its entry's ID is pID; never fails.
  bool Exist(const std::string& pID) const;
  /// True if the store has a folder of that name (without regard to case).
  bool ExistBezeichnung(const std::string& pBezeichnung) const;
  /// Empties the list (nothing is deleted) and reads all folders with all tables:
  /// Basiswerte, Basiswerte_Zeittabelle and every sub-table, each read once.
  void Load();
  /// Saves the folder and puts it at its sorted place, with its tables loaded.
  /// Writes its row of Basiswerte.
  void AddItem(const std::shared_ptr<clsBasisordner>& pBasisordner);
  /// A new folder of that name with both flags off, saved and placed; an empty
  /// name gives no object and writes nothing.
  std::shared_ptr<clsBasisordner> AddNew(const std::string& pBezeichnung);
  /// A copy of the folder with every table and value under new IDs, Standardordner
  /// off; an empty name keeps the source's name. Writes Basiswerte,
  /// Basiswerte_Zeittabelle and every sub-table.
  std::shared_ptr<clsBasisordner> Copy(const std::shared_ptr<clsBasisordner>& pBasisorder,
                                       const std::string& pBezeichnung);
  /// The last folder in list order flagged Standardordner ("" for none).
  std::string GetStandardBOrdnerID() const;
  /// That folder; KeyNotFound when no folder is flagged.
  std::shared_ptr<clsBasisordner> GetStandardBOrdner() const;
  /// The first folder in list order flagged Wiederherstellung ("" for none).
  std::string GetWiederherstellungsBOrdnerID() const;
  /// That folder; KeyNotFound when no folder is flagged.
  std::shared_ptr<clsBasisordner> GetWiederherstellungsBOrdner() const;

 private:
  ManagerRef manager_;
  Collection<clsBasisordner> folders_;
};

}  // namespace ormelix
