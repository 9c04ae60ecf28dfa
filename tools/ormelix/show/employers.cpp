// ormelix show employers: each employer with its side records (bank, provision
// fund, tax office, municipal office, year data, contribution accounts and
// document protection; passwords are never shown), and the choice of an employer
// for the views that look at one.
#include <algorithm>
#include <iostream>
#include <sstream>
#include <vector>

#include "common/properties.h"
#include "common/table.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;

namespace {

const char* const kBundeslaender[] = {"",         "Burgenland", "Kärnten", "Niederösterreich", "Oberösterreich",
                                      "Salzburg", "Steiermark", "Tirol",   "Vorarlberg",       "Wien"};

std::string BundeslandName(int value) { return value >= 1 && value <= 9 ? kBundeslaender[value] : ""; }

std::string AbrechnungsartName(int value) {
  switch (value) {
    case eMANone: return "eMANone";
    case eMASelbstabrechner: return "eMASelbstabrechner";
    case eMAVorschreibebetrieb: return "eMAVorschreibebetrieb";
  }
  return "";
}

std::string PasswordOptionName(int value) {
  switch (value) {
    case eVSPOSVNummer: return "eVSPOSVNummer";
    case eVSPOSIndividual: return "eVSPOSIndividual";
    case eVSPOSIndividualMitarbeiter: return "eVSPOSIndividualMitarbeiter";
  }
  return "";
}

Properties Bank(const clsMandant_Bankverbindung& b) {
  Properties p;
  p.Text("ID", b.ID).Text("Bank", b.Bank).Text("Kommentar", b.Kommentar).Text("EmpfKennung", b.EmpfKennung);
  p.Text("AbsKennung", b.AbsKennung).Text("BIC", b.BIC).Text("IBAN", b.IBAN);
  return p;
}

Properties Fund(const clsBMVG_Kasse& k) {
  Properties p;
  p.Text("ID", k.ID()).Text("Leitzahl", k.Leitzahl()).Text("Name", k.Name()).Text("Sachbearbeiter", k.Sachbearbeiter());
  p.Text("Strasse", k.Strasse()).Text("PLZ", k.PLZ()).Text("Ort", k.Ort()).Text("Telefon", k.Telefon());
  p.Text("Institut", k.Institut()).Flag("Bauarbeiter_Kasse", k.Bauarbeiter_Kasse()).Text("Anmerkung", k.Anmerkung());
  return p;
}

Properties TaxOffice(const clsMandant_Finanzamt& f) {
  Properties p;
  p.Text("ID", f.ID).Text("Finanzamt", f.Finanzamt).Text("FinanzamtNr", f.FinanzamtNr).Text("SteuerNr", f.SteuerNr);
  p.Text("Bank", f.Bank).Text("IBAN", f.IBAN).Text("BIC", f.BIC);
  return p;
}

Properties MunicipalOffice(const clsMandant_Kommunal& k) {
  Properties p;
  p.Text("ID", k.ID).Whole("Kommunal", k.Kommunal).Text("Name", k.Name).Text("Zusatz", k.Zusatz);
  p.Text("Strasse", k.Strasse).Text("PLZ", k.PLZ).Text("Ort", k.Ort).Text("Telefon", k.Telefon).Text("DVR", k.DVR);
  p.Text("KommStNr", k.KommStNr).Text("Abgabenkonto_KommSt", k.Abgabenkonto_KommSt);
  p.Text("Abgabenkonto_UBahn", k.Abgabenkonto_UBahn).Text("Betriebsort", k.Betriebsort);
  p.Text("Bank", k.Bank).Text("IBAN", k.IBAN).Text("BIC", k.BIC);
  return p;
}

Properties Municipality(const clsGemeinde& g) {
  Properties p;
  p.Text("ID", g.ID()).Text("Gemeinde", g.Gemeinde()).Text("Sachbearbeiter", g.Sachbearbeiter());
  p.Text("Kennziffer", g.Kennziffer()).Text("Strasse", g.Strasse()).Text("PLZ", g.PLZ()).Text("Ort", g.Ort());
  p.Text("Telefon", g.Telefon());
  return p;
}

Properties YearData(const clsMandant_Jahresdaten& j) {
  Properties p;
  p.Whole("Jahr", j.Jahr()).Text("ID", j.ID).Flag("MVAbgabe_GF_am_Jahresende", j.MVAbgabe_GF_am_Jahresende);
  p.Flag("SVAbgabe_GF_am_Jahresende", j.SVAbgabe_GF_am_Jahresende);
  p.Whole("DZBundesland", j.DZBundesland, BundeslandName(j.DZBundesland)).Flag("DBSenkung", j.DBSenkung);
  p.Whole("Abrechnungsart", j.Abrechnungsart, AbrechnungsartName(j.Abrechnungsart));
  return p;
}

Properties Account(const clsMandant_Beitragskonto& a) {
  Properties p;
  p.Text("ID", a.ID()).Text("VTID", a.VTID()).Text("VT_Code", a.VT_Code()).Text("VT_Bezeichnung", a.VT_Bezeichnung());
  p.Text("VT_KurzBezeichnung", a.VT_KurzBezeichnung()).Text("VT_Straße", a.VT_Straße()).Text("VT_PLZ", a.VT_PLZ());
  p.Text("VT_Ort", a.VT_Ort()).Text("VT_Bank", a.VT_Bank()).Text("VT_IBAN", a.VT_IBAN()).Text("VT_BIC", a.VT_BIC());
  p.Text("BKNR", a.BKNR()).Text("Anmerkung", a.Anmerkung()).Flag("Standard", a.Standard());
  return p;
}

Properties Protection(const clsMandant_PDFEncrypt& e) {
  Properties p;
  p.Text("ID", e.ID).Flag("EncryptVS", e.EncryptVS);
  p.Whole("VSPasswordOption", e.VSPasswordOption, PasswordOptionName(e.VSPasswordOption));
  return p;
}

// The years for which the employer has year data, as the host finds them.
std::vector<std::int16_t> YearsOf(clsManager& manager, const std::string& employer) {
  std::vector<std::int16_t> years;
  auto rs = manager.AktDB()->Session().OpenRecordset(
      "SELECT DISTINCT [Jahr] FROM [Mandanten_Jahresdaten] WHERE [MandantenID]=" + ValueHelpers::SqlID(employer) +
      " ORDER BY [Jahr]");
  for (; !rs->Eof(); rs->MoveNext()) years.push_back(ValueHelpers::ToInteger(rs->Fields("Jahr")));
  return years;
}

}  // namespace

