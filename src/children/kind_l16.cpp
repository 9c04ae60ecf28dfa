// LLohn_Kind.GetL16Daten: the child's entitlements over a span of months, condensed
// into the per-child fields of the wage slip L16.
#include <vector>

#include "../session/store_access.h"
#include "entry_reader.h"
#include "ormelix/children/kind.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using DateHelpers::ZeitraumMonth;

struct L16Walk {
  std::int16_t& KBGFP;
  std::int16_t& KEGFP;
  std::int16_t& KBHFP;
  std::int16_t& KEHFP;
  int previous = 0;  // the bonus of the entry before, as a number

  // A bonus period of the kind that began (first >= 1) and has no end yet ends
  // with the month before M. For a change in January that is 0: no end, so the
  // bound stays open for later entries and for the end of the span.
  static void EndBefore(std::int16_t first, std::int16_t& last, std::int32_t month) {
    if (first >= 1 && last == 0) last = static_cast<std::int16_t>(month - 1);
  }

  void NoEntitlement(std::int32_t month) {
    if (previous == 1) EndBefore(KBGFP, KEGFP, month);
    if (previous == 2) EndBefore(KBHFP, KEHFP, month);
    previous = 0;
  }

  void Bonus(int fabo, std::int32_t month) {
    if (fabo == 1) {
      if (KBGFP == 0) KBGFP = static_cast<std::int16_t>(month);
      if (previous != 1) EndBefore(KBHFP, KEHFP, month);
    }
    if (fabo == 2) {
      if (KBHFP == 0) KBHFP = static_cast<std::int16_t>(month);
      if (previous != 2) EndBefore(KBGFP, KEGFP, month);
    }
    previous = fabo;
  }

  // A bonus still running at the end of the span ends with the span's last month.
  void OpenEnd(std::int32_t bis) {
    const auto last = static_cast<std::int16_t>(ZeitraumMonth(bis));
    if (previous == 1 && KBGFP >= 1 && KEGFP == 0) KEGFP = last;
    if (previous == 2 && KBHFP >= 1 && KEHFP == 0) KEHFP = last;
  }
};

}  // namespace

bool LLohn_Kind::GetL16Daten(std::int32_t pVonZeitraum, std::int32_t pBisZeitraum, std::string& KSTAAT, bool& KSTWE,
                             bool& KAFBZ, bool& KAPFB, bool& KAUHZ, std::int16_t& KBGFP, std::int16_t& KEGFP,
                             std::int16_t& KBHFP, std::int16_t& KEHFP) const {
  KSTAAT.clear();
  KSTWE = KAFBZ = KAPFB = KAUHZ = false;
  KBGFP = KEGFP = KBHFP = KEHFP = 0;
  const auto manager = Session("GetL16Daten");
  auto rs = detail::OpenRead(*manager,
                             "SELECT * FROM [Mitarbeiter_Kinder] INNER JOIN [Mitarbeiter_Kinder_ZB] ON "
                             "[Mitarbeiter_Kinder].[ID]=[Mitarbeiter_Kinder_ZB].[KID] WHERE [Mitarbeiter_Kinder.ID]=" +
                                 ValueHelpers::SqlID(ID) + " ORDER BY [Zeitraum] ASC");
  const detail::EntryReader entry(*rs, ID);
  // The span begins with the entry in force at its first month.
  std::int32_t lower = pVonZeitraum;
  rs->Filter("[Zeitraum]<=" + std::to_string(pVonZeitraum));
  if (!rs->Eof()) {
    rs->MoveLast();
    lower = entry.Long("Zeitraum");
  }
  rs->Filter("[Zeitraum]>=" + std::to_string(lower) + " AND [Zeitraum]<=" + std::to_string(pBisZeitraum));
  bool result = false;
  std::vector<std::string> countries;
  L16Walk walk{KBGFP, KEGFP, KBHFP, KEHFP};
  for (; !rs->Eof(); rs->MoveNext()) {
    const std::int32_t zeitraum = entry.Long("Zeitraum");
    // An entry from before the span counts from the span's first month.
    const std::int32_t month = ZeitraumMonth(zeitraum >= pVonZeitraum ? zeitraum : pVonZeitraum);
    const std::int16_t fb = entry.Integer("FB_Bezieher");
    const std::int16_t fabo = entry.Integer("FABO");
    if (fb == 0 || fabo == 0) {
      walk.NoEntitlement(month);
      continue;
    }
    result = true;
    std::string kfz = entry.Text("KFZ");
    if (countries.empty() || kfz != countries.back()) countries.push_back(std::move(kfz));
    KAFBZ = fb == 1;
    KAPFB = fb == 2;
    KAUHZ = fb == 3;
    walk.Bonus(fabo, month);
  }
  // Turning 18 ends the bonus of the last entry, unless it goes on past 18; this
  // end stands against the open end below.
  if (rs->RecordCount() > 0) {
    rs->MoveLast();
    const std::int32_t eighteen =
        DateHelpers::ZeitraumAddYears(ValueHelpers::DateToZeitraum(entry.DateOf("GebDatum")), Variant(18));
    if (eighteen < pBisZeitraum && !entry.Flag("FABO18")) {
      const std::int16_t fabo = entry.Integer("FABO");
      if (fabo == 1) KEGFP = static_cast<std::int16_t>(ZeitraumMonth(eighteen));
      if (fabo == 2) KEHFP = static_cast<std::int16_t>(ZeitraumMonth(eighteen));
    }
  }
  rs->Close();
  walk.OpenEnd(pBisZeitraum);
  if (!countries.empty()) {
    KSTAAT = countries.back();
    KSTWE = countries.size() >= 2;
  }
  return result;
}

}  // namespace ormelix
