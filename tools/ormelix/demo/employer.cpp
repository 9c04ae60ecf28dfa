// The demo employer's side records, set the way a host sets them: through the
// library's objects where the library writes a table, and through the store where
// it only reads one (carriers and contribution accounts) or where its save does not
// reach the column that its load reads (bank connection, fund, municipality, a
// second year of year data). All numbers of accounts, tax number and levy accounts
// are made up; the carriers' names and addresses are the real ones.
#include "demo/employer.h"

#include "ormelix/basevalues/basis_enums.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/error.h"
#include "ormelix/store/value_helpers.h"

namespace cli {

using namespace ormelix;
using ValueHelpers::SqlID;

namespace {

// Adds a row to a table of the pay store and gives its ID.
std::string AddRow(clsManager& manager, const std::string& table,
                   std::initializer_list<std::pair<const char*, Variant>> values) {
  auto rs = manager.AktDB()->Session().OpenRecordset("SELECT * FROM [" + table + "]", adOpenDynamic, adLockOptimistic);
  rs->AddNew();
  for (const auto& [column, value] : values) rs->Collect(column, value);
  rs->Update();
  std::string id = ValueHelpers::ToText(rs->Fields("ID"));
  rs->Close();
  return id;
}

void FillAuthorities(clsMandant& employer) {
  clsMandant_Bankverbindung& bank = *employer.Bankverbindung();
  bank.Bank = "Erste Bank";
  bank.Kommentar = "Lohnkonto";
  bank.EmpfKennung = "ALPENBLICK-E";
  bank.AbsKennung = "ALPENBLICK-A";
  bank.BIC = "GIBAATWWXXX";
  bank.IBAN = "AT00 2011 1000 0070 0001";

  clsMandant_Finanzamt& fa = *employer.Finanzamt();
  fa.Finanzamt = "Finanzamt Österreich";
  fa.FinanzamtNr = "99";
  fa.SteuerNr = "999/0707";
  fa.Bank = "Demobank";
  fa.IBAN = "AT00 0100 0000 0000 0099";
  fa.BIC = "DEMOATWWXXX";

  clsMandant_Kommunal& k = *employer.Kommunal();
  k.Kommunal = 1;
  k.Name = employer.Name;
  k.Zusatz = "Betriebsstätte Wien";
  k.Strasse = employer.Strasse;
  k.PLZ = employer.PLZ;
  k.Ort = employer.Ort;
  k.Telefon = employer.Telefon;
  k.DVR = employer.DVR;
  k.KommStNr = "KS-0707-99";
  k.Abgabenkonto_KommSt = "AK-0707-01";
  k.Abgabenkonto_UBahn = "AK-0707-02";
  k.Betriebsort = "Wien 7., Neubau";
  k.Bank = bank.Bank;
  k.IBAN = bank.IBAN;
  k.BIC = bank.BIC;

  clsMandant_PDFEncrypt& protection = *employer.PDFEncrypt();
  protection.EncryptVS = true;
  protection.VSPasswordOption = eVSPOSIndividualMitarbeiter;
  protection.VSPassword = "Alpenblick-Lohn";
}

// The library saves the bank connection into Mandanten_BMVG_Kasse and reads it
// from Mandanten_Bankverbindung; it writes the catalogue rows' keys into the fund
// and municipality columns but looks them up by Leitzahl and municipality number.
// The host writes what the loads read.
void WriteWhatTheLoadsRead(clsManager& manager, const clsMandant& employer) {
  const clsMandant_Bankverbindung& bank = *employer.Bankverbindung();
  AddRow(manager, "Mandanten_Bankverbindung",
         {{"MandantenID", employer.ID()}, {"Bank", bank.Bank}, {"Kommentar", bank.Kommentar},
          {"EmpfKennung", bank.EmpfKennung}, {"AbsKennung", bank.AbsKennung}, {"BIC", bank.BIC},
          {"IBAN", bank.IBAN}});
  std::string of_employer = " WHERE [MandantenID]=" + SqlID(employer.ID());
  manager.AktDB()->Session().ExecuteSql("UPDATE [Mandanten_BMVG_Kasse] SET [BMVG_Kasse]='99010'" + of_employer);
  manager.AktDB()->Session().ExecuteSql("UPDATE [Mandanten_Kommunal] SET [Gemeinde]='90001'" + of_employer);
}

// 2024 through the library. Its save of a loaded row is refused by the store, so
// the host writes the row of 2025 itself.
void WriteYearData(clsManager& manager, clsMandant& employer, std::ostream& out) {
  employer.ChangeYear(2024);
  clsMandant_Jahresdaten& year = *employer.Jahresdaten();
  year.SVAbgabe_GF_am_Jahresende = false;
  year.MVAbgabe_GF_am_Jahresende = false;
  year.DZBundesland = eBasisWien;
  year.DBSenkung = true;
  year.Abrechnungsart = eMASelbstabrechner;
  year.Update(&employer);
  out << "  year data 2024 saved (a new row)\n";
  employer.ChangeYear(2025);  // no row yet: the object keeps 2024's values and key
  try {
    year.Update(&employer);
  } catch (const StoreError& refused) {
    out << "  year data 2025: the save of a loaded row is refused by the store (" << refused.Subject()
        << "); the host writes the row itself\n";
  }
  AddRow(manager, "Mandanten_Jahresdaten",
         {{"MandantenID", employer.ID()},
          {"Jahr", 2025},
          {"SVAbgabe_Geringfuegig_am_Jahresende", true},
          {"MVAbgabe_Geringfuegig_am_Jahresende", true},
          {"DZBundesland", static_cast<int>(eBasisWien)},
          {"DBSenkung", false},
          {"Abrechnungsart", static_cast<int>(eMASelbstabrechner)}});
}

// Carriers and accounts are the host's tables.
void WriteAccounts(clsManager& manager, const clsMandant& employer) {
  std::string wien = AddRow(manager, "Versicherungsträger",
                            {{"Code", "ÖGK-W"},
                             {"Bezeichnung", "Österreichische Gesundheitskasse, Landesstelle Wien"},
                             {"Kurzbezeichnung", "ÖGK Wien"},
                             {"Straße", "Wienerbergstraße 15-19"},
                             {"PLZ", "1100"},
                             {"Ort", "Wien"},
                             {"Bank", "Demobank"},
                             {"IBAN", "AT00 0100 0000 0000 0011"},
                             {"BIC", "DEMOATWWXXX"}});
  std::string noe = AddRow(manager, "Versicherungsträger",
                           {{"Code", "ÖGK-N"},
                            {"Bezeichnung", "Österreichische Gesundheitskasse, Landesstelle Niederösterreich"},
                            {"Kurzbezeichnung", "ÖGK NÖ"},
                            {"Straße", "Kremser Landstraße 3"},
                            {"PLZ", "3100"},
                            {"Ort", "St. Pölten"},
                            {"Bank", "Demobank"},
                            {"IBAN", "AT00 0100 0000 0000 0031"},
                            {"BIC", "DEMOATWWXXX"}});
  AddRow(manager, "Mandanten_Beitragskonten",
         {{"MandantenID", employer.ID()}, {"VTID", wien}, {"BKNR", "99007070"}, {"Anmerkung", "Betrieb Wien"},
          {"StandardBKNR", true}});
  AddRow(manager, "Mandanten_Beitragskonten",
         {{"MandantenID", employer.ID()}, {"VTID", noe}, {"BKNR", "99003100"},
          {"Anmerkung", "Saisonbetrieb Niederösterreich"}, {"StandardBKNR", false}});
}

}  // namespace

void BuildEmployerRecords(clsManager& manager, clsMandant& employer, std::ostream& out) {
  FillAuthorities(employer);
  employer.Update();  // with its side records
  WriteWhatTheLoadsRead(manager, employer);
  out << "  bank, tax office, municipal office (Wien, 90001), provision fund (99010), document protection\n";
  WriteYearData(manager, employer, out);
  WriteAccounts(manager, employer);
  out << "  two contribution accounts: ÖGK Wien and ÖGK Niederösterreich\n";
}

void SetEmployeePassword(clsManager& manager, int personalnummer, const std::string& password, std::ostream& out) {
  auto rs = manager.AktDB()->Session().OpenRecordset(
      "SELECT [ID] FROM [Mitarbeiter] WHERE [MandantenID]=" + SqlID(manager.AktMandant()->ID()) +
      " AND [Personalnummer]=" + std::to_string(personalnummer));
  if (rs->Eof()) return;
  std::string id = ValueHelpers::ToText(rs->Fields("ID"));
  rs->Close();
  LLohn lohn;
  lohn.LoadMitarbeiter(manager, id, 0);
  lohn.PDFEncrypt()->VSPassword = password;
  lohn.Update(manager, ucTablePDFEncrypt);
  out << "  document password of employee " << personalnummer << " set (stored transformed, never shown)\n";
}

}  // namespace cli
