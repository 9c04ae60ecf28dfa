#include "ormelix/career/laufbahn_columns.h"

#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using Step = LLohn_Laufbahn;
using Columns = ColumnSet<Step>;
using ValueHelpers::AmountToInteger;
using ValueHelpers::ToAmount;

// An amount rounded half to even into the hidden field of the setter.
void LoadBefEL(Step& step, const Field& field) { step.SetBef_EL_Kalendertage(AmountToInteger(ToAmount(field))); }
void LoadBefEL2(Step& step, const Field& field) { step.SetBef_EL_Kalendertage2(AmountToInteger(ToAmount(field))); }
Variant SaveBefEL(Step& step) { return Variant(step.Bef_EL_Kalendertage()); }
Variant SaveBefEL2(Step& step) { return Variant(step.Bef_EL_Kalendertage2()); }

// A figure of the Bef_ group: read and written back by UpdateBef.
template <auto M>
Columns::Decl Bef(const char* column, LoadAs load = LoadAs::Amount) {
  return {column, Member<M, Step>, load, SaveAs::Direct};
}
// A column only read.
template <auto M>
Columns::Decl Read(const char* column, LoadAs load) {
  return {column, Member<M, Step>, load, SaveAs::None};
}

}  // namespace

const ColumnSet<LLohn_Laufbahn>& LaufbahnColumns() {
  static const Columns columns{
      Read<&Step::Anmerkung>("Anmerkung", LoadAs::Text),
      Read<&Step::AbfertigungNeu>("AbfertigungNeu", LoadAs::Flag),
      Read<&Step::AbfertigungNeuDatum>("AbfertigungNeuDatum", LoadAs::Date),
      Read<&Step::AbfertigungNeuProzent>("AbfertigungNeuProzent", LoadAs::Amount),
      Read<&Step::WochengeldBemessungsgrundlage>("WochengeldBemessungsgrundlage", LoadAs::Amount),
      Read<&Step::FreiwilligeVerlängerungKarenz>("FreiwilligeVerlängerungKarenz", LoadAs::Flag),
      Read<&Step::Bruttobezüge_25>("Bruttobezüge_25", LoadAs::Amount),
      Read<&Step::Bezüge_67_1_und_2>("Bezüge_67_1_und_2", LoadAs::Amount),
      Read<&Step::SVBeiträge_Kennzahl_220>("SVBeiträge_Kennzahl_220", LoadAs::Amount),
      Read<&Step::Bezüge_67_3_bis_8>("Bezüge_67_3_bis_8", LoadAs::Amount),
      Read<&Step::Sosntige_Bezüge_nach_67_2_6_10>("Sosntige_Bezüge_nach_67_2_6_10", LoadAs::Amount),
      Read<&Step::BefristetBeschäftigt>("BefristetBeschäftigt", LoadAs::Flag),
      Read<&Step::BefristetBis>("BefristetBis", LoadAs::Date),
      Read<&Step::FallweiseBeschäftigt>("FallweiseBeschäftigt", LoadAs::Flag),
      Read<&Step::Aushilfskraft>("Aushilfskraft", LoadAs::Flag),
      Read<&Step::Pauschallohnsteuer2Prozent>("Pauschallohnsteuer2Prozent", LoadAs::Flag),
      Read<&Step::Bruttogehalt>("Bruttogehalt", LoadAs::Amount),
      Bef<&Step::Bef_SV_Laufend_Basis>("Bef_SV_Laufend_Basis"),
      Bef<&Step::Bef_SV_Laufend_Basis2>("Bef_SV_Laufend_Basis2"),
      Bef<&Step::Bef_BV_Laufend>("Bef_BV_Laufend"),
      Bef<&Step::Bef_BV_Laufend2>("Bef_BV_Laufend2"),
      Bef<&Step::Bef_BV_Laufend_Basis>("Bef_BV_Laufend_Basis"),
      Bef<&Step::Bef_BV_Laufend_Basis2>("Bef_BV_Laufend_Basis2"),
      Bef<&Step::Bef_Bruttoentgelt>("Bef_Bruttoentgelt"),
      Bef<&Step::Bef_Bruttoentgelt2>("Bef_Bruttoentgelt2"),
      Bef<&Step::Bef_Tage>("Bef_Tage", LoadAs::Integer),
      // Read into Bef_Tage, over the value of the column Bef_Tage; the property
      // Bef_Tage2 stays 0.
      Bef<&Step::Bef_Tage>("Bef_Tage2", LoadAs::Integer),
      Bef<&Step::Bef_AllgemeineBasis>("Bef_AllgemeineBasis"),
      Bef<&Step::Bef_AllgemeineBasis2>("Bef_AllgemeineBasis2"),
      Read<&Step::Sonderzahlung>("Sonderzahlung", LoadAs::Amount),
      Bef<&Step::Bef_SV_Sonder_Basis>("Bef_SV_Sonder_Basis"),
      Read<&Step::Ersatzleistung>("Ersatzleistung", LoadAs::Amount),
      Read<&Step::ErsatzleistungSZ>("ErsatzleistungSZ", LoadAs::Amount),
      Read<&Step::ELKalendertage>("ELKalendertage", LoadAs::Amount),  // rounded half to even
      Bef<&Step::Bef_SV_Sonder_Basis2>("Bef_SV_Sonder_Basis2"),
      {"Bef_EL_Kalendertage", nullptr, LoadAs::Custom, SaveAs::Custom, nullptr, &LoadBefEL, &SaveBefEL},
      {"Bef_EL_Kalendertage2", nullptr, LoadAs::Custom, SaveAs::Custom, nullptr, &LoadBefEL2, &SaveBefEL2},
      Bef<&Step::Bef_EL_Laufend_Basis>("Bef_EL_Laufend_Basis"),
      Bef<&Step::Bef_EL_Laufend_Basis2>("Bef_EL_Laufend_Basis2"),
      Bef<&Step::Bef_EL_Sonder_Basis>("Bef_EL_Sonder_Basis"),
      Bef<&Step::Bef_EL_Sonder_Basis2>("Bef_EL_Sonder_Basis2"),
      Bef<&Step::Bef_SonderBasis>("Bef_SonderBasis"),
      Bef<&Step::Bef_SonderBasis2>("Bef_SonderBasis2"),
      Read<&Step::Trinkgeldpauschale>("Trinkgeldpauschale", LoadAs::Amount),
      Read<&Step::PlusMinusPosten>("PlusMinusPosten", LoadAs::Amount),
      Read<&Step::DiätenNach26Z4>("DiätenNach26Z4", LoadAs::Amount),
      Read<&Step::AushilfskraftKU>("AushilfskraftKU", LoadAs::Amount),  // True when not 0
      Read<&Step::AushilfskraftLK>("AushilfskraftLK", LoadAs::Amount),
  };
  return columns;
}

}  // namespace ormelix