void AddSideRecords(clsManager& manager, json::Value& e, std::ostream& text) {
  clsMandant& m = *manager.AktMandant();
  text << "\n" << m.Name << " (" << m.ID() << ")\n";

  Properties bank = Bank(*m.Bankverbindung());
  e.Set("Bankverbindung", bank.Json());
  bank.Print(text, "Bankverbindung");

  Properties fund_record;
  fund_record.Text("ID", m.BMVG_Kasse()->ID);
  Properties fund = Fund(*m.BMVG_Kasse()->Kasse());
  json::Value& fund_json = e.Set("BMVG_Kasse", fund_record.Json());
  fund_json.Set("Kasse", fund.Json());
  fund.Print(text, "BMVG_Kasse (ID " + m.BMVG_Kasse()->ID + "), Kasse");

  Properties tax = TaxOffice(*m.Finanzamt());
  e.Set("Finanzamt", tax.Json());
  tax.Print(text, "Finanzamt");

  Properties office = MunicipalOffice(*m.Kommunal());
  Properties municipality = Municipality(*m.Kommunal()->Gemeinde());
  json::Value& office_json = e.Set("Kommunal", office.Json());
  office_json.Set("Gemeinde", municipality.Json());
  office.Print(text, "Kommunal");
  municipality.Print(text, "Kommunal, Gemeinde");

  json::Value& years = e.Set("Jahresdaten", json::Value::MakeArray());
  for (std::int16_t year : YearsOf(manager, m.ID())) {
    m.ChangeYear(year);
    Properties data = YearData(*m.Jahresdaten());
    years.Push(data.Json());
    data.Print(text, "Jahresdaten " + std::to_string(year));
  }

  const clsMandant_Beitragskonten& accounts = *m.Beitragskonten();
  json::Value& accounts_json = e.Set("Beitragskonten", json::Value::MakeObject());
  accounts_json.Set("Count", accounts.Count());
  accounts_json.Set("IsMoreSVTraeger", accounts.IsMoreSVTraeger());
  json::Value& items = accounts_json.Set("Item", json::Value::MakeArray());
  text << "  Beitragskonten: " << accounts.Count() << ", IsMoreSVTraeger "
       << (accounts.IsMoreSVTraeger() ? "ja" : "nein") << "\n";
  long position = 0;
  for (const auto& account : accounts) {
    Properties p = Account(*account);
    items.Push(p.Json());
    p.Print(text, "Beitragskonto " + std::to_string(++position));
  }

  Properties protection = Protection(*m.PDFEncrypt());
  e.Set("PDFEncrypt", protection.Json());
  protection.Print(text, "PDFEncrypt (das Kennwort wird nicht gezeigt)");
}

