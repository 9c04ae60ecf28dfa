// Short-time work, benefits in kind, replacement benefits and countries.
#include "binding.h"
#include "ormelix/benefits/ersatzleistungen.h"
#include "ormelix/benefits/sachbezuege.h"
#include "ormelix/countries/laender.h"
#include "ormelix/shorttime/kurzarbeit.h"

namespace ormelix::python {

namespace {

void DefineKurzarbeit(py::module_& m) {
  using K = LLohn_Kurzarbeit;
  auto cls = ClassOf<K>(m, "LLohn_Kurzarbeit");
  cls.def(py::init<>());
  Members<&K::IsKurzarbeit, &K::IsZeitraumAliquot, &K::Beginndatum, &K::Endedatum, &K::SVBG, &K::BVBG,
          &K::ReferenzGehalt, &K::Überstundenpauschale, &K::Sachbezug, &K::ReferenzBezügeLstPflSVPfl,
          &K::ReferenzBezügeLstFreiSvPfl, &K::ReferenzZulagenSVPfl, &K::Stundenlöhner, &K::AktuellesGehalt,
          &K::AktuellerSatz, &K::EFZEntgelt, &K::Wochenstunden, &K::Stundenteiler, &K::Provision,
          &K::IsReduktionProzent, &K::ReduktionProzentUm, &K::IsReduktionStunden, &K::ReduktionStundenAuf,
          &K::IsReduktionGehalt, &K::ReduktionGehaltAuf, &K::IsPhasenWechsel, &K::IsReduktionProzentWechsel,
          &K::ReduktionProzentUmWechsel, &K::IsReduktionStundenWechsel, &K::ReduktionStundenAufWechsel,
          &K::IsReduktionGehaltWechsel, &K::ReduktionGehaltAufWechsel, &K::Nettoersatzrate, &K::Bruttoersatzrate,
          &K::MindestentgeltBrutto, &K::MindestentgeltBruttoMitAufschlag, &K::AufschlagProzent, &K::Gehalt,
          &K::GehaltWechsel, &K::GehaltOhneKurzarbeit, &K::ProvisionKurzarbeit, &K::ProvisionOhneKurzarbeit,
          &K::Urlaubsstunden, &K::Zeitausgleich, &K::Urlaubsentgelt, &K::Zeitausgleichsentgelt, &K::IsLehrling,
          &K::Quarantäne, &K::QuarantäneStunden, &K::IsKurzarbeitsbonus, &K::Kurzarbeitsbonus>(cls);
  Methods<&K::StundenVorKurzarbeit, &K::SVBGAliquot, &K::BVBGAliquot, &K::Referenzentgelt,
          &K::MindestentgeltBruttoAufschlag, &K::MindestentgeltBruttoAliquot,
          &K::MindestentgeltBruttoMitAufschlagAliquot, &K::KurzarbeitsbonusAliquot, &K::GesamtStunden,
          &K::ErmittleMaxTage, &K::ErmittleMaxTageSVKurzareit, &K::ErmittleMaxTageSVOhneKurzareit,
          &K::ErmittleMaxTageSV>(cls);
  Method<&K::SetStundenVorKurzarbeit>(cls, py::arg("value"));
  Method<&K::ErmittleBruttoersatzrateFürBetrag>(cls, py::arg("pValue"));
  Methods<&K::ErmittleAliquotBetragInKurzarbeit, &K::ErmittleAliquotBetragOhneKurzarbeit>(
      cls, py::arg("pValue"), py::arg("pMaxTage"), py::arg("pAliTage"));
}

void DefineSachbezuege(py::module_& m) {
  using S = clsMitarbeiter_Sachbezüge;
  auto cls = ClassOf<S>(m, "clsMitarbeiter_Sachbezüge");
  cls.def(py::init<>());
  Method<&S::Init>(cls, py::arg("pManager"));
  Method<&S::Load>(cls, py::arg("pMitarbeiterID"), py::arg("pZeitraum"));
  Method<&S::Update>(cls, py::arg("pNewPeriod") = 0, py::arg("pRetID") = "");
  Methods<&S::ID>(cls);
  Members<&S::Volle_freie_Station, &S::für_Ehegatten, &S::für_Kinder_bis_6_Lj, &S::Anzahl_Kinder_6_Lj,
          &S::für_nicht_volljährige_Kinder, &S::Anzahl_Kinder_nicht_volljährig, &S::für_volljährige_Kinder,
          &S::Anzahl_Kinder_volljährig, &S::Zehntelregelung, &S::Eigenheim, &S::Hausbetreuer,
          &S::Keine_Normwohnung, &S::dienstnahe_Wohnung, &S::Bundesland, &S::Mittelpreis_Verbrauchsortes,
          &S::Wohnungsfläche, &S::Baujahr, &S::angemietete_Wohnung, &S::Miete, &S::Betriebskosten,
          &S::Betriebskosten_werden_getragen, &S::Heizkosten_werden_getragen, &S::Heizkosten, &S::Kostenbeitrag,
          &S::Dienst_bezahlt_Überlassungspreis, &S::Einschleifregelung, &S::privat_gefahrene_KM,
          &S::Anschaffungskosten, &S::Verkehrskostenersatz, &S::Fahrzeug_mit_Chaffeur, &S::Fahrtenbuch,
          &S::einmaliger_Kostenbeitrag, &S::einmaliger_Kostenbeitrag_Betrag, &S::monatl_lfd_Kostenbeitrag,
          &S::monatl_lfd_Kostenbeitrag_Betrag, &S::Anzahl_Garagenplätze, &S::CO2Emissionswert,
          &S::Co2Emissionswert_unbekannt, &S::Anschaffungsjahr, &S::Anschaffungsmonat, &S::Auslaufmodell,
          &S::Brennholzdeputate, &S::Hartholz, &S::Weichholz, &S::Sägeabfallholz_und_Astholz,
          &S::Übertragung_am_Stamm, &S::Kohle_und_Koks, &S::Steinkohle, &S::Briketts, &S::Hüttenkoks,
          &S::Selbstabholung, &S::Strom, &S::Mahlprodukte, &S::Roggenmehl, &S::Weizenmehl, &S::Weizen_und_Maisgrieß,
          &S::Getreide, &S::Roggen, &S::Weizen_und_Futtergerste, &S::Mais, &S::Fleisch, &S::Schweinefleisch,
          &S::Kalbfleisch, &S::Rindfleisch, &S::Schweinehälfte_im_Ganzen, &S::Ferkel, &S::Sonstige_Lebensmittel,
          &S::Eier, &S::Käse, &S::Butter, &S::Kartoffel, &S::Vollmilch, &S::Maschinenselbstkosten,
          &S::Sonstige_Sachbezüge>(cls);
}

void DefineErsatzleistungen(py::module_& m) {
  using E = LLohn_Ersatzleistung;
  auto benefit = ClassOf<E>(m, "LLohn_Ersatzleistung");
  benefit.def(py::init<>());
  Members<&E::ID, &E::LaufbahnID, &E::Geringfügig, &E::TarifGruppe, &E::SVTage, &E::Zeitraum, &E::ALV_Index,
          &E::ALV_Basis, &E::ALV, &E::SV_Laufend_Basis, &E::SV_Laufend_DN, &E::SV_Laufend_DG, &E::SV_N70_Laufend_DN,
          &E::SV_N70_Laufend_DG, &E::NeuFög_Laufend, &E::SV_Laufend_DGA, &E::SV_A22_Laufend_Basis,
          &E::SV_A22_Laufend_Betrag, &E::BV_Basis, &E::BV_Betrag, &E::BV_Zuschlag, &E::BV_Prozent>(benefit);
  Methods<&E::SV_Laufend_Gesamt>(benefit);

  using L = LLohn_Ersatzleistungen;
  auto list = ClassOf<L>(m, "LLohn_Ersatzleistungen");
  list.def(py::init<>());
  CollectionProtocol<L, E>(list, [](const L& self, const Variant& key) { return self.Item(key); });
  Method<&L::Add>(list, py::arg("pEL"));
  Method<&L::Remove>(list, py::arg("pIndex"));
  Methods<&L::Clear, &L::ALV_Basis_Gesamt, &L::ALV_Gesamt, &L::SV_Laufend_Basis_Gesamt, &L::SV_Laufend_DN_Gesamt,
          &L::SV_N70_Laufend_DN_Gesamt, &L::SV_N70_Laufend_DG_Gesamt, &L::SV_Laufend_DG_Gesamt,
          &L::NeuFög_Laufend_Gesamt, &L::SV_Laufend_DGA_Gesamt>(list);
}

void DefineLaender(py::module_& m) {
  auto indicator = ClassOf<clsLand_Indikator>(m, "clsLand_Indikator");
  indicator.def(py::init<>());
  Members<&clsLand_Indikator::ID, &clsLand_Indikator::Zeitraum, &clsLand_Indikator::Indikator,
          &clsLand_Indikator::Faktor>(indicator);

  using I = clsLand_Indikatoren;
  auto indicators = ClassOf<I>(m, "clsLand_Indikatoren");
  indicators.def(py::init<>());
  CollectionProtocol<I, clsLand_Indikator>(indicators, [](const I& self, const Variant& key) { return self.Item(key); });
  Method<&I::Add>(indicators, py::arg("pIndikator"));
  Method<&I::Remove>(indicators, py::arg("pIndex"));
  Method<&I::Exist>(indicators, py::arg("pIndex"));

  auto land = ClassOf<clsLand>(m, "clsLand");
  land.def(py::init<>());
  Members<&clsLand::ID, &clsLand::Code, &clsLand::Kurzbezeichnung, &clsLand::Bezeichnung, &clsLand::ISO_A3,
          &clsLand::ISO_A2, &clsLand::KFZ, &clsLand::EULand>(land);
  Methods<&clsLand::Indikatoren>(land);

  auto laender = ClassOf<clsLänder>(m, "clsLänder");
  CollectionProtocol<clsLänder, clsLand>(laender,
                                         [](const clsLänder& self, const Variant& key) { return self.Item(key); });
  Methods<&clsLänder::Load, &clsLänder::Clear, &clsLänder::IndikationEndPeriod>(laender);
  Method<&clsLänder::Remove>(laender, py::arg("pIndex"));
  Method<&clsLänder::IsEndIndikator>(laender, py::arg("pZeitraum"));
  Method<&clsLänder::GetIndikator>(laender, py::arg("pKFZ"), py::arg("pZeitraum"));
}

}  // namespace

void DeclareOthers(py::module_& m) {
  Class<LLohn_Kurzarbeit>(m, "LLohn_Kurzarbeit", "The short-time work of one employee and month.");
  Class<clsMitarbeiter_Sachbezüge>(m, "clsMitarbeiter_Sachbezüge", "An employee's benefits in kind for one period.");
  Class<LLohn_Ersatzleistung>(m, "LLohn_Ersatzleistung", "One replacement benefit of a month.");
  Class<LLohn_Ersatzleistungen>(m, "LLohn_Ersatzleistungen", "The replacement benefits of a month, by period.");
  Class<clsLand_Indikator>(m, "clsLand_Indikator", "A dated value pair of a country.");
  Class<clsLand_Indikatoren>(m, "clsLand_Indikatoren", "The dated indicators of a country.");
  Class<clsLand>(m, "clsLand", "A country of the reference store.");
  Class<clsLänder>(m, "clsLänder", "The countries of the session (clsManager.Länder()).");
}

void DefineOthers(py::module_& m) {
  DefineKurzarbeit(m);
  DefineSachbezuege(m);
  DefineErsatzleistungen(m);
  DefineLaender(m);
}

}  // namespace ormelix::python
