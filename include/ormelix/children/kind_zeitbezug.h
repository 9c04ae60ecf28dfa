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
class LLohn_Kind_Zeitbezug {
 public:
  std::string ID;
  std::int32_t Zeitraum = 0;
  std::string KFZ;
  std::int32_t Kinderzuschlag_ab = 0;
  /// As stored: a value outside the enumeration stays what it is.
  eFB_Bezieher FB_Bezieher = eFBB_Wegfall;
  eFABO FABO = eFABO_kein_FABO;
  bool FABO18 = false;
  bool AVAB = false;
};

}  // namespace ormelix
