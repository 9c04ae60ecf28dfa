// clsMitarbeiter_Sachbezüge: the row of an employee and period, read by a keyed
// query, and the choice of the row it is written to.
#include "ormelix/benefits/sachbezuege.h"

#include <stdexcept>

#include "../session/store_access.h"
#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/benefits/sachbezuege_columns.h"
#include "ormelix/employee/jahresdaten.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using S = clsMitarbeiter_Sachbezüge;
using Columns = ColumnSet<clsMitarbeiter_Sachbezüge>;
using ValueHelpers::SqlID;
using ValueHelpers::ToText;

// A period key the table can hold: yyyymm with a four-digit year and a month 1..12.
void RequirePeriod(const char* operation, const char* what, std::int32_t period) {
  const std::int32_t year = period / 100;
  const std::int32_t month = period % 100;
  if (year < 1000 || year > 9999 || month < 1 || month > 12)
    throw std::out_of_range(std::string("clsMitarbeiter_Sachbezüge.") + operation + ": " + what + " " +
                            std::to_string(period) + " is no yyyymm (year 1000..9999, month 1..12); nothing was " +
                            (operation[0] == 'L' ? "read" : "written"));
}

std::string EmployeePeriodSql(const char* table, const std::string& employee, std::int32_t period) {
  return std::string("SELECT * FROM ") + table + " WHERE [MitarbeiterID]=" + SqlID(employee) +
         " AND [Zeitraum]=" + std::to_string(period);
}

}  // namespace

const ColumnSet<clsMitarbeiter_Sachbezüge>& SachbezuegeColumns() {
  static const Columns columns{
      Plain<&S::Volle_freie_Station>(LoadAs::Flag),
      Plain<&S::für_Ehegatten>(LoadAs::Flag),
      Plain<&S::für_Kinder_bis_6_Lj>(LoadAs::Flag),
      Plain<&S::Anzahl_Kinder_6_Lj>(LoadAs::Integer),
      Plain<&S::für_nicht_volljährige_Kinder>(LoadAs::Flag),
      Plain<&S::Anzahl_Kinder_nicht_volljährig>(LoadAs::Integer),
      Plain<&S::für_volljährige_Kinder>(LoadAs::Flag),
      Plain<&S::Anzahl_Kinder_volljährig>(LoadAs::Integer),
      Plain<&S::Zehntelregelung>(LoadAs::Integer),
      Plain<&S::Eigenheim>(LoadAs::Flag),
      Plain<&S::Hausbetreuer>(LoadAs::Flag),
      Plain<&S::Keine_Normwohnung>(LoadAs::Flag),
      Plain<&S::dienstnahe_Wohnung>(LoadAs::Flag),
      Plain<&S::Bundesland>(LoadAs::Integer),
      Plain<&S::Mittelpreis_Verbrauchsortes>(LoadAs::Amount),
      Plain<&S::Wohnungsfläche>(LoadAs::Amount),
      Plain<&S::Baujahr>(LoadAs::Integer),
      Plain<&S::angemietete_Wohnung>(LoadAs::Flag),
      Plain<&S::Miete>(LoadAs::Amount),
      Plain<&S::Betriebskosten>(LoadAs::Amount),
      Plain<&S::Betriebskosten_werden_getragen>(LoadAs::Flag),
      Plain<&S::Heizkosten_werden_getragen>(LoadAs::Flag),
      Plain<&S::Heizkosten>(LoadAs::Amount),
      Plain<&S::Kostenbeitrag>(LoadAs::Amount),
      Plain<&S::Dienst_bezahlt_Überlassungspreis>(LoadAs::Amount),
      Plain<&S::Einschleifregelung>(LoadAs::Flag),
      Plain<&S::privat_gefahrene_KM>(LoadAs::Amount),
      Plain<&S::Anschaffungskosten>(LoadAs::Amount),
      Plain<&S::Verkehrskostenersatz>(LoadAs::Amount),
      Plain<&S::Fahrzeug_mit_Chaffeur>(LoadAs::Flag),
      Plain<&S::Fahrtenbuch>(LoadAs::Flag),
      Plain<&S::einmaliger_Kostenbeitrag>(LoadAs::Flag),
      Plain<&S::einmaliger_Kostenbeitrag_Betrag>(LoadAs::Amount),
      Plain<&S::monatl_lfd_Kostenbeitrag>(LoadAs::Flag),
      Plain<&S::monatl_lfd_Kostenbeitrag_Betrag>(LoadAs::Amount),
      Plain<&S::Anzahl_Garagenplätze>(LoadAs::Integer),
      Plain<&S::CO2Emissionswert>(LoadAs::Integer),
      Plain<&S::Co2Emissionswert_unbekannt>(LoadAs::Flag),
      Plain<&S::Anschaffungsjahr>(LoadAs::Integer),
      Plain<&S::Anschaffungsmonat>(LoadAs::Integer),
      Plain<&S::Auslaufmodell>(LoadAs::Flag),
      Plain<&S::Brennholzdeputate>(LoadAs::Flag),
      Plain<&S::Hartholz>(LoadAs::Amount),
      Plain<&S::Weichholz>(LoadAs::Amount),
      Plain<&S::Sägeabfallholz_und_Astholz>(LoadAs::Amount),
      Plain<&S::Übertragung_am_Stamm>(LoadAs::Flag),
      Plain<&S::Kohle_und_Koks>(LoadAs::Flag),
      Plain<&S::Steinkohle>(LoadAs::Amount),
      Plain<&S::Briketts>(LoadAs::Amount),
      Plain<&S::Hüttenkoks>(LoadAs::Amount),
      Plain<&S::Selbstabholung>(LoadAs::Flag),
      Plain<&S::Strom>(LoadAs::Amount),
      Plain<&S::Mahlprodukte>(LoadAs::Flag),
      Plain<&S::Roggenmehl>(LoadAs::Amount),
      Plain<&S::Weizenmehl>(LoadAs::Amount),
      Plain<&S::Weizen_und_Maisgrieß>(LoadAs::Amount),
      Plain<&S::Getreide>(LoadAs::Flag),
      Plain<&S::Roggen>(LoadAs::Amount),
      Plain<&S::Weizen_und_Futtergerste>(LoadAs::Amount),
      Plain<&S::Mais>(LoadAs::Amount),
      Plain<&S::Fleisch>(LoadAs::Flag),
      Plain<&S::Schweinefleisch>(LoadAs::Amount),
      Plain<&S::Kalbfleisch>(LoadAs::Amount),
      Plain<&S::Rindfleisch>(LoadAs::Amount),
      Plain<&S::Schweinehälfte_im_Ganzen>(LoadAs::Amount),
      Plain<&S::Ferkel>(LoadAs::Amount),
      Plain<&S::Sonstige_Lebensmittel>(LoadAs::Flag),
      Plain<&S::Eier>(LoadAs::Amount),
      Plain<&S::Käse>(LoadAs::Amount),
      Plain<&S::Butter>(LoadAs::Amount),
      Plain<&S::Kartoffel>(LoadAs::Amount),
      Plain<&S::Vollmilch>(LoadAs::Amount),
      Plain<&S::Maschinenselbstkosten>(LoadAs::Amount),
      Plain<&S::Sonstige_Sachbezüge>(LoadAs::Amount),
  };
  return columns;
}

