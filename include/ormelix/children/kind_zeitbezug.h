#pragma once

#include <cstdint>
#include <string>

namespace ormelix {

/// Who draws the family allowance.
enum eFB_Bezieher : std::int16_t {
  eFBB_Wegfall = 0,                         ///< the entitlement ended
  eFBB_Familienbeihilfenbezieher = 1,       ///< the employee draws it
  eFBB_Partner_Familienbeihilfenbezieher = 2,  ///< the employee's partner draws it
  eFBB_Unterhaltszahler = 3                 // the employee pays maintenance
};

/// The family bonus.
enum eFABO : std::int16_t { eFABO_kein_FABO = 0, eFABO_ganzer_FABO = 1, eFABO_halber_FABO = 2 };

/// One dated entry of a child's entitlements, in force from its
/// Zeitraum until the next entry: who draws the family allowance, which share of the
/// family bonus applies, whether the bonus goes on past 18, whether the sole-earner
/// allowance counts the child, and the country. A plain holder of the row's values.
///
/// A row of Mitarbeiter_Kinder_ZB (the host writes it; the library only reads it),
/// each property the column of its name.
class LLohn_Kind_Zeitbezug {
 public:
  std::string ID;  ///< the key of the row
  std::int32_t Zeitraum = 0;  ///< the period from which the entry holds, yyyymm
  std::string KFZ;  ///< the country, by vehicle registration code (clsLänder::GetIndikator)
  std::int32_t Kinderzuschlag_ab = 0;  ///< the period from which the child supplement runs
  /// As stored: a value outside the enumeration stays what it is.
  eFB_Bezieher FB_Bezieher = eFBB_Wegfall;
  eFABO FABO = eFABO_kein_FABO;  ///< the share of the family bonus
  bool FABO18 = false;  ///< the bonus goes on past the month the child turns 18
  bool AVAB = false;  ///< the sole-earner allowance counts the child
};

}  // namespace ormelix
