// Mitarbeiter_Jahresdaten: one row per employee and year, held in LLohn.Jahresdaten
// for the session's AktJahr.
#include "load_statements.h"
#include "ormelix/employee/jahresdaten.h"

#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "store_access.h"

namespace ormelix::modDatabase {

namespace {

using namespace ValueHelpers;
using J = LLohn_Jahresdaten;
using Columns = ColumnSet<LLohn_Jahresdaten>;

// A property of the benefit-in-kind rule inside the year data, named
// SachbezugRegelung.X.
template <auto M>
PropertyRef RegelungGet(LLohn_Jahresdaten& jahresdaten) {
  return &((*jahresdaten.SachbezugRegelung()).*M);
}
template <auto M>
constexpr Property<LLohn_Jahresdaten> Regelung{&RegelungGet<M>, kMemberPath<&LLohn_Jahresdaten::SachbezugRegelung, M>};

// The column is a flag, read through its text: a value whose text is no boolean
// ("" for Null, say) stops the load at this column.
void LoadAngewandterKV(LLohn_Jahresdaten& jahresdaten, const Field& field) {
  jahresdaten.AngewandterKV = TextToBool(ToText(field));
}

void LoadDZBundesland(LLohn_Jahresdaten& jahresdaten, const Field& field) {
  jahresdaten.DZBundesland = static_cast<eBasisBundesländer>(ToInteger(field));
}

Variant SaveDZBundesland(LLohn_Jahresdaten& jahresdaten) {
  return Variant(static_cast<std::int32_t>(jahresdaten.DZBundesland));
}

// The load finds the row by the employee key as the caller gave it, the save by
// its SqlID form. For an ID both are the same literal (the store compares IDs
// without regard to case); anything else would be no literal at all in the
// statement (a name reads as a column), so it takes the SqlID form there too, and
// load and save always find the same row.
std::string PlainKey(const std::string& id) { return DateHelpers::IsID(Variant(id)) ? id : SqlID(id); }

std::string YearSql(const std::string& key, std::int16_t year) {
  return "SELECT * FROM [Mitarbeiter_Jahresdaten] WHERE [MitarbeiterID]=" + key + " AND [Jahr]=" +
         std::to_string(year);
}

}  // namespace

// The columns of Mitarbeiter_Jahresdaten in table order, after the keys
// MitarbeiterID and Jahr, which a save writes on a new row only.
const ColumnSet<LLohn_Jahresdaten>& JahresdatenColumns() {
  static const Columns columns{
      {"KFZ_Anzahl_Kalendermonate", Member<&J::KFZ_Anzahl_Kalendermonate>, LoadAs::Integer, SaveAs::Direct},
      {"Werksverkehr_Anzahl_Kalendermonate", Member<&J::Werksverkehr_Anzahl_Kalendermonate>, LoadAs::Integer,
       SaveAs::Direct},
      {"BeitragsTeilentgeldTag", Member<&J::BeitragsTeilentgeldTag>, LoadAs::Integer, SaveAs::Direct},
      {"BeitragsTeilentgeld", Member<&J::BeitragsTeilentgeld>, LoadAs::Amount, SaveAs::Direct},
      {"ArbeitsstaetteID", Member<&J::ArbeitsstaetteID>, LoadAs::Text, SaveAs::SqlID},
      {"ArbeitsstaetteMitausgeben", Member<&J::ArbeitsstaetteMitausgeben>, LoadAs::Flag, SaveAs::Flag},
      {"ServiceEntgeltMonat", Member<&J::ServiceEntgeltMonat>, LoadAs::Integer, SaveAs::Direct},
      {"ServiceEntgeltAnzahl", Member<&J::ServiceEntgeltAnzahl>, LoadAs::Integer, SaveAs::Direct},
      {"SBezugAb", Regelung<&LLohn_SachbezugRegelung::SBezugAb>, LoadAs::Flag, SaveAs::Direct},
      {"SBezugMonat", Regelung<&LLohn_SachbezugRegelung::SBezugMonat>, LoadAs::Integer, SaveAs::Direct},
      {"SBezugJahr", Regelung<&LLohn_SachbezugRegelung::SBezugJahr>, LoadAs::Integer, SaveAs::Direct},
      {"N70NichtRechnen", Member<&J::N70NichtRechnen>, LoadAs::Flag, SaveAs::Direct},
      Columns::Custom("DZBundesland", &LoadDZBundesland, &SaveDZBundesland),
      {"BemerkungNotPrint", Member<&J::BemerkungNotPrint>, LoadAs::Flag, SaveAs::Direct},
      {"Bemerkung", Member<&J::Bemerkung>, LoadAs::Text, SaveAs::Direct},
      {"AngewandterKV", Member<&J::AngewandterKV>, LoadAs::Custom, SaveAs::Direct, nullptr, &LoadAngewandterKV},
      {"AngewandterKVText", Member<&J::AngewandterKVText>, LoadAs::Text, SaveAs::Direct},
      {"KontrollSechstelNichtRechnen", Member<&J::KontrollSechstelNichtRechnen>, LoadAs::Flag, SaveAs::Direct},
      {"SechstelImmerUm15ProzentErhöhen", Member<&J::SechstelImmerUm15ProzentErhöhen>, LoadAs::Flag,
       SaveAs::Direct},
      {"SechstelNieUm15ProzentErhöhen", Member<&J::SechstelNieUm15ProzentErhöhen>, LoadAs::Flag, SaveAs::Direct},
  };
  return columns;
}

void LoadJahresdaten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = PayrollStore(pManager).OpenRecordset(detail::YearDataLoadSql(pMitarbeiterID, pManager.AktJahr),
                                                 adOpenForwardOnly, adLockReadOnly);
  if (!rs->Eof()) JahresdatenColumns().Load(*pLohn.Jahresdaten(), *rs);
  rs->Close();
}

void SaveJahresdaten(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(YearSql(SqlID(pMitarbeiterID), pManager.AktJahr), adOpenDynamic,
                                                 adLockOptimistic);
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
    rs->Collect("Jahr", Variant(pManager.AktJahr));
  }
  JahresdatenColumns().Save(*pLohn.Jahresdaten(), *rs);
  rs->Update();
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string YearDataLoadSql(const std::string& employee_id, std::int16_t year) {
  return modDatabase::YearSql(modDatabase::PlainKey(employee_id), year);
}

}  // namespace ormelix::detail