void clsMitarbeiter_Sachbezüge::ResetToDefaults() {
  for (const auto& decl : SachbezuegeColumns().Columns())
    std::visit([](auto* value) { *value = {}; }, decl.property(*this));
  Zehntelregelung = 10;
  Baujahr = static_cast<std::int16_t>(DateHelpers::Year(DateHelpers::Today()));
  // The employee of the session's list; an ID it does not hold fails here, after
  // the ID has been cleared.
  const auto lohn = manager_.Get()->Mitarbeiter()->Item(Variant(mitarbeiter_id_));
  Bundesland = static_cast<std::int16_t>(static_cast<int>(lohn->Jahresdaten()->DZBundesland) - 1);
}

bool clsMitarbeiter_Sachbezüge::Load(const std::string& pMitarbeiterID, std::int32_t pZeitraum) {
  RequirePeriod("Load", "the period", pZeitraum);
  const auto manager = manager_.Get();
  mitarbeiter_id_ = pMitarbeiterID;
  zeitraum_ = pZeitraum;
  // The table name stands without brackets in this statement.
  auto rs = detail::OpenRead(*manager, EmployeePeriodSql("Mitarbeiter_Sachbezüge", pMitarbeiterID, pZeitraum));
  if (rs->Eof()) {
    id_.clear();
    ResetToDefaults();
  } else {
    id_ = ToText(rs->Fields("ID"));
    SachbezuegeColumns().Load(*this, *rs);
  }
  rs->Close();
  return false;
}

void clsMitarbeiter_Sachbezüge::Update(std::int32_t pNewPeriod, std::string pRetID) {
  const bool elsewhere = pNewPeriod != 0;
  const std::int32_t period = elsewhere ? pNewPeriod : zeitraum_;
  RequirePeriod("Update", elsewhere ? "the new period (pNewPeriod)" : "the period of the Load", period);
  RequireFinite(SachbezuegeColumns(), *this, "Mitarbeiter_Sachbezüge",
                "the employee " + mitarbeiter_id_ + " in " + std::to_string(period));
  const auto manager = manager_.Get();
  // The look for the row and its insert or change hold together against other
  // programs saving the same employee and period.
  StoreWriteTransaction save(detail::PayrollStore(*manager), StoreWriteTransaction::KeepWritten);
  std::unique_ptr<Recordset> rs;
  if (!elsewhere && !id_.empty())
    rs = detail::OpenWrite(*manager, "SELECT * FROM [Mitarbeiter_Sachbezüge] WHERE [ID]=" + SqlID(id_));
  if (!rs || rs->Eof())
    rs = detail::OpenWrite(*manager, EmployeePeriodSql("[Mitarbeiter_Sachbezüge]", mitarbeiter_id_, period));
  if (rs->Eof()) {
    rs->AddNew();
    rs->Collect("MitarbeiterID", Variant(mitarbeiter_id_));
    rs->Collect("Zeitraum", Variant(period));
  }
  SachbezuegeColumns().Save(*this, *rs);
  rs->Update();
  if (elsewhere)
    pRetID = DateHelpers::GetNewRowID(*rs);  // stays here: the caller's text is a copy
  else if (id_.empty())
    id_ = DateHelpers::GetNewRowID(*rs);
  rs->Close();
  save.Commit();
}

}  // namespace ormelix
