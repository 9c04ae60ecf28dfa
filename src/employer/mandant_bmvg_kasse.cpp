#include "ormelix/employer/mandant_bmvg_kasse.h"

#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

void clsMandant_BMVG_Kasse::InitLohnDB(const StoreConnectionPtr& pDatabase) {
  lohn_db_ = pDatabase;
  kasse_->InitLohnDB(pDatabase);
}

void clsMandant_BMVG_Kasse::InitImportDB(const StoreConnectionPtr& pDatabase) {
  import_db_ = pDatabase;
  kasse_->InitImportDB(pDatabase);
}

namespace {

// The record has no value columns of its own: the fund column is read and written aside.
const ColumnSet<clsMandant_BMVG_Kasse>& NoColumns() {
  static const ColumnSet<clsMandant_BMVG_Kasse> columns{};
  return columns;
}

}  // namespace

bool clsMandant_BMVG_Kasse::Load(const std::string& pID) {
  return detail::LoadSideRecord(lohn_db_, "SELECT * FROM [Mandanten_BMVG_Kasse] WHERE [MandantenID]=", pID, *this,
                                NoColumns(), [this](const Recordset& rs) {
                                  kasse_->Load(ValueHelpers::ToText(rs.Fields("BMVG_Kasse")));
                                });
}

bool clsMandant_BMVG_Kasse::Update(const clsMandant* pMandant, const clsBMVG_Kasse* pBMVG_Kasse) {
  return detail::SaveSideRecord(lohn_db_, "SELECT * FROM [Mandanten_BMVG_Kasse]", *this, NoColumns(), pMandant,
                                [pBMVG_Kasse](Recordset& rs) {
                                  if (pBMVG_Kasse) rs.Collect("BMVG_Kasse", Variant(pBMVG_Kasse->ID()));
                                });
}

}  // namespace ormelix
