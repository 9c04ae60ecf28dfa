#include "ormelix/employer/mandant_bankverbindung.h"

#include "ormelix/store/columns.h"
#include "ormelix/store/value_helpers.h"
#include "side_record.h"

namespace ormelix {

namespace {

using B = clsMandant_Bankverbindung;

const ColumnSet<B>& BankColumns() {
  static const ColumnSet<B> columns{
      {"Bank", Member<&B::Bank>, LoadAs::Text, SaveAs::Direct},
      {"Kommentar", Member<&B::Kommentar>, LoadAs::Text, SaveAs::Direct},
      {"EmpfKennung", Member<&B::EmpfKennung>, LoadAs::Text, SaveAs::Direct},
      {"AbsKennung", Member<&B::AbsKennung>, LoadAs::Text, SaveAs::Direct},
      {"BIC", Member<&B::BIC>, LoadAs::Text, SaveAs::Direct},
      {"IBAN", Member<&B::IBAN>, LoadAs::Text, SaveAs::Direct},
  };
  return columns;
}

}  // namespace

bool clsMandant_Bankverbindung::LoadMandantBankverbindung(const std::string& pID) {
  // This record alone keeps its key in literal form.
  return detail::LoadSideRecord(
      lohn_db_, "SELECT * FROM [Mandanten_Bankverbindung] WHERE [MandantenID]=", pID, *this, BankColumns(),
      [this](const Recordset& rs) { ID = ValueHelpers::SqlID(ValueHelpers::ToText(rs.Fields("ID").Value())); });
}

bool clsMandant_Bankverbindung::Update(const clsMandant* pMandant) {
  // Saved into the provision fund's table; see the header.
  return detail::SaveSideRecord(lohn_db_, "SELECT * FROM [Mandanten_BMVG_Kasse]", *this, BankColumns(), pMandant);
}

}  // namespace ormelix
