// The employer: clsMandant and its side records (bank, provision fund, tax office,
// municipal office, year data, contribution accounts, document protection), the
// two catalogues it looks up, and the employee's document password.
#include "binding.h"
#include "ormelix/employer/lohn_pdf_encrypt.h"
#include "ormelix/employer/mandant.h"

namespace ormelix::python {

namespace {

py::arg_v NoMandant() { return py::arg("pMandant") = py::none(); }

void DefineMandant(py::module_& m) {
  auto cls = ClassOf<clsMandant>(m, "clsMandant");
  cls.def(py::init<>());
  Members<&clsMandant::Name, &clsMandant::Zusatz, &clsMandant::Strasse, &clsMandant::KFZ, &clsMandant::PLZ,
          &clsMandant::Ort, &clsMandant::Telefon, &clsMandant::Telefax, &clsMandant::EMail, &clsMandant::Homepage,
          &clsMandant::DVR, &clsMandant::Neufög, &clsMandant::Neufög_Von, &clsMandant::Neufög_Bis,
          &clsMandant::NeufögV, &clsMandant::NeufögV_Von, &clsMandant::Betriebsart,
          &clsMandant::BuchungslisteELGesamt>(cls);
  Methods<&clsMandant::ID, &clsMandant::Bankverbindung, &clsMandant::BMVG_Kasse, &clsMandant::Finanzamt,
          &clsMandant::Kommunal, &clsMandant::Jahresdaten, &clsMandant::Beitragskonten, &clsMandant::PDFEncrypt,
          &clsMandant::Refresh, &clsMandant::Jahr>(cls);
  Method<&clsMandant::SetBankverbindung>(cls, py::arg("p"));
  Method<&clsMandant::SetBMVG_Kasse>(cls, py::arg("p"));
  Method<&clsMandant::SetFinanzamt>(cls, py::arg("p"));
  Method<&clsMandant::SetKommunal>(cls, py::arg("p"));
  Method<&clsMandant::SetJahresdaten>(cls, py::arg("p"));
  Method<&clsMandant::InitLohnDB>(cls, py::arg("pLohnDatabase"));
  Method<&clsMandant::InitImportDB>(cls, py::arg("pImportDatabase"));
  Method<&clsMandant::ChangeYear>(cls, py::arg("pJahr"));
  Method<&clsMandant::Update>(cls, py::arg("pRekursiv") = true);
  Method<&clsMandant::LoadMandant>(cls, py::arg("pID"), py::arg("pNurJahresdaten"));
}

void DefineAuthorities(py::module_& m) {
  auto bank = ClassOf<clsMandant_Bankverbindung>(m, "clsMandant_Bankverbindung");
  bank.def(py::init<>());
  Members<&clsMandant_Bankverbindung::ID, &clsMandant_Bankverbindung::Bank, &clsMandant_Bankverbindung::Kommentar,
          &clsMandant_Bankverbindung::EmpfKennung, &clsMandant_Bankverbindung::AbsKennung,
          &clsMandant_Bankverbindung::BIC, &clsMandant_Bankverbindung::IBAN>(bank);
  Method<&clsMandant_Bankverbindung::InitLohnDB>(bank, py::arg("pDatabase"));
  Method<&clsMandant_Bankverbindung::LoadMandantBankverbindung>(bank, py::arg("pID"));
  Method<&clsMandant_Bankverbindung::Update>(bank, NoMandant());

  auto fund = ClassOf<clsMandant_BMVG_Kasse>(m, "clsMandant_BMVG_Kasse");
  fund.def(py::init<>());
  Members<&clsMandant_BMVG_Kasse::ID>(fund);
  Methods<&clsMandant_BMVG_Kasse::Kasse>(fund);
  Method<&clsMandant_BMVG_Kasse::SetKasse>(fund, py::arg("pKasse"));
  Method<&clsMandant_BMVG_Kasse::InitLohnDB>(fund, py::arg("pDatabase"));
  Method<&clsMandant_BMVG_Kasse::InitImportDB>(fund, py::arg("pDatabase"));
  Method<&clsMandant_BMVG_Kasse::Load>(fund, py::arg("pID"));
  Method<&clsMandant_BMVG_Kasse::Update>(fund, NoMandant(), py::arg("pBMVG_Kasse") = py::none());

  auto tax = ClassOf<clsMandant_Finanzamt>(m, "clsMandant_Finanzamt");
  tax.def(py::init<>());
  Members<&clsMandant_Finanzamt::ID, &clsMandant_Finanzamt::Finanzamt, &clsMandant_Finanzamt::FinanzamtNr,
          &clsMandant_Finanzamt::SteuerNr, &clsMandant_Finanzamt::Bank, &clsMandant_Finanzamt::IBAN,
          &clsMandant_Finanzamt::BIC>(tax);
  Method<&clsMandant_Finanzamt::InitLohnDB>(tax, py::arg("pDatabase"));
  Method<&clsMandant_Finanzamt::LoadMandantFinanzamt>(tax, py::arg("pID"));
  Method<&clsMandant_Finanzamt::Update>(tax, NoMandant());

  auto office = ClassOf<clsMandant_Kommunal>(m, "clsMandant_Kommunal");
  office.def(py::init<>());
  Members<&clsMandant_Kommunal::ID, &clsMandant_Kommunal::Kommunal, &clsMandant_Kommunal::Name,
          &clsMandant_Kommunal::Zusatz, &clsMandant_Kommunal::Strasse, &clsMandant_Kommunal::PLZ,
          &clsMandant_Kommunal::Ort, &clsMandant_Kommunal::Telefon, &clsMandant_Kommunal::DVR,
          &clsMandant_Kommunal::KommStNr, &clsMandant_Kommunal::Abgabenkonto_KommSt,
          &clsMandant_Kommunal::Abgabenkonto_UBahn, &clsMandant_Kommunal::Betriebsort, &clsMandant_Kommunal::Bank,
          &clsMandant_Kommunal::IBAN, &clsMandant_Kommunal::BIC>(office);
  Methods<&clsMandant_Kommunal::Gemeinde>(office);
  Method<&clsMandant_Kommunal::InitLohnDB>(office, py::arg("pDatabase"));
  Method<&clsMandant_Kommunal::InitImportDB>(office, py::arg("pDatabase"));
  Method<&clsMandant_Kommunal::LoadMandantKommunal>(office, py::arg("pID"));
  Method<&clsMandant_Kommunal::Update>(office, NoMandant(), py::arg("pGemeinde") = py::none());
}

void DefineCatalogues(py::module_& m) {
  auto gemeinde = ClassOf<clsGemeinde>(m, "clsGemeinde");
  gemeinde.def(py::init<>());
  Methods<&clsGemeinde::ID, &clsGemeinde::Gemeinde, &clsGemeinde::Sachbearbeiter, &clsGemeinde::Kennziffer,
          &clsGemeinde::Strasse, &clsGemeinde::PLZ, &clsGemeinde::Ort, &clsGemeinde::Telefon>(gemeinde);
  Method<&clsGemeinde::InitLohnDB>(gemeinde, py::arg("pDatabase"));
  Method<&clsGemeinde::InitImportDB>(gemeinde, py::arg("pDatabase"));
  Method<&clsGemeinde::Load>(gemeinde, py::arg("pGemeindenummer"));

  auto kasse = ClassOf<clsBMVG_Kasse>(m, "clsBMVG_Kasse");
  kasse.def(py::init<>());
  Methods<&clsBMVG_Kasse::ID, &clsBMVG_Kasse::Leitzahl, &clsBMVG_Kasse::Name, &clsBMVG_Kasse::Sachbearbeiter,
          &clsBMVG_Kasse::Strasse, &clsBMVG_Kasse::PLZ, &clsBMVG_Kasse::Ort, &clsBMVG_Kasse::Telefon,
          &clsBMVG_Kasse::Institut, &clsBMVG_Kasse::Bauarbeiter_Kasse, &clsBMVG_Kasse::Anmerkung>(kasse);
  Method<&clsBMVG_Kasse::InitLohnDB>(kasse, py::arg("pDatabase"));
  Method<&clsBMVG_Kasse::InitImportDB>(kasse, py::arg("pDatabase"));
  Method<&clsBMVG_Kasse::Load>(kasse, py::arg("pID"));
}

void DefineYearAccountsProtection(py::module_& m) {
  auto year = ClassOf<clsMandant_Jahresdaten>(m, "clsMandant_Jahresdaten");
  year.def(py::init<>());
  Members<&clsMandant_Jahresdaten::ID, &clsMandant_Jahresdaten::MVAbgabe_GF_am_Jahresende,
          &clsMandant_Jahresdaten::SVAbgabe_GF_am_Jahresende, &clsMandant_Jahresdaten::DZBundesland,
          &clsMandant_Jahresdaten::DBSenkung, &clsMandant_Jahresdaten::Abrechnungsart>(year);
  Methods<&clsMandant_Jahresdaten::Jahr>(year);
  Method<&clsMandant_Jahresdaten::InitLohnDB>(year, py::arg("pDatabase"));
  Method<&clsMandant_Jahresdaten::LoadMandantJahresdaten>(year, py::arg("pID"), py::arg("pJahr"));
  Method<&clsMandant_Jahresdaten::Update>(year, NoMandant());

  auto account = ClassOf<clsMandant_Beitragskonto>(m, "clsMandant_Beitragskonto");
  Methods<&clsMandant_Beitragskonto::ID, &clsMandant_Beitragskonto::VTID, &clsMandant_Beitragskonto::VT_Code,
          &clsMandant_Beitragskonto::VT_Bezeichnung, &clsMandant_Beitragskonto::VT_KurzBezeichnung,
          &clsMandant_Beitragskonto::VT_Straße, &clsMandant_Beitragskonto::VT_PLZ, &clsMandant_Beitragskonto::VT_Ort,
          &clsMandant_Beitragskonto::VT_Bank, &clsMandant_Beitragskonto::VT_IBAN, &clsMandant_Beitragskonto::VT_BIC,
          &clsMandant_Beitragskonto::BKNR, &clsMandant_Beitragskonto::Anmerkung, &clsMandant_Beitragskonto::Standard>(
      account);

  using Konten = clsMandant_Beitragskonten;
  auto accounts = ClassOf<Konten>(m, "clsMandant_Beitragskonten");
  CollectionProtocol<Konten, clsMandant_Beitragskonto>(
      accounts, [](const Konten& self, const Variant& key) { return self.Item(key); });
  Methods<&Konten::Refresh, &Konten::IsMoreSVTraeger>(accounts);
  Method<&Konten::Exist>(accounts, py::arg("pIndex"));
  Method<&Konten::InitLohnDB>(accounts, py::arg("pDatabase"));
  Method<&Konten::LoadMandantBeitragskonten>(accounts, py::arg("pID"));

  auto protection = ClassOf<clsMandant_PDFEncrypt>(m, "clsMandant_PDFEncrypt");
  protection.def(py::init<>());
  Members<&clsMandant_PDFEncrypt::ID, &clsMandant_PDFEncrypt::EncryptVS, &clsMandant_PDFEncrypt::VSPasswordOption,
          &clsMandant_PDFEncrypt::VSPassword>(protection);
  Method<&clsMandant_PDFEncrypt::InitLohnDB>(protection, py::arg("pDatabase"));
  Method<&clsMandant_PDFEncrypt::LoadMandantPDFEncrypt>(protection, py::arg("pID"));
  Method<&clsMandant_PDFEncrypt::Update>(protection, NoMandant());

  auto password = ClassOf<LLohn_PDFEncrypt>(m, "LLohn_PDFEncrypt");
  password.def(py::init<>());
  Members<&LLohn_PDFEncrypt::ID, &LLohn_PDFEncrypt::VSPassword>(password);
}

}  // namespace

void DeclareEmployer(py::module_& m) {
  Class<clsMandant>(m, "clsMandant", "An employer (a row of Mandanten) with its side records.");
  Class<clsMandant_Bankverbindung>(m, "clsMandant_Bankverbindung", "The employer's bank connection.");
  Class<clsMandant_BMVG_Kasse>(m, "clsMandant_BMVG_Kasse", "The employer's company provision fund.");
  Class<clsMandant_Finanzamt>(m, "clsMandant_Finanzamt", "The employer's tax office.");
  Class<clsMandant_Kommunal>(m, "clsMandant_Kommunal", "The employer's municipal office.");
  Class<clsGemeinde>(m, "clsGemeinde", "A municipality of the catalogue Gemeinden (reference store).");
  Class<clsBMVG_Kasse>(m, "clsBMVG_Kasse", "A provision fund of the catalogue BMVG_Kassen (reference store).");
  Class<clsMandant_Jahresdaten>(m, "clsMandant_Jahresdaten", "What an employer settles for one year.");
  Class<clsMandant_Beitragskonto>(m, "clsMandant_Beitragskonto", "One contribution account with its carrier.");
  Class<clsMandant_Beitragskonten>(m, "clsMandant_Beitragskonten", "The employer's contribution accounts.");
  Class<clsMandant_PDFEncrypt>(m, "clsMandant_PDFEncrypt", "The protection of the employer's pay documents.");
  Class<LLohn_PDFEncrypt>(m, "LLohn_PDFEncrypt", "The password of an employee's PDF documents.");
}

void DefineEmployer(py::module_& m) {
  DefineMandant(m);
  DefineAuthorities(m);
  DefineCatalogues(m);
  DefineYearAccountsProtection(m);
}

}  // namespace ormelix::python
