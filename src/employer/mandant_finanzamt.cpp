#include "ormelix/employer/mandant_finanzamt.h"

#include "ormelix/store/columns.h"
#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

namespace {

using F = clsMandant_Finanzamt;

const ColumnSet<F>& FinanzamtColumns() {
  static const ColumnSet<F> columns{
      {"Finanzamt", Member<&F::Finanzamt>, LoadAs::Text, SaveAs::Direct},
      {"FinanzamtNr", Member<&F::FinanzamtNr>, LoadAs::Text, SaveAs::Direct},
      {"SteuerNr", Member<&F::SteuerNr>, LoadAs::Text, SaveAs::Direct},
      {"Bank", Member<&F::Bank>, LoadAs::Text, SaveAs::Direct},
      {"IBAN", Member<&F::IBAN>, LoadAs::Text, SaveAs::Direct},
      {"BIC", Member<&F::BIC>, LoadAs::Text, SaveAs::Direct},
  };
  return columns;
}

}  // namespace

bool clsMandant_Finanzamt::LoadMandantFinanzamt(const std::string& pID) {
  return detail::LoadSideRecord(lohn_db_, "SELECT * FROM [Mandanten_Finanzamt] WHERE [MandantenID]=", pID, *this,
                                FinanzamtColumns());
}

bool clsMandant_Finanzamt::Update(const clsMandant* pMandant) {
  return detail::SaveSideRecord(lohn_db_, "SELECT * FROM [Mandanten_Finanzamt]", *this, FinanzamtColumns(), pMandant);
}

}  // namespace ormelix
