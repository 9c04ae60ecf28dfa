// The base values: folders, their dated tables, and the eight sub-objects of a
// table with their value objects.
#include "binding.h"
#include "ormelix/basevalues/basis.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/basevalues/basisordner.h"
#include "ormelix/basevalues/basis_zeittabellen.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::python {

namespace {

void DefineFolders(py::module_& m) {
  auto folders = ClassOf<clsBasisdaten>(m, "clsBasisdaten");
  CollectionProtocol<clsBasisdaten, clsBasisordner>(
      folders, [](const clsBasisdaten& self, const Variant& key) { return self.Item(key); });
  Methods<&clsBasisdaten::Clear, &clsBasisdaten::Load, &clsBasisdaten::GetStandardBOrdnerID,
          &clsBasisdaten::GetStandardBOrdner, &clsBasisdaten::GetWiederherstellungsBOrdnerID,
          &clsBasisdaten::GetWiederherstellungsBOrdner>(folders);
  Method<&clsBasisdaten::Remove>(folders, py::arg("pID"));
  Method<&clsBasisdaten::Exist>(folders, py::arg("pID"));
  Method<&clsBasisdaten::ExistBezeichnung>(folders, py::arg("pBezeichnung"));
  Method<&clsBasisdaten::AddItem>(folders, py::arg("pBasisordner"));
  Method<&clsBasisdaten::AddNew>(folders, py::arg("pBezeichnung"));
  Method<&clsBasisdaten::Copy>(folders, py::arg("pBasisorder"), py::arg("pBezeichnung"));

  auto folder = ClassOf<clsBasisordner>(m, "clsBasisordner");
  folder.def(py::init<>());
  Members<&clsBasisordner::Bezeichnung, &clsBasisordner::Wiederherstellung, &clsBasisordner::Standardordner>(folder);
  Methods<&clsBasisordner::ID, &clsBasisordner::Zeittabellen, &clsBasisordner::Refresh>(folder);
  Method<&clsBasisordner::Update>(folder, py::arg("Manager"));

  auto tables = ClassOf<clsBasisZeittabellen>(m, "clsBasisZeittabellen");
  CollectionProtocol<clsBasisZeittabellen, LBasis>(
      tables, [](const clsBasisZeittabellen& self, const Variant& key) { return self.Item(key); });
  Methods<&clsBasisZeittabellen::Clear, &clsBasisZeittabellen::BasisID>(tables);
  Method<&clsBasisZeittabellen::Remove>(tables, py::arg("pID"));
  Method<&clsBasisZeittabellen::Exist>(tables, py::arg("pID"));
  Method<&clsBasisZeittabellen::ExistZeitraum>(tables, py::arg("pZeitraum"));
  Method<&clsBasisZeittabellen::AddItem>(tables, py::arg("pBasis"));
  Method<&clsBasisZeittabellen::AddNew>(tables, py::arg("pZeitraum"), py::arg("pBezeichnung"));
  Method<&clsBasisZeittabellen::Copy>(tables, py::arg("pBasis"), py::arg("pNewZeitraum"), py::arg("pBezeichnung"));
  Method<&clsBasisZeittabellen::GetZeittabelle>(tables, py::arg("pZeitraum"));
}

void DefineTable(py::module_& m) {
  auto table = ClassOf<LBasis>(m, "LBasis");
  table.def(py::init<>());
  Members<&LBasis::Bezeichnung>(table);
  Methods<&LBasis::ID, &LBasis::Zeitraum, &LBasis::Datum_Von, &LBasis::SW, &LBasis::LST, &LBasis::SA, &LBasis::PP,
          &LBasis::FB, &LBasis::DG, &LBasis::DGM, &LBasis::ALV, &LBasis::Update, &LBasis::Refresh,
          &LBasis::BasisID>(table);
}

void DefineSW(py::module_& m) {
  auto wert = ClassOf<LBasis_SW_Wert>(m, "LBasis_SW_Wert");
  wert.def(py::init<>());
  Members<&LBasis_SW_Wert::USTeiler, &LBasis_SW_Wert::Prozent, &LBasis_SW_Wert::grenze>(wert);

  using SW = LBasis_SW;
  auto sw = ClassOf<SW>(m, "LBasis_SW");
  sw.def(py::init<>());
  Members<&SW::Betriebsrat, &SW::Betrag>(sw);
  Methods<&SW::Geschäftsführer, &SW::Angestellte, &SW::Arbeiter, &SW::Bauarbeiter, &SW::RAWAnwaerter,
          &SW::FreierMitarbeiter, &SW::LehrlingAngestellt, &SW::LehrlingArbeiter, &SW::Ferialpraktikant,
          &SW::Forstarbeiter, &SW::LehrlingForstArbeiter>(sw);
  Methods<&SW::SetGeschäftsführer, &SW::SetAngestellte, &SW::SetArbeiter, &SW::SetBauarbeiter, &SW::SetRAWAnwaerter,
          &SW::SetFreierMitarbeiter, &SW::SetLehrlingAngestellt, &SW::SetLehrlingArbeiter, &SW::SetFerialpraktikant,
          &SW::SetForstarbeiter, &SW::SetLehrlingForstArbeiter>(sw, py::arg("p"));
  Method<&SW::Gruppe>(sw, py::arg("pGruppe"));
  Method<&SW::SetGruppe>(sw, py::arg("pGruppe"), py::arg("pWert"));
}

void DefineLST(py::module_& m) {
  auto band = ClassOf<LBasis_LST_Werte>(m, "LBasis_LST_Werte");
  band.def(py::init<>());
  Members<&LBasis_LST_Werte::Von, &LBasis_LST_Werte::Bis, &LBasis_LST_Werte::steuersatz,
          &LBasis_LST_Werte::unbeschraenkt, &LBasis_LST_Werte::beschraenkt>(band);
  Methods<&LBasis_LST_Werte::ID>(band);

  auto lst = ClassOf<LBasis_LST>(m, "LBasis_LST");
  lst.def(py::init<>());
  CollectionProtocol<LBasis_LST, LBasis_LST_Werte>(lst, [](const LBasis_LST& self, const Variant& key) {
    return self.Item(ValueHelpers::ToInteger(key));
  });
  Members<&LBasis_LST::FreibetragGemäß68Abs1EStG, &LBasis_LST::FreibetragGemäß68Abs6EStG,
          &LBasis_LST::LStFreieÜberstundenGemäß68Abs2EStG,
          &LBasis_LST::ObergrenzeFürLStFeieÜberstundenGemäß68Abs2EStG>(lst);
  lst.def(
      "Add", [](LBasis_LST& self, std::shared_ptr<LBasis_LST_Werte> pLSTWert) { self.Add(pLSTWert); },
      py::arg("pLSTWert"));
  Method<&LBasis_LST::Remove>(lst, py::arg("pIndex"));
  Methods<&LBasis_LST::Clear>(lst);
}

void DefineSA(py::module_& m) {
  auto wert = ClassOf<LBasis_SA_Wert>(m, "LBasis_SA_Wert");
  wert.def(py::init<>());
  Members<&LBasis_SA_Wert::Prozent, &LBasis_SA_Wert::Prozent_DG, &LBasis_SA_Wert::Obergrenze,
          &LBasis_SA_Wert::Sonderzahlung>(wert);
  Methods<&LBasis_SA_Wert::ProzentGesamt>(wert);

  using SA = LBasis_SA;
  auto sa = ClassOf<SA>(m, "LBasis_SA");
  sa.def(py::init<>());
  Members<&SA::LohnStufe, &SA::ServiceEntgelt, &SA::Auflösungsabgabe, &SA::BeitragssatzAÜG>(sa);
  Methods<&SA::Arbeitslosenversicherung, &SA::ArbeitslosenversicherungLehrlinge2016, &SA::Unfallversicherung,
          &SA::Krankenversicherung, &SA::KrankenversicherungArbeiter, &SA::KrankenversicherungAngestellte,
          &SA::KrankenversicherungFreierMitarbeiter, &SA::KrankenversicherungLehrlinge2016,
          &SA::KrankenversicherungLehrlingeBis2016, &SA::Pensionsversicherung, &SA::Kammerumlage,
          &SA::LandArbeiterKammerumlage, &SA::Wohnbaufoederung, &SA::Schlechtwetter, &SA::IESGZuschlag,
          &SA::Nachtschwerarbeit, &SA::GrenzbetragGeringBeschaeftigte>(sa);
  Methods<&SA::SetArbeitslosenversicherung, &SA::SetArbeitslosenversicherungLehrlinge2016,
          &SA::SetUnfallversicherung, &SA::SetKrankenversicherung, &SA::SetKrankenversicherungArbeiter,
          &SA::SetKrankenversicherungAngestellte, &SA::SetKrankenversicherungFreierMitarbeiter,
          &SA::SetKrankenversicherungLehrlinge2016, &SA::SetKrankenversicherungLehrlingeBis2016,
          &SA::SetPensionsversicherung, &SA::SetKammerumlage, &SA::SetLandArbeiterKammerumlage,
          &SA::SetWohnbaufoederung, &SA::SetSchlechtwetter, &SA::SetIESGZuschlag, &SA::SetNachtschwerarbeit,
          &SA::SetGrenzbetragGeringBeschaeftigte>(sa, py::arg("p"));
  Method<&SA::Gruppe>(sa, py::arg("pVGruppe"));
  Method<&SA::SetGruppe>(sa, py::arg("pVGruppe"), py::arg("pWert"));
}

void DefinePP_FB_ALV(py::module_& m) {
  auto pp = ClassOf<LBasis_PP>(m, "LBasis_PP");
  pp.def(py::init<>());
  ArrayMembers<&LBasis_PP::Von, &LBasis_PP::Bis, &LBasis_PP::klein, &LBasis_PP::gross>(pp);

  using FB = LBasis_FB;
  auto fb = ClassOf<FB>(m, "LBasis_FB");
  fb.def(py::init<>());
  Members<&FB::Werbekosten, &FB::Sonderausgaben, &FB::Allgemein, &FB::Arbeitsnehmer, &FB::Verkehr,
          &FB::ErhoehterVerkehr, &FB::EinschleifgrenzeVABVon, &FB::EinschleifgrenzeVABBis, &FB::Alleinverdiener,
          &FB::Alleinerzieher, &FB::Kinderzuschlag_Kind1, &FB::Kinderzuschlag_Kind2, &FB::Kinderzuschlag_AbKind3,
          &FB::FABO, &FB::FABO18>(fb);

  auto alv = ClassOf<LBasis_ALV>(m, "LBasis_ALV");
  alv.def(py::init<>());
  Members<&LBasis_ALV::N25a_bis, &LBasis_ALV::N25b_bis, &LBasis_ALV::N25c_bis, &LBasis_ALV::N25d_bis,
          &LBasis_ALV::N25e_bis>(alv);
}

void DefineDG(py::module_& m) {
  using W = LBasis_DG_Wert;
  auto wert = ClassOf<W>(m, "LBasis_DG_Wert");
  wert.def(py::init<>());
  Members<&W::Geschäftsführer, &W::Angestellte, &W::Arbeiter, &W::Bauarbeiter, &W::Ferialpraktikant,
          &W::Forstarbeiter, &W::RAWAnwaerter, &W::FreierMitarbeiter>(wert);
  ArrayMembers<&W::LehrlingArbeiter1, &W::LehrlingArbeiter2, &W::LehrlingArbeiter3, &W::LehrlingArbeiter4,
               &W::LehrlingArbeiter5, &W::LehrlingAngestellte1, &W::LehrlingAngestellte2, &W::LehrlingAngestellte3,
               &W::LehrlingAngestellte4, &W::LehrlingAngestellte5, &W::LehrlingForstArbeiter1,
               &W::LehrlingForstArbeiter2, &W::LehrlingForstArbeiter3, &W::LehrlingForstArbeiter4,
               &W::LehrlingForstArbeiter5, &W::LehrlingArbeiter12016, &W::LehrlingArbeiter22016,
               &W::LehrlingArbeiter32016, &W::LehrlingArbeiter42016, &W::LehrlingArbeiter52016,
               &W::LehrlingAngestellte12016, &W::LehrlingAngestellte22016, &W::LehrlingAngestellte32016,
               &W::LehrlingAngestellte42016, &W::LehrlingAngestellte52016, &W::LehrlingForstArbeiter12016,
               &W::LehrlingForstArbeiter22016, &W::LehrlingForstArbeiter32016, &W::LehrlingForstArbeiter42016,
               &W::LehrlingForstArbeiter52016>(wert);
  // Wert(group, length) reads and, as it gives a reference in C++, writes:
  // w.Wert(pDNGruppe, pIndex), w.Wert[pDNGruppe, pIndex] = v.
  wert.def_property_readonly("Wert", [](const std::shared_ptr<W>& self) {
    return IndexedValues("Wert", 2, 0, 0, false,
                         [self](const IndexedValues::Indices& i) -> PropertyRef { return &self->Wert(i[0], i[1]); });
  });

  using DG = LBasis_DG;
  auto dg = ClassOf<DG>(m, "LBasis_DG");
  dg.def(py::init<>());
  Members<&DG::Kindergeld>(dg);
  Methods<&DG::SV_Laufend, &DG::SV_Sonderzahlung, &DG::FALAST, &DG::FALASTLGV, &DG::Kommunalsteuer, &DG::U_Bahn,
          &DG::Produktivitaetsfaktor>(dg);
  Methods<&DG::SetSV_Laufend, &DG::SetSV_Sonderzahlung, &DG::SetFALAST, &DG::SetFALASTLGV, &DG::SetKommunalsteuer,
          &DG::SetU_Bahn, &DG::SetProduktivitaetsfaktor>(dg, py::arg("p"));
  Method<&DG::DZBL>(dg, py::arg("pIndex"));
  Method<&DG::SetDZBL>(dg, py::arg("pIndex"), py::arg("p"));
  Methods<&DG::GetFALASTGeschäftsführer, &DG::GetFALASTAngestellte, &DG::GetFALASTArbeiter,
          &DG::GetFALASTBauarbeiter, &DG::GetFALASTFerialpraktikant, &DG::GetFALASTForstarbeiter,
          &DG::GetFALASTRAWAnwaerter, &DG::GetFALASTFreierMitarbeiter>(dg, py::arg("pDBSenkung"));
  Methods<&DG::GetFALASTLehrlingArbeiter1, &DG::GetFALASTLehrlingArbeiter2, &DG::GetFALASTLehrlingArbeiter3,
          &DG::GetFALASTLehrlingArbeiter4, &DG::GetFALASTLehrlingArbeiter5, &DG::GetFALASTLehrlingAngestellte1,
          &DG::GetFALASTLehrlingAngestellte2, &DG::GetFALASTLehrlingAngestellte3, &DG::GetFALASTLehrlingAngestellte4,
          &DG::GetFALASTLehrlingAngestellte5, &DG::GetFALASTLehrlingForstArbeiter1,
          &DG::GetFALASTLehrlingForstArbeiter2, &DG::GetFALASTLehrlingForstArbeiter3,
          &DG::GetFALASTLehrlingForstArbeiter4, &DG::GetFALASTLehrlingForstArbeiter5>(
      dg, py::arg("pLehrjahr"), py::arg("pDBSenkung"));

  auto gf_wert = ClassOf<LBasis_DG_GF_Wert>(m, "LBasis_DG_GF_Wert");
  gf_wert.def(py::init<>());
  Members<&LBasis_DG_GF_Wert::Angestellte, &LBasis_DG_GF_Wert::Arbeiter>(gf_wert);

  using GF = LBasis_DG_GF;
  auto gf = ClassOf<GF>(m, "LBasis_DG_GF");
  gf.def(py::init<>());
  Members<&GF::GrenzbetragMinderBeschaeftigte>(gf);
  Methods<&GF::SV_Laufend, &GF::SV_Sonderzahlung, &GF::FALAST, &GF::FALASTLGV, &GF::Kommunalsteuer, &GF::DZ,
          &GF::U_Bahn, &GF::Produktivitaetsfaktor>(gf);
}

}  // namespace

