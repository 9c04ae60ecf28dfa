#include "ormelix/employer/mandant_kommunal.h"

#include "ormelix/store/columns.h"
#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

namespace {

using K = clsMandant_Kommunal;

const ColumnSet<K>& KommunalColumns() {
  static const ColumnSet<K> columns{
      {"Kommunal", Member<&K::Kommunal>, LoadAs::Integer, SaveAs::Direct},
      {"Name", Member<&K::Name>, LoadAs::Text, SaveAs::Direct},
      {"Zusatz", Member<&K::Zusatz>, LoadAs::Text, SaveAs::Direct},
      {"Strasse", Member<&K::Strasse>, LoadAs::Text, SaveAs::Direct},
      {"PLZ", Member<&K::PLZ>, LoadAs::Text, SaveAs::Direct},
      {"Ort", Member<&K::Ort>, LoadAs::Text, SaveAs::Direct},
      {"Telefon", Member<&K::Telefon>, LoadAs::Text, SaveAs::Direct},
      {"DVR", Member<&K::DVR>, LoadAs::Text, SaveAs::Direct},
      {"KommStNr", Member<&K::KommStNr>, LoadAs::Text, SaveAs::Direct},
      {"Abgabenkonto_KommSt", Member<&K::Abgabenkonto_KommSt>, LoadAs::Text, SaveAs::Direct},
      {"Abgabenkonto_UBahn", Member<&K::Abgabenkonto_UBahn>, LoadAs::Text, SaveAs::Direct},
      {"Betriebsort", Member<&K::Betriebsort>, LoadAs::Text, SaveAs::Direct},
      {"Bank", Member<&K::Bank>, LoadAs::Text, SaveAs::Direct},
      {"IBAN", Member<&K::IBAN>, LoadAs::Text, SaveAs::Direct},
      {"BIC", Member<&K::BIC>, LoadAs::Text, SaveAs::Direct},
  };
  return columns;
}

}  // namespace

void clsMandant_Kommunal::InitLohnDB(const StoreConnectionPtr& pDatabase) {
  lohn_db_ = pDatabase;
  gemeinde_->InitLohnDB(pDatabase);
}

void clsMandant_Kommunal::InitImportDB(const StoreConnectionPtr& pDatabase) {
  import_db_ = pDatabase;
  gemeinde_->InitImportDB(pDatabase);
}

bool clsMandant_Kommunal::LoadMandantKommunal(const std::string& pID) {
  return detail::LoadSideRecord(lohn_db_, "SELECT * FROM [Mandanten_Kommunal] WHERE [MandantenID]=", pID, *this,
                                KommunalColumns(), [this](const Recordset& rs) {
                                  gemeinde_->Load(ValueHelpers::ToText(rs.Fields("Gemeinde")));
                                });
}

std::string clsMandant_Kommunal::Update(const clsMandant* pMandant, const clsGemeinde* pGemeinde) {
  bool saved = detail::SaveSideRecord(lohn_db_, "SELECT * FROM [Mandanten_Kommunal]", *this, KommunalColumns(),
                                      pMandant, [pGemeinde](Recordset& rs) {
                                        if (pGemeinde) rs.Collect("Gemeinde", Variant(pGemeinde->ID()));
                                      });
  return ValueHelpers::ToText(Variant(saved));
}

}  // namespace ormelix
