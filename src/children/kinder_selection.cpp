// LLohn_Kinder: the monthly questions of the bonus selection. Each asks the store
// anew with one join of children and entries, narrowed child by child; the first
// row of a child is the entry E in force for the month (or of exactly the month),
// the next row the entry V before it.
#include <string>

#include "../session/store_access.h"
#include "child_rows.h"
#include "entry_reader.h"
#include "ormelix/children/kinder.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "ormelix/text.h"

namespace ormelix {

namespace {

constexpr const char* kSelectionName = "the selection";

// The values of a row that the tests look at; a column the question does not
// select stays at its empty value.
struct Entry {
  bool present = false;
  std::int32_t zeitraum = 0;
  std::int16_t fb = 0;
  std::int16_t fabo = 0;
  bool fabo18 = false;
  bool avab = false;
  std::int32_t birth_day = 0;  // GebDatum as a whole day number
  std::string kfz;
};

struct Selected {
  bool fabo18, avab, birth, kfz;
  explicit Selected(const Recordset& rs)
      : fabo18(rs.FindFieldIndex("FABO18") >= 0),
        avab(rs.FindFieldIndex("AVAB") >= 0),
        birth(rs.FindFieldIndex("GebDatum") >= 0),
        kfz(rs.FindFieldIndex("KFZ") >= 0) {}
};

Entry ReadEntry(const Recordset& rs, const detail::EntryReader& row, const Selected& has) {
  Entry e;
  if (rs.Eof()) return e;
  e.present = true;
  e.zeitraum = row.Long("Zeitraum");
  e.fb = row.Integer("FB_Bezieher");
  e.fabo = row.Integer("FABO");
  if (has.fabo18) e.fabo18 = row.Flag("FABO18");
  if (has.avab) e.avab = row.Flag("AVAB");
  if (has.birth) e.birth_day = row.DayNumber("GebDatum");
  if (has.kfz) e.kfz = row.Text("KFZ");
  return e;
}

// The month the child turns 18 still counts, later ones only with FABO18. The birth
// date goes in as a whole day number (a time of day from noon on is the next day).
bool AgeRule(const Entry& e, std::int32_t pZeitraum) {
  const std::int32_t limit =
      DateHelpers::ZeitraumAddYears(ValueHelpers::DateToZeitraum(static_cast<Date>(e.birth_day)), Variant(18));
  return limit >= pZeitraum || e.fabo18;
}

bool HasBonus(const Entry& e) { return e.fabo != eFABO_kein_FABO; }

}  // namespace

struct LLohn_Kinder::Frame {
  const char* columns;
  const char* period;  // the comparison of the period clause
  const char* order;
  bool needs_before;   // the test looks at V
  bool (*hit)(const Entry& e, const Entry& v, std::int32_t pZeitraum);
};

LLohn_Kinder::Auswahl LLohn_Kinder::Select(const Frame& frame, std::int32_t pZeitraum, Auswahl result) const {
  if (!manager_.IsSet()) return result;
  auto rs = detail::OpenRead(
      *manager_.Get(), std::string("SELECT ") + frame.columns +
                           " FROM [Mitarbeiter_Kinder] INNER JOIN [Mitarbeiter_Kinder_ZB] ON "
                           "[Mitarbeiter_Kinder].[ID]=[Mitarbeiter_Kinder_ZB].[KID] WHERE [MitarbeiterID]=" +
                           ValueHelpers::SqlID(employee_id_) + frame.period + std::to_string(pZeitraum) + frame.order);
  const Selected has(*rs);
  for (const KindPtr& child : children_) {
    rs->Filter("[KID]=" + ValueHelpers::SqlID(child->ID));
    if (rs->Eof()) continue;
    const detail::EntryReader row(*rs, child->ID);
    const Entry e = ReadEntry(*rs, row, has);
    const std::string kid = detail::ChildKey(row.Text("KID"));
    Entry v;
    if (frame.needs_before) {
      rs->MoveNext();
      v = ReadEntry(*rs, row, has);
    }
    // A child already in the result (one without entries when it was loaded that
    // has some in the store now) stays there once.
    if (!frame.hit(e, v, pZeitraum) || result.HasKey(kid)) continue;
    result.Add(children_.Item(Variant(kid)), kid);
  }
  rs->Close();
  return result;
}

namespace {

constexpr const char* kUpTo = " AND [Zeitraum]<=";
constexpr const char* kByBirthThenNewest = " ORDER BY [GebDatum] ASC, [Zeitraum] DESC";
constexpr const char* kNewest = " ORDER BY [Zeitraum] DESC";
constexpr const char* kFABOColumns = "[KID], [Zeitraum], [FB_Bezieher], [FABO], [FABO18], [GebDatum]";
constexpr const char* kAVAEColumns = "[KID], [Zeitraum], [FB_Bezieher], [AVAB], [FABO]";

}  // namespace

LLohn_Kinder::Auswahl LLohn_Kinder::GetFABOKinderOhneUnterhaltszahler(std::int32_t pZeitraum) const {
  static const Frame frame{kFABOColumns, kUpTo, kByBirthThenNewest, false, [](const Entry& e, const Entry&, std::int32_t p) {
                             return e.fb != eFBB_Wegfall && e.fb != eFBB_Unterhaltszahler && HasBonus(e) && AgeRule(e, p);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

LLohn_Kinder::Auswahl LLohn_Kinder::GetFABOKinderUnterhaltszahler(std::int32_t pZeitraum) const {
  static const Frame frame{kFABOColumns, kUpTo, kByBirthThenNewest, false, [](const Entry& e, const Entry&, std::int32_t p) {
                             return e.fb == eFBB_Unterhaltszahler && HasBonus(e) && AgeRule(e, p);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

LLohn_Kinder::Auswahl LLohn_Kinder::GetFABOKinder(std::int32_t pZeitraum) const {
  static const Frame frame{kFABOColumns, kUpTo, kByBirthThenNewest, false, [](const Entry& e, const Entry&, std::int32_t p) {
                             return e.fb != eFBB_Wegfall && HasBonus(e) && AgeRule(e, p);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

// The loss stays reported as long as no newer entry replaces it.
LLohn_Kinder::Auswahl LLohn_Kinder::GetFABOKinderWegfall(std::int32_t pZeitraum) const {
  static const Frame frame{"[KID], [Zeitraum], [FB_Bezieher], [FABO], [GebDatum]", kUpTo, kNewest, true,
                           [](const Entry& e, const Entry& v, std::int32_t) {
                             return !HasBonus(e) && v.present && HasBonus(v);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

// The new country in upper case against the old one as it was stored.
LLohn_Kinder::Auswahl LLohn_Kinder::GetFABOKinderAenderung(std::int32_t pZeitraum) const {
  static const Frame frame{"[KID], [Zeitraum], [FB_Bezieher], [FABO], [GebDatum], [KFZ]", kUpTo, kNewest, true,
                           [](const Entry& e, const Entry& v, std::int32_t p) {
                             return e.zeitraum == p && HasBonus(e) && v.present && HasBonus(v) &&
                                    (e.fb != v.fb || e.fabo != v.fabo || UpperCase(e.kfz) != v.kfz);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

// A child without any entry counts; it is visited in the first pass only, as the
// store has no row of it for the second.
LLohn_Kinder::Auswahl LLohn_Kinder::GetAVAEKinder(std::int32_t pZeitraum) const {
  static const Frame frame{kAVAEColumns, kUpTo, kByBirthThenNewest, false, [](const Entry& e, const Entry&, std::int32_t) {
                             return e.fb != eFBB_Wegfall && e.avab;
                           }};
  Auswahl result(kSelectionName);
  if (!manager_.IsSet()) return result;
  for (const KindPtr& child : children_)
    if (child->Zeitbezuege()->Count() == 0) result.Add(child, detail::ChildKey(child->ID));
  return Select(frame, pZeitraum, std::move(result));
}

// Only an entry of exactly the month is seen.
LLohn_Kinder::Auswahl LLohn_Kinder::GetAVAEKinderWegfall(std::int32_t pZeitraum) const {
  static const Frame frame{kAVAEColumns, " AND [Zeitraum]=", "", false, [](const Entry& e, const Entry&, std::int32_t) {
                             return e.fb == eFBB_Wegfall || !e.avab;
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

// Only the country counts, both sides in upper case.
LLohn_Kinder::Auswahl LLohn_Kinder::GetAVAEKinderAenderung(std::int32_t pZeitraum) const {
  static const Frame frame{"[KID], [Zeitraum], [FB_Bezieher], [AVAB], [FABO], [KFZ]", kUpTo, kNewest, true,
                           [](const Entry& e, const Entry& v, std::int32_t p) {
                             return e.zeitraum == p && e.fb != eFBB_Wegfall && v.present && v.fb != eFBB_Wegfall &&
                                    UpperCase(e.kfz) != UpperCase(v.kfz);
                           }};
  return Select(frame, pZeitraum, Auswahl(kSelectionName));
}

}  // namespace ormelix
