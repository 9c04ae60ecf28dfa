#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/children/kind_zeitbezuege.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// A child of an employee, with its personal data and its dated
/// entitlements (Zeitbezuege), and the questions the pay calculation and the wage
/// slip ask of that history.
///
/// Eingang, ZUab, Abgang and GetL16Daten read the store anew on each call; they need
/// the session that LoadKind gives, and fail (Error) on a child that never had one.
///
/// A row of Mitarbeiter_Kinder (the host writes it; the library only reads it),
/// with its entries of Mitarbeiter_Kinder_ZB.
class LLohn_Kind {
 public:
  /// A blank child with an empty history.
  LLohn_Kind() : zeitbezuege_(std::make_shared<LLohn_Kind_Zeitbezuege>()) {}

  /// Keeps the session, binds the history to it and to ID (which must be set
  /// first), and loads the history (reads Mitarbeiter_Kinder_ZB).
  void LoadKind(const std::shared_ptr<clsManager>& pManager);

  std::string ID;  ///< the key of the child's row
  /// \name Personal data (Mitarbeiter_Kinder)
  ///@{

  /// The child's personal data.
  ///
  /// First name, family name and insurance number (columns of their own name), and
  /// the birth date as a day count (column GebDatum; Null reads as 0).
  std::string VorName;
  std::string Nachname;
  std::string VersNr;
  Date Geburtsdatum = 0;
  ///@}

  /// VorName and Nachname with a blank between, trimmed.
  std::string Name() const;

  /// For the current period (the session's AktJahr and AktMonat), reading
  /// Mitarbeiter_Kinder_ZB:
  /// Eingang: since when the sole-earner allowance has run for the child: the
  /// earliest period with AVAB since the last entry whose FB_Bezieher is Wegfall,
  /// 0 for none; retIsAVAE tells whether the allowance counts it. A child without
  /// entries gives 0 and True; when every entry lies after the period, the earliest
  /// entry decides.
  std::int32_t Eingang(bool& retIsAVAE) const;
  /// From which period the child supplement runs: Kinderzuschlag_ab of the entry in
  /// force among those with an entitlement or without AVAB (of the earliest of them
  /// when all lie later); 0 for none.
  std::int32_t ZUab() const;
  /// Since when the entitlement has been off: the Zeitraum of the latest entry up
  /// to the period that has no entitlement or no AVAB; 0 for none.
  std::int32_t Abgang() const;

  /// The entitlements of the child for a span of months, condensed into the fields
  /// of form L16: the country (KSTAAT) and whether it changed (KSTWE); who draws
  /// the family allowance by the last entry with an entitlement (KAFBZ, KAPFB,
  /// KAUHZ); the first and last month (1 to 12, 0 for none) of the whole (KBGFP,
  /// KEGFP) and the half (KBHFP, KEHFP) family bonus. The month the child turns 18
  /// ends the bonus unless FABO18; a bonus still running at the end of the span ends
  /// with its last month. True when an entry with an entitlement was seen. Every
  /// output is reset first. Reads Mitarbeiter_Kinder_ZB.
  bool GetL16Daten(std::int32_t pVonZeitraum, std::int32_t pBisZeitraum, std::string& KSTAAT, bool& KSTWE,
                   bool& KAFBZ, bool& KAPFB, bool& KAUHZ, std::int16_t& KBGFP, std::int16_t& KEGFP,
                   std::int16_t& KBHFP, std::int16_t& KEHFP) const;

  /// The history; created with the child, and the same object for its lifetime.
  const std::shared_ptr<LLohn_Kind_Zeitbezuege>& Zeitbezuege() const { return zeitbezuege_; }

 private:
  /// The session, or an Error naming the operation when the child has none.
  std::shared_ptr<clsManager> Session(const char* operation) const;

  ManagerRef manager_;
  std::shared_ptr<LLohn_Kind_Zeitbezuege> zeitbezuege_;
};

}  // namespace ormelix