namespace {

std::vector<std::string> EmployerIds(ormelix::clsManager& manager) {
  std::vector<std::string> ids;
  auto rs = manager.AktDB()->Session().OpenRecordset("SELECT [ID] FROM [Mandanten] ORDER BY [Name] ASC, [Nr] ASC");
  for (; !rs->Eof(); rs->MoveNext()) ids.push_back(ormelix::ValueHelpers::ToText(rs->Fields("ID")));
  return ids;
}

}  // namespace

int ShowEmployers(ormelix::clsManager& manager, Arguments& args, bool as_json) {
  args.ExpectEnd("ormelix show employers [--json]");
  json::Value list = json::Value::MakeArray();
  TextTable table;
  std::ostringstream details;
  for (const char* header : {"ID", "Name", "Zusatz", "Anschrift", "DVR"}) table.Column(header);
  for (const std::string& id : EmployerIds(manager)) {
    manager.ChangeAktMandant(id);
    const ormelix::clsMandant& m = *manager.AktMandant();
    json::Value& employer = list.Push(EmployerJson(m));
    AddSideRecords(manager, employer, details);
    table.Row({m.ID(), m.Name, m.Zusatz, m.Strasse + ", " + m.PLZ + " " + m.Ort, m.DVR});
  }
  if (as_json) {
    json::Value document = json::Value::MakeObject();
    document.Set("employers", std::move(list));
    std::cout << document.Dump();
  } else {
    table.Print(std::cout);
    std::cout << details.str();
  }
  return 0;
}

json::Value EmployerJson(const ormelix::clsMandant& m) {
  using ormelix::DateHelpers::FormatDate;
  json::Value e = json::Value::MakeObject();
  e.Set("ID", m.ID());
  e.Set("Name", m.Name);
  e.Set("Zusatz", m.Zusatz);
  e.Set("Strasse", m.Strasse);
  e.Set("KFZ", m.KFZ);
  e.Set("PLZ", m.PLZ);
  e.Set("Ort", m.Ort);
  e.Set("Telefon", m.Telefon);
  e.Set("Telefax", m.Telefax);
  e.Set("EMail", m.EMail);
  e.Set("Homepage", m.Homepage);
  e.Set("DVR", m.DVR);
  e.Set("Neufög", m.Neufög);
  e.Set("Neufög_Von", FormatDate(m.Neufög_Von));
  e.Set("Neufög_Bis", FormatDate(m.Neufög_Bis));
  e.Set("NeufögV", m.NeufögV);
  e.Set("NeufögV_Von", FormatDate(m.NeufögV_Von));
  e.Set("Betriebsart", m.Betriebsart);
  e.Set("BuchungslisteELGesamt", m.BuchungslisteELGesamt);
  return e;
}

std::string SelectEmployer(ormelix::clsManager& manager, const std::optional<std::string>& wanted) {
  std::vector<std::string> ids = EmployerIds(manager);
  if (ids.empty()) throw UsageError("the store holds no employer");
  std::string id = ids.front();
  if (wanted) {
    id = ormelix::ValueHelpers::SqlID(*wanted);
    if (!ormelix::DateHelpers::IsID(ormelix::Variant(id)) || std::find(ids.begin(), ids.end(), id) == ids.end())
      throw UsageError("unknown employer '" + *wanted + "'; expected the ID of one of: ormelix show employers");
  }
  manager.ChangeAktMandant(id);
  return id;
}

}  // namespace cli
