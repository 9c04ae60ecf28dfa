#include "ormelix/employer/mandant_jahresdaten.h"

#include "ormelix/store/columns.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

namespace {

using J = clsMandant_Jahresdaten;

void LoadAbrechnungsart(J& record, const Field& field) {
  record.Abrechnungsart = static_cast<eMandantAbrechnungsart>(ValueHelpers::ToInteger(field));
}
Variant SaveAbrechnungsart(J& record) { return Variant(static_cast<std::int32_t>(record.Abrechnungsart)); }

const ColumnSet<J>& JahresdatenColumns() {
  static const ColumnSet<J> columns{
      {"SVAbgabe_Geringfuegig_am_Jahresende", Member<&J::SVAbgabe_GF_am_Jahresende>, LoadAs::Flag, SaveAs::Direct},
      {"MVAbgabe_Geringfuegig_am_Jahresende", Member<&J::MVAbgabe_GF_am_Jahresende>, LoadAs::Flag, SaveAs::Direct},
      {"DZBundesland", Member<&J::DZBundesland>, LoadAs::Integer, SaveAs::Direct},
      {"DBSenkung", Member<&J::DBSenkung>, LoadAs::Flag, SaveAs::Direct},
      ColumnSet<J>::Custom("Abrechnungsart", LoadAbrechnungsart, SaveAbrechnungsart),
  };
  return columns;
}

}  // namespace

bool clsMandant_Jahresdaten::LoadMandantJahresdaten(const std::string& pID, std::int16_t pJahr) {
  if (DateHelpers::IsNothingObject(lohn_db_)) return false;
  jahr_ = pJahr;
  auto rs = detail::OpenSideRecord(lohn_db_, "SELECT * FROM [Mandanten_Jahresdaten] WHERE [MandantenID]=" +
                                                 ValueHelpers::SqlID(pID) + " AND [Jahr]=" + std::to_string(pJahr));
  if (!rs) return false;
  ID = ValueHelpers::ToText(rs->Fields("ID"));
  JahresdatenColumns().Load(*this, *rs);
  rs->Close();
  return true;
}

bool clsMandant_Jahresdaten::Update(const clsMandant* pMandant) {
  auto employer = detail::SideRecordEmployerKey(lohn_db_, ID, pMandant);
  if (!employer) return false;
  std::string sql = "SELECT * FROM [Mandanten_Jahresdaten]";
  // The two terms stand side by side, with no AND: kept as it always was (see the header).
  if (DateHelpers::IsID(Variant(ID))) sql += " WHERE [ID]=" + ID + " [Jahr]=" + std::to_string(jahr_);
  bool added = false;
  StoreWriteTransaction save(lohn_db_->Session(), StoreWriteTransaction::KeepWritten);
  auto rs = detail::OpenSideRecordForSave(lohn_db_, sql, *employer, &added);
  if (added) rs->Collect("Jahr", Variant(jahr_));
  JahresdatenColumns().Save(*this, *rs);
  ID = detail::StoreSideRecord(*rs);
  save.Commit();
  return true;
}

}  // namespace ormelix
