// The demo's employees: master data, bank details, their careers and children, then the
// pay months of 2024 and of January to March 2025, worked out from the base values
// of each month the way a host does and saved month by month.
#include <algorithm>
#include <map>

#include "cli.h"
#include "demo/benefits.h"
#include "demo/demo.h"
#include "demo/lines.h"
#include "demo/people.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

using namespace ormelix;
using demo::Group;
using demo::Person;
using DateHelpers::DateSerial;

namespace {

void FillMasterData(LLohn& lohn, const Person& p, const std::string& folder_id) {
  LLohn_Arbeiter& a = *lohn.Mitarbeiter();
  a.Personalnummer = p.personalnummer;
  a.FName = p.family_name;
  a.VName = p.first_name;
  a.Titel = p.title;
  a.Beschaeftigt = p.occupation;
  a.Vers_Nr = p.insurance_number;
  a.Geschlecht = p.gender;
  a.Adresse = p.address;
  a.PLZ = p.postcode;
  a.Ort = p.town;
  a.KFZ = "A";
  a.Stunden = p.group == Group::Geringfuegig ? 8.0f : (p.group == Group::Lehrling ? 38.5f : 40.0f);
  lohn.Geb_Datum = p.birth;
  lohn.BasisID = folder_id;
  lohn.BankName = p.bank;
  lohn.IBAN = p.iban;
  lohn.BIC = p.bic;
}

void FillMonth(LLohn& lohn, const Person& p, int year, int month, const LBasis& table) {
  double gross = demo::MonthlyGross(p, year);
  demo::Contributions c = demo::WorkOut(p, gross, table);
  lohn.Von_Datum(month) = DateSerial(year, month, 1);
  lohn.Bis_Datum(month) = DateHelpers::LastDayOfMonth(DateSerial(year, month, 1));
  lohn.AbrechnungsTage(month) = 30;
  if (p.group == Group::Arbeiter) {
    lohn.StundenLohn(month) = static_cast<float>(year >= 2025 ? p.pay2025 : p.pay2024);
    lohn.StundenAnzahl(month) = static_cast<float>(p.hours);
  } else {
    lohn.Gehalt(month) = static_cast<float>(gross);
  }
  lohn.LFD_Bezuege(month) = static_cast<float>(gross);
  lohn.op_Angestellter(month) = p.group == Group::Arbeiter ? 0 : -1;
  lohn.op_Arbeiter(month) = p.group == Group::Arbeiter ? -1 : 0;
  lohn.op_Geschaeftsfuehrer(month) = p.group == Group::Geschaeftsfuehrer ? -1 : 0;
  lohn.op_mBeschaeftigt(month) = p.group == Group::Geringfuegig ? -1 : 0;
  if (p.group == Group::Lehrling) {
    int months = (year - DateHelpers::Year(p.entry)) * 12 + month - DateHelpers::Month(p.entry);
    lohn.op_LehrZeit(month) = 3;
    lohn.op_LehrJahr(month) = static_cast<std::int16_t>(std::min(months / 12 + 1, 3));
  }
  lohn.SV_Laufend_Basis(month) = static_cast<float>(c.basis);
  lohn.SV_Laufend_Basis_Berechnet(month) = c.basis;
  lohn.SV_Laufend(month) = static_cast<float>(c.employee);
  lohn.SV_Laufend_DG(month) = c.employer;
  demo::AddLinesAndTransfer(lohn, p, year, month, table);
}

}  // namespace

void BuildEmployees(clsManager& manager, const std::shared_ptr<clsBasisordner>& folder, int extra,
                    std::ostream& out) {
  std::vector<Person> people = demo::People(extra);
  StoreSession& db = manager.AktDB()->Session();
  std::map<std::int16_t, const Person*> by_number;
  StoreWriteTransaction build(db);  // one transaction for the whole build: the store is new
  {
    Progress progress("creating employees");
    for (std::size_t i = 0; i < people.size(); ++i) {
      const Person& p = people[i];
      auto lohn = std::make_shared<LLohn>();
      FillMasterData(*lohn, p, folder->ID());
      std::string id;
      if (i < 5) {  // the named employees go in as a host adds one: through the list
        manager.Mitarbeiter()->Add(lohn, 0, lcPersonalnummer);
        id = lohn->ID();
      } else {
        id = modDatabase::InsertMitarbeiterRecord(manager);
        modDatabase::SaveMitarbeiterRecord(manager, *lohn, id);
        modDatabase::SaveBankverbindung(manager, *lohn, id);
      }
      AddCareer(manager, id, p);
      AddChildren(manager, id, p);
      by_number[p.personalnummer] = &p;
      progress.Step(static_cast<long>(i + 1), static_cast<long>(people.size()));
    }
    out << "  " << people.size() << " employees\n";
    std::map<std::int32_t, std::shared_ptr<LBasis>> tables;  // the table in force, asked once per month
    for (auto [year, last_month] : {std::pair{2024, 12}, std::pair{2025, 3}}) {
      manager.AktJahr = static_cast<std::int16_t>(year);
      manager.Mitarbeiter()->Load(manager.AktJahr, lcPersonalnummer);
      Progress progress("saving pay months of " + std::to_string(year));
      long done = 0;
      for (const auto& lohn : *manager.Mitarbeiter()) {
        const Person& p = *by_number.at(lohn->Mitarbeiter()->Personalnummer);
        demo::FillYearData(*lohn->Jahresdaten(), p, year);
        lohn->Update(manager, uctableJahresdaten);
        for (int month = 1; month <= last_month; ++month) {
          std::int32_t period = ValueHelpers::MakeZeitraum(static_cast<std::int16_t>(month), manager.AktJahr);
          if (DateSerial(year, month + 1, 1) <= p.entry) continue;  // not yet employed
          auto& table = tables[period];
          if (!table) table = folder->Zeittabellen()->GetZeittabelle(period);
          FillMonth(*lohn, p, year, month, *table);
          demo::AddShortTimeAndBenefits(manager, *lohn, p, year, month, *table);
          manager.AktMonat = static_cast<std::int16_t>(month);  // the lines and the transfer are saved for it
          lohn->Update(manager, demo::MonthTables(p, year, month), static_cast<std::int16_t>(month));
        }
        progress.Step(++done, manager.Mitarbeiter()->Count());
      }
      out << "  pay months of " << year << " (1 to " << last_month << ") for " << manager.Mitarbeiter()->Count()
          << " employees\n";
    }
  }
  build.Commit();
}

}  // namespace cli
