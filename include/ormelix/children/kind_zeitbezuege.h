#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/children/kind_zeitbezug.h"
#include "ormelix/collection.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// The dated entitlements of one child, by Zeitraum ascending,
/// as the rows of Mitarbeiter_Kinder_ZB hold them, addressed by position (from 1) or
/// by ID. The library reads these rows and never writes them: a host does.
class LLohn_Kind_Zeitbezuege {
 public:
  /// An entry, shared: the object of the history, not a copy.
  using EntryPtr = std::shared_ptr<LLohn_Kind_Zeitbezug>;

  /// An empty history without session; LLohn_Kind::LoadKind binds it.
  LLohn_Kind_Zeitbezuege();

  /// Reads the child's entries, by Zeitraum. A value that cannot be read (a text in
  /// a numeric column) is a StoreError naming table, column and the row's ID; the
  /// history is then left empty. Reads Mitarbeiter_Kinder_ZB.
  void Load();
  /// Empties the history in memory.
  void Clear();
  /// By position from 1 or by ID; KeyNotFound for one not in the history.
  const EntryPtr& Item(const Variant& pIndex) const;
  /// The entry in force for a month, as the store has it now: the one with the
  /// greatest Zeitraum not after pZeitraum, handed out from this history (so the
  /// history must be current: an entry stored since Load is KeyNotFound). Null when
  /// the store has none. Reads Mitarbeiter_Kinder_ZB.
  EntryPtr GetZB(std::int32_t pZeitraum) const;
  /// \name Iteration
  ///@{

  /// The entries by Zeitraum ascending.
  Collection<LLohn_Kind_Zeitbezug>::const_iterator begin() const { return entries_.begin(); }
  Collection<LLohn_Kind_Zeitbezug>::const_iterator end() const { return entries_.end(); }
  ///@}
  /// The number of entries.
  long Count() const { return entries_.Count(); }

  /// \cond INTERNAL
  // Library-internal: binds the history to the session and the child, before Load.
  void InitZeitbezuege(const std::shared_ptr<clsManager>& manager, const std::string& child_id) {
    manager_.Set(manager);
    child_id_ = child_id;
  }
  /// \endcond

 private:
  ManagerRef manager_;
  std::string child_id_;
  Collection<LLohn_Kind_Zeitbezug> entries_;
};

}  // namespace ormelix
