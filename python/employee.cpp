// The employees: the list clsMitarbeiter, the employee LLohn with its month arrays
// and wage-type grids, and its value objects (personal data, year data,
// transfers, the monthly small objects).
#include <set>
#include <string_view>

#include "binding.h"
#include "ormelix/employee/jahresdaten.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employee/lohn_arbeiter.h"
#include "ormelix/employee/lohn_values.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/employee/uebertritt.h"

namespace ormelix::python {

namespace {

using L = LLohn;

void DefineList(py::module_& m) {
  auto list = ClassOf<clsMitarbeiter>(m, "clsMitarbeiter");
  CollectionProtocol<clsMitarbeiter, LLohn>(list,
                                            [](const clsMitarbeiter& self, const Variant& key) { return self.Item(key); });
  Method<&clsMitarbeiter::Load>(list, py::arg("pFilterAbrechnungsjahr"), py::arg("pSortOrder") = lcPersonalnummer);
  Method<&clsMitarbeiter::Refresh>(list, py::arg("pRefresh"));
  Method<&clsMitarbeiter::Exist>(list, py::arg("pIndex"));
  Method<&clsMitarbeiter::SUM_SV_Laufend_Basis>(list, py::arg("pMonat"));
  // The C++ Add replaces its argument by the employee of the reloaded list; here
  // that employee is the result.
  list.def(
      "Add",
      [](clsMitarbeiter& self, std::shared_ptr<LLohn> pLohn, std::int16_t pFilterAbrechnungsjahr,
         eSortOrderMitarbeiter pMSortOrder) {
        self.Add(CheckArgument(pLohn, "Add"), pFilterAbrechnungsjahr, pMSortOrder);
        return pLohn;
      },
      py::arg("pLohn"), py::arg("pFilterAbrechnungsjahr"), py::arg("pMSortOrder") = lcPersonalnummer);
  list.def(
      "SetProgress",
      [](clsMitarbeiter& self, std::function<void(long, long)> progress) { self.SetProgress(std::move(progress)); },
      py::arg("progress"), "Called with (done, total) after each employee row of a Load; None for no calls.");
}

// The month arrays of the pay record, one property each, named and reached as the
// column declaration of Mitarbeiter_Lohnzettel has them: every month array of
// LLohn has its column there. Properties of a monthly child or of the personal
// data ("Sechstel.JahresSumme", "Mitarbeiter.OffeneUT") belong to those classes.
void DefinePayMonths(Class<LLohn>& cls) {
  std::set<std::string_view> bound;
  LLohn sample;
  for (const auto& decl : modDatabase::LohnzettelColumns().Columns()) {
    if (!decl.column || !decl.property || !decl.property.name) continue;
    const char* name = decl.property.name;
    if (std::string_view(name).find('.') != std::string_view::npos || !bound.insert(name).second) continue;
    auto get = decl.property.get;
    modDatabase::LohnzettelMonth sample_row{&sample, 1};
    cls.def_property_readonly(
        name,
        [name, get](const std::shared_ptr<LLohn>& self) {
          return IndexedValues(name, 1, 1, 12, true, [self, get](const IndexedValues::Indices& i) {
            modDatabase::LohnzettelMonth row{self.get(), i[0]};
            return get(row);
          });
        },
        py::doc(IndexedDoc(get(sample_row)).c_str()));
  }
}

void DefineLohn(py::module_& m) {
  auto cls = ClassOf<LLohn>(m, "LLohn");
  cls.def(py::init<>());
  Methods<&L::ID, &L::Index, &L::Laufbahn, &L::Mitarbeiter, &L::Jahresdaten, &L::Kinder, &L::PDFEncrypt>(cls);
  MonthlyChildren<&L::Sechstel, &L::FB_Fallweise, &L::Uebertritt, &L::PendlerAR, &L::SV_EL_Laufend,
                  &L::Kurzarbeit>(cls);
  Method<&L::LoadMitarbeiter>(cls, py::arg("Manager"), py::arg("pMitarbeiterID"), py::arg("pIndex"));
  Method<&L::Update>(cls, py::arg("Manager"), py::arg("pUpdate") = ucAllTables, py::arg("pMonat") = 0);
  Method<&L::Refresh>(cls, py::arg("Manager"), py::arg("pUpdate") = ucAllTables);
  Method<&L::BeitragskontoID>(cls, py::arg("Manager"), py::arg("pZeitraum"));
  Methods<&L::GetDBDZKST_frei, &L::GetTeuerungsprämie, &L::GetTeuerungsprämieKV,
          &L::GetMitarbeitergewinnbeteiligung>(cls, py::arg("pMonat"));
  Members<&L::Geb_Datum, &L::op_Frei_Forstarbeiter, &L::op_ForstarbeiterLand, &L::pAbgaben, &L::pMitarbeiterblatt,
          &L::pBankliste, &L::pAusdruck, &L::pMitarbeiter, &L::pBeitragsNachweis, &L::pDienstgeber, &L::pGrafik,
          &L::pLohnkonto, &L::pJahresLohnZettel, &L::pBeitragsNachweisJahr, &L::pZahlschein, &L::pTelebanking,
          &L::pLohnjournal, &L::pBanklisteBerechnung, &L::op_ErntehelferLAGKULK, &L::pBuchungsliste,
          &L::op_NoLKKUForstArbeiter, &L::op_NoLKKUForstAngestellter, &L::pKommunal, &L::op_ForstarbeiterLandWF,
          &L::IsEhepartner, &L::Malus_Monat, &L::op_ForstarbeiterKULK, &L::KinderWegfallFB, &L::BankName,
          &L::BasisID, &L::IBAN, &L::BIC, &L::E18_TestMeldung, &L::PartnerWegfallÄnderung,
          &L::PartnerAlleinlaufendeJahr, &L::PartnerAlleinFolgendeJahr, &L::Barauszahler, &L::AuswahlBNW,
          &L::AnzeigeVNWErsteintritt, &L::Neuanlage, &L::Anonymize>(cls);
  DefinePayMonths(cls);
  GridMembers<&L::SonstigeAbz_text, &L::Aufwandsentsch_text, &L::SonstigeAbz_Anzahl, &L::SonstigeAbz_Satz,
              &L::SonstigeAbz_Betrag, &L::Aufwandsentsch_Anzahl, &L::Aufwandsentsch_Satz, &L::Aufwandsentsch_Betrag,
              &L::ZSL_DBDZKST_frei, &L::ZSL_Teuerungsprämie, &L::ZSL_TeuerungsprämieKV,
              &L::ZSL_Mitarbeitergewinnbeteiligung, &L::ZSL_Text, &L::ZSL_Anzahl, &L::ZSL_Satz, &L::ZSL_Prozent,
              &L::ZSL_Betrag>(cls);
}

void DefineArbeiter(py::module_& m) {
  using A = LLohn_Arbeiter;
  auto cls = ClassOf<A>(m, "LLohn_Arbeiter");
  cls.def(py::init<>());
  Members<&A::FName, &A::FName1, &A::VName, &A::Adresse, &A::PLZ, &A::Ort, &A::Titel, &A::KFZ, &A::Vers_Nr,
          &A::Beschaeftigt, &A::pName, &A::pVers_Nr, &A::kName, &A::kVers_Nr, &A::Telefon, &A::Handy, &A::Fax,
          &A::EMail, &A::Internet, &A::FName2, &A::Vers_NrZusatz, &A::FreiDNFA, &A::FreiDNFASteuerNr,
          &A::SVNRAnforderungsID, &A::Personalnummer, &A::Staaten, &A::Geschlecht, &A::BeschaeftigtTyp,
          &A::BAUURLKasse, &A::FreiDNSZNotCheck, &A::NFBeschraengteBeguenstigung, &A::BauarbeiterNoZuschlag,
          &A::Gemeinde, &A::Stunden, &A::ArbeitsbewilligungBis, &A::Pensionsstichtag, &A::PensionbezugAb,
          &A::IgnorierenNeuregelung2013Pensionsstichtag>(cls);
  ArrayMembers<&A::OffeneUT>(cls);

  using E = LLohn_Arbeiter_ALVBGruppeE;
  auto group = ClassOf<E>(m, "LLohn_Arbeiter_ALVBGruppeE");
  group.def(py::init<>());
  Members<&E::BeitragsbefreiungMonat, &E::ALVDateBegin, &E::ALVDateEnd, &E::ALVBemessung>(group);

  using G = LLohn_Arbeiter_ALVBGruppe;
  auto groups = ClassOf<G>(m, "LLohn_Arbeiter_ALVBGruppe");
  groups.def(py::init<>());
  Methods<&G::N15g, &G::N15m, &G::N15n, &G::N25g, &G::N25m, &G::N25n>(groups);
}

void DefineYearAndMonthValues(py::module_& m) {
  using J = LLohn_Jahresdaten;
  auto year = ClassOf<J>(m, "LLohn_Jahresdaten");
  year.def(py::init<>());
  Members<&J::KFZ_Anzahl_Kalendermonate, &J::Werksverkehr_Anzahl_Kalendermonate, &J::BeitragsTeilentgeldTag,
          &J::BeitragsTeilentgeld, &J::ArbeitsstaetteID, &J::ArbeitsstaetteMitausgeben, &J::ServiceEntgeltMonat,
          &J::ServiceEntgeltAnzahl, &J::N70NichtRechnen, &J::DZBundesland, &J::BemerkungNotPrint, &J::Bemerkung,
          &J::AngewandterKV, &J::AngewandterKVText, &J::KontrollSechstelNichtRechnen,
          &J::SechstelImmerUm15ProzentErhöhen, &J::SechstelNieUm15ProzentErhöhen>(year);
  Methods<&J::SachbezugRegelung>(year);

  using S = LLohn_SachbezugRegelung;
  auto rule = ClassOf<S>(m, "LLohn_SachbezugRegelung");
  rule.def(py::init<>());
  Members<&S::SBezugAb, &S::SBezugJahr, &S::SBezugMonat>(rule);

  using B = LLohn_BeitragsnachweisJahr;
  auto names = ClassOf<B>(m, "LLohn_BeitragsnachweisJahr");
  names.def(py::init<>());
  Members<&B::Familienname, &B::VorName, &B::Titel>(names);

  using U = LLohn_Übertritt;
  auto transfer = ClassOf<U>(m, "LLohn_Übertritt");
  transfer.def(py::init<>());
  Members<&U::Datum, &U::BEGR1, &U::BEGR2, &U::BEGRKürzel1, &U::BEGRKürzel2, &U::Basis1, &U::Basis2,
          &U::LehrJahre>(transfer);

  auto casual = ClassOf<LLohn_Fallweise>(m, "LLohn_Fallweise");
  casual.def(py::init<>());
  Members<&LLohn_Fallweise::FallweiseBeschäftigt, &LLohn_Fallweise::körperlicheTätigkeit>(casual);
  ArrayMembers<&LLohn_Fallweise::Tage>(casual);

  auto sixth = ClassOf<LLohn_Eingabe>(m, "LLohn_Eingabe");
  sixth.def(py::init<>());
  Members<&LLohn_Eingabe::eJahresSumme, &LLohn_Eingabe::JahresSumme>(sixth);

  using P = LLohn_PendlerAR;
  auto commuter = ClassOf<P>(m, "LLohn_PendlerAR");
  commuter.def(py::init<>());
  Members<&P::Pendler, &P::PendlerDrittel, &P::PendlerKM, &P::PendlerSave, &P::Pendler_EuroBeiAufRollen,
          &P::Pendler_BeiAufRollen>(commuter);
}

}  // namespace

void DeclareEmployee(py::module_& m) {
  Class<clsMitarbeiter>(m, "clsMitarbeiter", "The employees of the current employer (clsManager.Mitarbeiter()).");
  Class<LLohn>(m, "LLohn",
               "One employee for one year: master data, career, children, the monthly pay records (month "
               "arrays: lohn.Gehalt[3], lohn.Gehalt[3] = 3350.0), wage-type lines and year data.");
  Class<LLohn_Arbeiter>(m, "LLohn_Arbeiter", "The personal data of an employee.");
  Class<LLohn_Arbeiter_ALVBGruppeE>(m, "LLohn_Arbeiter_ALVBGruppeE", "One group of unemployment-insurance data.");
  Class<LLohn_Arbeiter_ALVBGruppe>(m, "LLohn_Arbeiter_ALVBGruppe", "The six groups of unemployment-insurance data.");
  Class<LLohn_Jahresdaten>(m, "LLohn_Jahresdaten", "What is settled for an employee for one year.");
  Class<LLohn_SachbezugRegelung>(m, "LLohn_SachbezugRegelung", "From when the benefit-in-kind rule applies.");
  Class<LLohn_BeitragsnachweisJahr>(m, "LLohn_BeitragsnachweisJahr", "Three names for a caller's own use.");
  Class<LLohn_Übertritt>(m, "LLohn_Übertritt", "A change of contribution group within a month.");
  Class<LLohn_Fallweise>(m, "LLohn_Fallweise", "The days of occasional employment of a month.");
  Class<LLohn_Eingabe>(m, "LLohn_Eingabe", "The one-sixth year total of a month and its entry marker.");
  Class<LLohn_PendlerAR>(m, "LLohn_PendlerAR", "The commuter allowance of a month at a recalculation.");
}

void DefineEmployee(py::module_& m) {
  DefineList(m);
  DefineLohn(m);
  DefineArbeiter(m);
  DefineYearAndMonthValues(m);
}

}  // namespace ormelix::python
