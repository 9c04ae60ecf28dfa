// Mitarbeiter_Lohnzettel: the monthly pay record, one row per employee and month,
// held in memory as the month arrays of LLohn and a few monthly children.
#include <cmath>

#include "load_statements.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "store_access.h"

namespace ormelix::modDatabase {

namespace {

using namespace ValueHelpers;
using L = LLohn;
using Columns = ColumnSet<LohnzettelMonth>;

// Property X(month) of LLohn, named X.
template <auto M>
PropertyRef MonthGet(LohnzettelMonth& row) {
  return &((row.lohn->*M)(row.month));
}
template <auto M>
constexpr Property<LohnzettelMonth> Month{&MonthGet<M>, kMemberName<M>};

// A month array of the personal data (LLohn_Arbeiter), named Mitarbeiter.X.
template <auto M>
PropertyRef ArbeiterGet(LohnzettelMonth& row) {
  return &((*row.lohn->Mitarbeiter()).*M)(row.month);
}
template <auto M>
constexpr Property<LohnzettelMonth> Arbeiter{&ArbeiterGet<M>, kMemberPath<&LLohn::Mitarbeiter, M>};

// A property of the monthly child of this month (Sechstel, FB_Fallweise,
// PendlerAR), named Kind.X.
template <auto Kind, auto M>
PropertyRef ChildGet(LohnzettelMonth& row) {
  return &((*(row.lohn->*Kind)(row.month)).*M);
}
template <auto Kind, auto M>
constexpr Property<LohnzettelMonth> Child{&ChildGet<Kind, M>, kMemberPath<Kind, M>};

// FB_Tage holds the days of casual employment as two-digit day numbers in
// ascending order, with no separator: days 3, 14 and 28 are "031428". The number of
// pairs read is half the length rounded half to even, so a stray odd character can
// count as a last pair of its own. A day outside 0..31 is the range failure of Tage
// and stops the load.
void LoadFBTage(LohnzettelMonth& row, const Field& field) {
  std::string text = ToText(field);
  LLohn_Fallweise& fallweise = *row.lohn->FB_Fallweise(row.month);
  for (int day = 1; day <= 31; ++day) fallweise.Tage(day) = false;
  auto pairs = static_cast<std::size_t>(std::nearbyint(static_cast<double>(text.size()) / 2.0));
  for (std::size_t i = 0; i < pairs; ++i) fallweise.Tage(ToInteger(Variant(text.substr(2 * i, 2)))) = true;
}

Variant SaveFBTage(LohnzettelMonth& row) {
  const LLohn_Fallweise& fallweise = *row.lohn->FB_Fallweise(row.month);
  std::string text;
  for (int day = 1; day <= 31; ++day) {
    if (!fallweise.Tage(day)) continue;
    text += static_cast<char>('0' + day / 10);
    text += static_cast<char>('0' + day % 10);
  }
  return Variant(text);
}

std::string MonthSql(const std::string& id) {
  return "SELECT * FROM [Mitarbeiter_Lohnzettel] WHERE [MitarbeiterID]=" + SqlID(id);
}

// A month without a row: its defaults, and nothing else changes.
void SetMissingMonthDefaults(LLohn& lohn, int month) {
  lohn.UE_Laufend_Tage(month) = 30;
  lohn.op_Angestellter(month) = -1;
  if (month == 11) lohn.op_KrankenscheinNetto(11) = -1;
}

}  // namespace

// The columns of Mitarbeiter_Lohnzettel in table order, for month m of the target.
// The checkpoints after Covid19Bonus and HomeofficePauschale store the part written
// so far when the row exists already; a new row goes in with the final Update.
const ColumnSet<LohnzettelMonth>& LohnzettelColumns() {
  static const Columns columns{
      {"Abrechnung_Von", Month<&L::Von_Datum>, LoadAs::Date, SaveAs::Date},
      {"Abrechnung_Bis", Month<&L::Bis_Datum>, LoadAs::Date, SaveAs::Date},
      {"AbrechnungsTage", Month<&L::AbrechnungsTage>, LoadAs::Integer, SaveAs::Direct},
      {"EL_OffeneUrlaubstage", Arbeiter<&LLohn_Arbeiter::OffeneUT>, LoadAs::Amount, SaveAs::Direct},
      {"LST_AufRollen", Month<&L::LST_AufRollen>, LoadAs::Amount, SaveAs::Round2},
      {"LST_AufRollenWert", Month<&L::LST_AufRollenWert>, LoadAs::Amount, SaveAs::Round2},
      {"LST_AufRollenWert_Eingabe", Month<&L::LST_AufRollenWertEingabe>, LoadAs::Flag, SaveAs::Flag},
      {"StundenLohn", Month<&L::StundenLohn>, LoadAs::Amount, SaveAs::Round2},
      {"StundenAnzahl", Month<&L::StundenAnzahl>, LoadAs::Amount, SaveAs::Round2},
      {"Gehalt", Month<&L::Gehalt>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_50", Month<&L::Ueberst__50>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_Basis", Month<&L::UeBasis>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_Basis_Eingabe", Month<&L::UeBasis_Eingabe>, LoadAs::Flag, SaveAs::Direct},
      {"Überstunden_100", Month<&L::Ueberst_100>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_XX", Month<&L::Ueberst__xx>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_XX_Prozent", Month<&L::Ueberst__xx_Prozent>, LoadAs::Integer, SaveAs::Direct},
      {"Überstundenpauschale", Month<&L::Ueberst_pauschale>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge", Month<&L::LFD_Bezuege>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge_LS_frei", Month<&L::LFD_Bezuege_LS_frei>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge_LS_frei_pfl", Month<&L::LFD_Bezuege_LS_frei_pfl>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge_LS_pfl_frei", Month<&L::LFD_Bezuege_LS_pfl_frei>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge_L_frei", Month<&L::LFD_Bezuege_L_frei>, LoadAs::Amount, SaveAs::Round2},
      {"sonst_Bezüge", Month<&L::sonst_Bezuege>, LoadAs::Amount, SaveAs::Round2},
      {"Bezüge_Wert", Month<&L::Bezuege_Wert>, LoadAs::Amount, SaveAs::Round2},
      {"Sachbezug", Month<&L::Sachbezug>, LoadAs::Amount, SaveAs::Round2},
      {"UE_Laufend_Tage", Month<&L::UE_Laufend_Tage>, LoadAs::Integer, SaveAs::Direct},
      {"UE_laufend", Month<&L::UE_laufend>, LoadAs::Amount, SaveAs::Round2},
      {"Sechstel_Basis", Month<&L::Sechstel_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"Einmalprämie", Month<&L::Einmalpraemie>, LoadAs::Amount, SaveAs::Round2},
      {"Jubiläumsgeld", Month<&L::Jubilaeumsgeld>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend", Month<&L::SV_Laufend>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend_Eingabe", Month<&L::SV_Laufend_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Laufend_Basis", Month<&L::SV_Laufend_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend_Basis_Eingabe", Month<&L::SV_Laufend_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Sonder", Month<&L::SV_Sonder>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Sonder_Eingabe", Month<&L::SV_Sonder_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Sonder_Basis", Month<&L::SV_Sonder_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Sonder_Basis_Eingabe", Month<&L::SV_Sonder_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Laufend_Basis_UA_UE", Month<&L::SV_Laufend_Basis_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend_Basis_UA_UE_Eingabe", Month<&L::SV_Laufend_Basis_UA_UE_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Sonder_Basis_UA_UE", Month<&L::SV_Sonder_Basis_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Sonder_Basis_UA_UE_Eingabe", Month<&L::SV_Sonder_Basis_UA_UE_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"LST_Laufend", Month<&L::LST_Laufend>, LoadAs::Amount, SaveAs::Round2},
      {"LST_laufend_Eingabe", Month<&L::LST_laufend_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"LST_Laufend_Basis", Month<&L::LST_Laufend_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"LST_Laufend_Basis_Eingabe", Month<&L::LST_Laufend_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"LST_sonder", Month<&L::LST_sonder>, LoadAs::Amount, SaveAs::Round2},
      {"LST_Sonder_Eingabe", Month<&L::LST_Sonder_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"LST_sonder_Basis", Month<&L::LST_sonder_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"LST_Sonder_Basis_Eingabe", Month<&L::LST_Sonder_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"Lst_Abfertigung", Month<&L::Lst_Abfertigung>, LoadAs::Amount, SaveAs::Round2},
      {"LST_Abfertigung_Eingabe", Month<&L::Lst_AbfertigungEingabe>, LoadAs::Flag, SaveAs::Flag},
      {"GewerkschaftRechnen", Month<&L::GewerkschaftRechnen>, LoadAs::Integer, SaveAs::Direct},
      {"Gewerkschaft", Month<&L::Gewerkschaft>, LoadAs::Amount, SaveAs::Round2},
      {"Betriebsrat", Month<&L::Betriebsrat>, LoadAs::Amount, SaveAs::Round2},
      {"sonstige_abz", Month<&L::sonstige_abz>, LoadAs::Amount, SaveAs::Round2},
      {"Aufwand", Month<&L::Aufwand>, LoadAs::Amount, SaveAs::Round2},
      {"Sechstel_Summe", Child<&LLohn::Sechstel, &LLohn_Eingabe::JahresSumme>, LoadAs::Amount, SaveAs::Round2},
      {"Sechstel_Summe_Eingabe", Child<&LLohn::Sechstel, &LLohn_Eingabe::eJahresSumme>, LoadAs::Flag, SaveAs::Flag},
      {"Abfertigung", Month<&L::Abfertigung>, LoadAs::Amount, SaveAs::Round2},
      {"Gehälter", Month<&L::Gehaelter>, LoadAs::Integer, SaveAs::Direct},
      {"Trinkgeld", Month<&L::Trinkgeld>, LoadAs::Amount, SaveAs::Round2},
      {"Netto", Month<&L::Netto>, LoadAs::Amount, SaveAs::Round2},
      {"Krankenschein", Month<&L::Krankenschein>, LoadAs::Integer, SaveAs::Direct},
      {"op_Geschäftsführer", Month<&L::op_Geschaeftsfuehrer>, LoadAs::Integer, SaveAs::Integer},
      {"op_Angestellter", Month<&L::op_Angestellter>, LoadAs::Integer, SaveAs::Integer},
      {"op_AngestellterOhneAK", Month<&L::op_AngestellterOhneAK>, LoadAs::Integer, SaveAs::Integer},
      {"op_AngestellterSonderfallNurWF", Month<&L::op_AngestellterSonderfallNurWF>, LoadAs::Flag, SaveAs::Flag},
      {"op_Arbeiter", Month<&L::op_Arbeiter>, LoadAs::Integer, SaveAs::Integer},
      {"op_Bauarbeiter", Month<&L::op_Bauarbeiter>, LoadAs::Integer, SaveAs::Integer},
      {"op_Hausbesorger", Month<&L::op_Hausbesorger>, LoadAs::Integer, SaveAs::Integer},
      {"op_Ferialpraktikant", Month<&L::op_Ferialpraktikant>, LoadAs::Integer, SaveAs::Integer},
      {"op_Forstarbeiter", Month<&L::op_Forstarbeiter>, LoadAs::Integer, SaveAs::Integer},
      {"op_LehrZeit", Month<&L::op_LehrZeit>, LoadAs::Integer, SaveAs::Direct},
      {"op_LehrJahr", Month<&L::op_LehrJahr>, LoadAs::Integer, SaveAs::Direct},
      {"op_GFBeschäftigt", Month<&L::op_mBeschaeftigt>, LoadAs::Flag, SaveAs::Flag},
      {"op_Malus", Month<&L::op_Malus>, LoadAs::Flag, SaveAs::Flag},
      {"op_Malus30", Month<&L::op_Malus30>, LoadAs::Flag, SaveAs::Flag},
      {"op_Nacht", Month<&L::op_Nacht>, LoadAs::Flag, SaveAs::Flag},
      {"op_UBahn", Month<&L::op_U_Bahn>, LoadAs::Flag, SaveAs::Flag},
      {"op_Frei_Alleinverdiener", Month<&L::op_Frei_Alleinverdiener>, LoadAs::Flag, SaveAs::Flag},
      {"op_Frei_Alleinerzieher", Month<&L::op_Frei_Alleinerzieher>, LoadAs::Flag, SaveAs::Flag},
      {"op_FamilienbonusPlus", Month<&L::op_FamilienbonusPlus>, LoadAs::Flag, SaveAs::Flag},
      {"op_Frei_Freibetragsbescheid", Month<&L::op_Frei_Freibetragsbescheid>, LoadAs::Flag, SaveAs::Flag},
      {"op_Frei_FreibetragsEingabe", Month<&L::op_Frei_FreibetragsEingabe>, LoadAs::Amount, SaveAs::Round2},
      {"op_Pendler", Month<&L::op_Pendler>, LoadAs::Integer, SaveAs::Integer},
      {"op_PendlerDrittel", Month<&L::op_PendlerDrittel>, LoadAs::Integer, SaveAs::Integer},
      {"op_Pendler_km", Month<&L::op_Pendler_km>, LoadAs::Amount, SaveAs::Round2},
      {"op_KrankenscheinNetto", Month<&L::op_KrankenscheinNetto>, LoadAs::Flag, SaveAs::Flag},
      {"Schlechtwetter_Eingabe", Month<&L::Schlechtwetter_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"op_Bonus", Month<&L::op_Bonus>, LoadAs::Flag, SaveAs::Flag},
      {"Covid19Bonus", Month<&L::op_Covid19Bonus>, LoadAs::Flag, SaveAs::Flag},
      Columns::Checkpoint(),
      {"MinderLaufendBasis", Month<&L::MinderLaufendBasis>, LoadAs::Amount, SaveAs::Round2},
      {"MinderLaufendBasisGesamt", Month<&L::MinderLaufendBasisGesamt>, LoadAs::Amount, SaveAs::Round2},
      {"MinderSonderBasis", Month<&L::MinderSonderBasis>, LoadAs::Amount, SaveAs::Round2},
      // Read from the Laufend column, written to its own: the column
      // MinderSonderBasisGesamt is never read.
      {"MinderLaufendBasisGesamt", Month<&L::MinderSonderBasisGesamt>, LoadAs::Amount, SaveAs::None},
      {"MinderSonderBasisGesamt", Month<&L::MinderSonderBasisGesamt>, LoadAs::None, SaveAs::Round2},
      {"MinderLaufendBasis_UA_UE", Month<&L::MinderLaufendBasis_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"MinderLaufendBasis_UA_UEGesamt", Month<&L::MinderLaufendBasis_UA_UEGesamt>, LoadAs::Amount, SaveAs::Round2},
      {"MinderSonderBasis_UA_UE", Month<&L::MinderSonderBasis_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"MinderSonderBasis_UA_UEGesamt", Month<&L::MinderSonderBasis_UA_UEGesamt>, LoadAs::Amount, SaveAs::Round2},
      {"PersonalUSTPauschale", Month<&L::PersonalUSTPauschale>, LoadAs::Amount, SaveAs::Round2},
      {"PersonalSonstiges", Month<&L::PersonalSonstiges>, LoadAs::Amount, SaveAs::Round2},
      {"PersonalPrdStunden", Month<&L::PersonalPrdStunden>, LoadAs::Amount, SaveAs::Round2},
      {"LFD_Bezüge_Schmutz", Month<&L::LFD_Bezuege_Schmutz>, LoadAs::Amount, SaveAs::Round2},
      {"Gewerkschaft_Basis", Month<&L::Gewerkschaft_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"Betriebsrat_Basis", Month<&L::Betriebsrat_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"AbfertigungNeu_Basis", Month<&L::AbfertigungNeu_Basis>, LoadAs::Amount, SaveAs::Round2},
      {"AbfertigungNeu", Month<&L::AbfertigungNeu>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend_UA_UE", Month<&L::SV_Laufend_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Sonder_UA_UE", Month<&L::SV_Sonder_UA_UE>, LoadAs::Amount, SaveAs::Round2},
      {"SV_Laufend_UA_UE_Eingabe", Month<&L::SV_Laufend_UA_UE_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Sonder_UA_UE_Eingabe", Month<&L::SV_Sonder_UA_UE_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"AbfertigungNeu_Eingabe", Month<&L::AbfertigungNeu_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"AbfertigungNeu_Basis_Eingabe", Month<&L::AbfertigungNeu_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"FB_FallweiseBeschäftigt", Child<&LLohn::FB_Fallweise, &LLohn_Fallweise::FallweiseBeschäftigt>, LoadAs::Flag, SaveAs::Direct},
      {"FB_körperlicheTätigkeit", Child<&LLohn::FB_Fallweise, &LLohn_Fallweise::körperlicheTätigkeit>, LoadAs::Flag, SaveAs::Direct},
      Columns::Custom("FB_Tage", &LoadFBTage, &SaveFBTage, "FB_Fallweise.Tage"),
      {"Gewerkschaft_Basis_Eingabe", Month<&L::Gewerkschaft_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"Betriebsrat_Basis_Eingabe", Month<&L::Betriebsrat_Basis_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SV_Laufend_Basis2", Month<&L::SV_Laufend_Basis2>, LoadAs::Amount, SaveAs::Round2},
      {"MVZuschlagBasis", Month<&L::MVZuschlagBasis>, LoadAs::Amount, SaveAs::Round2},
      {"MVZuschlag", Month<&L::MVZuschlag>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_50_Prozent", Month<&L::Ueberst__50_Prozent>, LoadAs::Amount, SaveAs::Round2},
      {"Überstunden_100_Prozent", Month<&L::Ueberst_100_Prozent>, LoadAs::Amount, SaveAs::Round2},
      {"Zahltag", Month<&L::Zahltag>, LoadAs::Long, SaveAs::Direct},
      {"op_rAWAnwärter", Month<&L::op_RAWAnwaerter>, LoadAs::Integer, SaveAs::Integer},
      {"op_FreiDienstnehmer", Month<&L::op_FreiDienstnehmer>, LoadAs::Integer, SaveAs::Integer},
      {"op_Erntehelfer", Month<&L::op_Erntehelfer>, LoadAs::Integer, SaveAs::Integer},
      {"op_ErntehelferLAG", Month<&L::op_ErntehelferLAG>, LoadAs::Integer, SaveAs::Integer},
      {"op_Behindert", Month<&L::op_Behindert>, LoadAs::Flag, SaveAs::Flag},
      {"op_GeschäftsführerGSVG", Month<&L::op_GeschaeftsfuehrerGSVG>, LoadAs::Integer, SaveAs::Integer},
      {"op_AuflösungsAbgabe", Month<&L::op_AuflösungsAbgabe>, LoadAs::Flag, SaveAs::Flag},
      {"op_AÜGN18", Month<&L::op_AÜGN18>, LoadAs::Flag, SaveAs::Flag},
      {"op_NachtSchwerArbeiter", Month<&L::op_NachtSchwerArbeiter>, LoadAs::Flag, SaveAs::Flag},
      {"FallweiseKoerperTaetigkeit55", Month<&L::FallweiseKörperTätigkeit55>, LoadAs::Flag, SaveAs::Flag},
      {"Bezüge_LST_pfl_SV_pfl_Text", Month<&L::Text1>, LoadAs::Text, SaveAs::Direct},
      {"Bezüge_LST_frei_SV_frei_Text", Month<&L::Text2>, LoadAs::Text, SaveAs::Direct},
      {"Bezüge_LST_frei_SV_pfl_Text", Month<&L::Text3>, LoadAs::Text, SaveAs::Direct},
      {"Bezüge_LST_pfl_SV_frei_Text", Month<&L::Text4>, LoadAs::Text, SaveAs::Direct},
      {"Zulagen_LST_frei_SV_pfl_Text", Month<&L::Text5>, LoadAs::Text, SaveAs::Direct},
      {"Zulagen_LST_frei_SV_frei_Text", Month<&L::Text6>, LoadAs::Text, SaveAs::Direct},
      {"Sonderzahlungen_Text", Month<&L::Text7>, LoadAs::Text, SaveAs::Direct},
      {"Einmalprämie_Text", Month<&L::Text8>, LoadAs::Text, SaveAs::Direct},
      {"ÜZBasis_50", Month<&L::UeZBasis_50>, LoadAs::Amount, SaveAs::Round2},
      {"ÜZBasis_50_Eingabe", Month<&L::UeZBasis_50_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"ÜZBasis_100", Month<&L::UeZBasis100>, LoadAs::Amount, SaveAs::Round2},
      {"ÜZBasis_100_Eingabe", Month<&L::UeZBasis100_Eingabe>, LoadAs::Flag, SaveAs::Flag},
      {"SZUB_Bauarbeiter", Month<&L::SZUB_Bauarbeiter>, LoadAs::Round2, SaveAs::Round2},
      {"Sonstige_Abzüge_Text", Month<&L::Sonstige_Abzuege_Text>, LoadAs::Text, SaveAs::Direct},
      {"SachbezugAnteil", Month<&L::SachbezugAnteil>, LoadAs::Amount, SaveAs::Round2},
      {"Pendler", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::Pendler>, LoadAs::Integer, SaveAs::Direct},
      {"PendlerDrittel", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::PendlerDrittel>, LoadAs::Integer, SaveAs::Direct},
      {"PendlerKM", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::PendlerKM>, LoadAs::Integer, SaveAs::Direct},
      {"PendlerSave", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::PendlerSave>, LoadAs::Integer, SaveAs::Direct},
      {"Pendler_EuroBeiAufRollen", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::Pendler_EuroBeiAufRollen>, LoadAs::Single, SaveAs::Round2},
      {"Pendler_BeiAufRollen", Child<&LLohn::PendlerAR, &LLohn_PendlerAR::Pendler_BeiAufRollen>, LoadAs::Single, SaveAs::Round2},
      {"SV_Laufend_Basis_Berechnet", Month<&L::SV_Laufend_Basis_Berechnet>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Laufend_Basis_UA_UE_Berechnet", Month<&L::SV_Laufend_Basis_UA_UE_Berechnet>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_Basis_Berechnet", Month<&L::SV_Sonder_Basis_Berechnet>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_Basis_UA_UE_Berechnet", Month<&L::SV_Sonder_Basis_UA_UE_Berechnet>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Laufend_DG", Month<&L::SV_Laufend_DG>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Laufend_DG_UA_UE", Month<&L::SV_Laufend_DG_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_DG", Month<&L::SV_Sonder_DG>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_DG_UA_UE", Month<&L::SV_Sonder_DG_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"NeuFög_Laufend", Month<&L::NeuFög_Laufend>, LoadAs::Amount, SaveAs::Direct},
      {"NeuFög_Sonder", Month<&L::NeuFög_Sonder>, LoadAs::Amount, SaveAs::Direct},
      {"NeuFög_Laufend_UA_UE", Month<&L::NeuFög_Laufend_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"NeuFög_Sonder_UA_UE", Month<&L::NeuFög_Sonder_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"Aushilfskraft", Month<&L::Aushilfskraft>, LoadAs::Flag, SaveAs::Direct},
      {"SV_Laufend_DGA", Month<&L::SV_Laufend_DGA>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_DGA", Month<&L::SV_Sonder_DGA>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Laufend_DGA_UA_UE", Month<&L::SV_Laufend_DGA_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"SV_Sonder_DGA_UA_UE", Month<&L::SV_Sonder_DGA_UA_UE>, LoadAs::Amount, SaveAs::Direct},
      {"Beitragsgruppe", Month<&L::Beitragsgruppe>, LoadAs::Text, SaveAs::Direct},
      {"KontrollSechstelRechnen", Month<&L::KontrollSechstelRechnen>, LoadAs::Flag, SaveAs::Direct},
      {"KontrollSechstelLStBasisAufrollung", Month<&L::KontrollSechstelLStBasisAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"KontrollSechstelLstAufrollung", Month<&L::KontrollSechstelLstAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"KontrollSechstelLStSonstBasisAufrollung", Month<&L::KontrollSechstelLStSonstBasisAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"KontrollSechstelLstSonstAufrollung", Month<&L::KontrollSechstelLstSonstAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"KontrollSechstelSVSZUAufrollung", Month<&L::KontrollSechstelSVSZUAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"KontrollSechstelSVSZU_EPAufrollung", Month<&L::KontrollSechstelSVSZU_EPAufrollung>, LoadAs::Amount, SaveAs::Direct},
      {"EingabeSperre", Month<&L::EingabeSperre>, LoadAs::Flag, SaveAs::Direct},
      {"op_Altersteilzeit", Month<&L::op_Altersteilzeit>, LoadAs::Flag, SaveAs::Direct},
      {"ATZReferenzBrutto", Month<&L::ATZReferenzBrutto>, LoadAs::Amount, SaveAs::Direct},
      {"ATZReferenzBruttoSchnitt", Month<&L::ATZReferenzBruttoSchnitt>, LoadAs::Amount, SaveAs::Direct},
      {"ATZReduktion", Month<&L::ATZReduktion>, LoadAs::Amount, SaveAs::Direct},
      {"HomeofficeTage", Month<&L::HomeofficeTage>, LoadAs::Integer, SaveAs::Direct},
      {"HomeofficePauschale", Month<&L::HomeofficePauschale>, LoadAs::Amount, SaveAs::Direct},
      Columns::Checkpoint(),
      {"Jobticket", Month<&L::Jobticket>, LoadAs::Amount, SaveAs::Direct},
      {"Jobticket_Text", Month<&L::Jobticket_Text>, LoadAs::Text, SaveAs::Direct},
      {"Jobticket_Check", Month<&L::Jobticket_Check>, LoadAs::Flag, SaveAs::Direct},
      {"Jobticket_PendlerAbzug", Month<&L::Jobticket_PendlerAbzug>, LoadAs::Amount, SaveAs::Direct},
  };
  return columns;
}

void LoadLohnzettel(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID) {
  auto rs = PayrollStore(pManager).OpenRecordset(detail::PayLoadSql(pMitarbeiterID));
  const auto bound = LohnzettelColumns().Bind(*rs);
  for (int month = 1; month <= 12; ++month) {
    rs->Filter("[Zeitraum]=" + std::to_string(MakeZeitraum(static_cast<std::int16_t>(month), pManager.AktJahr)));
    if (rs->Eof()) {
      SetMissingMonthDefaults(pLohn, month);
      continue;
    }
    LohnzettelMonth row{&pLohn, month};
    LohnzettelColumns().Load(row, *rs, bound);
    std::string row_id = SqlID(ToText(rs->Fields("ID")));
    LoadErsatzleistungen(pManager, pLohn, static_cast<std::int16_t>(month), row_id);
    LoadKurzarbeit(pManager, pLohn, static_cast<std::int16_t>(month), row_id);
  }
  rs->Close();
}

void SaveLohnzettel(clsManager& pManager, LLohn& pLohn, const std::string& pMitarbeiterID, std::int16_t pMonat) {
  const std::int16_t month = pMonat == 0 ? pManager.AktMonat : pMonat;
  if (month < 1 || month > 12)
    throw std::out_of_range("SaveLohnzettel(" + std::to_string(month) +
                            "): the month to save (pMonat, or AktMonat for 0) must be 1..12");
  // What the month's rows would hold is checked before the first of them is written.
  LohnzettelMonth row{&pLohn, month};
  const std::string where = "month " + std::to_string(month) + " of the employee " + pMitarbeiterID;
  RequireFinite(LohnzettelColumns(), row, "Mitarbeiter_Lohnzettel", where);
  RequireStorableErsatzleistungen(*pLohn.SV_EL_Laufend(month), where);
  RequireFinite(KurzarbeitColumns(), *pLohn.Kurzarbeit(month), "Mitarbeiter_Lohnzettel_Kurzarbeit", where);
  const std::int32_t zeitraum = MakeZeitraum(month, pManager.AktJahr);
  StoreWriteTransaction save(PayrollStore(pManager), StoreWriteTransaction::KeepWritten,
                             StoreWriteTransaction::LockWithFirstStatement);
  auto rs = PayrollStore(pManager).OpenRecordset(
      MonthSql(pMitarbeiterID) + " AND [Zeitraum]=" + std::to_string(zeitraum), adOpenDynamic, adLockOptimistic);
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(pMitarbeiterID));
    rs->Collect("Zeitraum", Variant(zeitraum));
  }
  LohnzettelColumns().Save(row, *rs);
  rs->Update();
  std::string row_id = DateHelpers::GetNewRowID(*rs);
  SaveErsatzleistungen(pManager, pLohn, row_id, month);
  SaveKurzarbeit(pManager, *pLohn.Kurzarbeit(month), row_id);
  rs->Close();
  save.Commit();
}

}  // namespace ormelix::modDatabase

namespace ormelix::detail {

std::string PayLoadSql(const std::string& employee_id) {
  return modDatabase::MonthSql(employee_id) + " ORDER BY [Zeitraum] ASC";
}

}  // namespace ormelix::detail