void DeclareBasevalues(py::module_& m) {
  Class<clsBasisdaten>(m, "clsBasisdaten", "The base-value folders of the session (clsManager.Basis()).");
  Class<clsBasisordner>(m, "clsBasisordner", "A folder of base values: a series of dated tables.");
  Class<clsBasisZeittabellen>(m, "clsBasisZeittabellen", "The dated tables of a folder, ascending by period.");
  Class<LBasis>(m, "LBasis", "A dated table of statutory values with eight sub-objects.");
  Class<LBasis_SW_Wert>(m, "LBasis_SW_Wert", "Divisor, percentage and limit of one employee group.");
  Class<LBasis_SW>(m, "LBasis_SW", "The wage-group rates of a dated table.");
  Class<LBasis_LST_Werte>(m, "LBasis_LST_Werte", "One wage-tax band.");
  Class<LBasis_LST>(m, "LBasis_LST", "The wage-tax bands and amounts of a dated table.");
  Class<LBasis_SA_Wert>(m, "LBasis_SA_Wert", "The rates and ceiling of one insurance group.");
  Class<LBasis_SA>(m, "LBasis_SA", "The contribution rates of a dated table.");
  Class<LBasis_PP>(m, "LBasis_PP", "The commuter-allowance bands of a dated table (index 0 to 4).");
  Class<LBasis_FB>(m, "LBasis_FB", "The allowances and deductions of a dated table.");
  Class<LBasis_ALV>(m, "LBasis_ALV", "The unemployment-insurance bounds of a dated table.");
  Class<LBasis_DG_Wert>(m, "LBasis_DG_Wert", "One kind of employer contribution by employee group.");
  Class<LBasis_DG>(m, "LBasis_DG", "The employer contributions of a dated table.");
  Class<LBasis_DG_GF_Wert>(m, "LBasis_DG_GF_Wert", "An employer rate of marginal employment.");
  Class<LBasis_DG_GF>(m, "LBasis_DG_GF", "The employer rates of marginal employment of a dated table.");
}

void DefineBasevalues(py::module_& m) {
  DefineFolders(m);
  DefineTable(m);
  DefineSW(m);
  DefineLST(m);
  DefineSA(m);
  DefinePP_FB_ALV(m);
  DefineDG(m);
}

}  // namespace ormelix::python
