// Career and children: the steps of an employment and their queries, the children
// with their dated entitlements, the monthly bonus selection and form L16.
// Output parameters of C++ come back as a tuple: the result first, then the
// outputs in the order of the C++ signature.
#include "binding.h"
#include "ormelix/career/laufbahnen.h"
#include "ormelix/children/kinder.h"

namespace ormelix::python {

namespace {

void DefineStep(py::module_& m) {
  using S = LLohn_Laufbahn;
  auto step = ClassOf<S>(m, "LLohn_Laufbahn");
  step.def(py::init<>());
  Members<&S::Index, &S::ID, &S::Schritt, &S::Datum, &S::BefristetBeschäftigt, &S::BefristetBis,
          &S::FallweiseBeschäftigt, &S::Bruttogehalt, &S::GrundIndex, &S::GrundNr, &S::GrundKürzel, &S::GrundText,
          &S::Anmerkung, &S::AbfertigungNeu, &S::AbfertigungNeuDatum, &S::AbfertigungNeuProzent,
          &S::WochengeldBemessungsgrundlage, &S::FreiwilligeVerlängerungKarenz, &S::Bruttobezüge_25,
          &S::Bezüge_67_1_und_2, &S::SVBeiträge_Kennzahl_220, &S::Bezüge_67_3_bis_8,
          &S::Sosntige_Bezüge_nach_67_2_6_10, &S::Bef_SV_Laufend_Basis, &S::Bef_SV_Laufend_Basis2,
          &S::Bef_BV_Laufend, &S::Bef_BV_Laufend2, &S::Bef_BV_Laufend_Basis, &S::Bef_BV_Laufend_Basis2,
          &S::Bef_Bruttoentgelt, &S::Bef_Bruttoentgelt2, &S::Bef_Tage, &S::Bef_Tage2, &S::Bef_AllgemeineBasis,
          &S::Bef_AllgemeineBasis2, &S::Sonderzahlung, &S::Bef_SV_Sonder_Basis, &S::Ersatzleistung,
          &S::ErsatzleistungSZ, &S::ELKalendertage, &S::Bef_SV_Sonder_Basis2, &S::Bef_EL_Laufend_Basis,
          &S::Bef_EL_Laufend_Basis2, &S::Bef_EL_Sonder_Basis, &S::Bef_EL_Sonder_Basis2, &S::Bef_SonderBasis,
          &S::Bef_SonderBasis2, &S::Aushilfskraft, &S::Pauschallohnsteuer2Prozent, &S::Trinkgeldpauschale,
          &S::PlusMinusPosten, &S::DiätenNach26Z4, &S::AushilfskraftKU, &S::AushilfskraftLK>(step);
  Methods<&S::WochengeldDatumEnde, &S::Bef_EL_Kalendertage, &S::Bef_EL_Kalendertage2, &S::Zeitraum>(step);
  Methods<&S::SetWochengeldDatumEnde, &S::SetBef_EL_Kalendertage, &S::SetBef_EL_Kalendertage2>(step,
                                                                                              py::arg("value"));
}

// A question with the step that decides it as an output parameter: (result, pRetLaufbahn).
template <auto Question>
void StepQuestion(Class<LLohn_Laufbahnen>& career, const char* name) {
  career.def(
      name,
      [](const LLohn_Laufbahnen& self, std::int32_t pZeitraum) {
        LLohn_Laufbahnen::StepPtr step;
        bool result = (self.*Question)(pZeitraum, step);
        return std::make_tuple(result, step);
      },
      py::arg("pZeitraum"), "(result, pRetLaufbahn)");
}

void DefineCareer(py::module_& m) {
  using C = LLohn_Laufbahnen;
  auto career = ClassOf<C>(m, "LLohn_Laufbahnen");
  career.def(py::init<>());
  CollectionProtocol<C, LLohn_Laufbahn>(career, [](const C& self, const Variant& key) { return self.Item(key); });
  Method<&C::AddItem>(career, py::arg("pLaufbahn"), py::arg("pBefore") = py::none(), py::arg("pAfter") = py::none());
  Methods<&C::Load, &C::Clear, &C::Letzten_Eintritt, &C::Letzten_Austritt, &C::EmployeeID>(career);
  // An unset step gives False here, as in the library.
  career.def("UpdateBef", &C::UpdateBef, py::arg("pLaufbahn"));
  Method<&C::Remove>(career, py::arg("pIndex"));
  Methods<&C::NextEintritt, &C::NextAustritt, &C::AustrittImZeitraum, &C::NextAbmeldungImZeitraum,
          &C::PreviousEintritt, &C::PreviousAustritt, &C::PreviousAbmeldungImZeitraum>(career, py::arg("pIndex"));
  Method<&C::Laufbahnschritt>(career, py::arg("pZeitraum"), py::arg("pPrüfeAb1DesMonats"),
                              py::arg("pPrüfeAb1DesMonateskleinergleich"));
  Method<&C::LaufbahnschrittDate>(career, py::arg("pDatum"));
  StepQuestion<&C::IsEintritt>(career, "IsEintritt");
  StepQuestion<&C::IsDVRuht>(career, "IsDVRuht");
  Method<&C::LaufbahnschritteImZeitraum>(career, py::arg("pVonZeitraum"), py::arg("pBisZeitraum"),
                                         py::arg("pBKZBerücksichtigen"), py::arg("pAusgabeLaufbahn") = eALBAlle);
  Method<&C::LaufbahnschritteImMonat>(career, py::arg("pZeitraum"));
  Method<&C::Eintritt>(career, py::arg("pZeitraum"));
  Method<&C::EintrittDate>(career, py::arg("pDate"));
  Method<&C::Austritt>(career, py::arg("pZeitraum"), py::arg("pkleiner"));
}

void DefineChild(py::module_& m) {
  using K = LLohn_Kind;
  auto child = ClassOf<K>(m, "LLohn_Kind");
  child.def(py::init<>());
  Members<&K::ID, &K::VorName, &K::Nachname, &K::VersNr, &K::Geburtsdatum>(child);
  Methods<&K::Name, &K::ZUab, &K::Abgang, &K::Zeitbezuege>(child);
  Method<&K::LoadKind>(child, py::arg("pManager"));
  child.def(
      "Eingang",
      [](const K& self) {
        bool is_avae = false;
        std::int32_t result = self.Eingang(is_avae);
        return std::make_tuple(result, is_avae);
      },
      "(result, retIsAVAE)");
  child.def(
      "GetL16Daten",
      [](const K& self, std::int32_t pVonZeitraum, std::int32_t pBisZeitraum) {
        std::string staat;
        bool wechsel = false, fbz = false, pfb = false, uhz = false;
        std::int16_t bg = 0, eg = 0, bh = 0, eh = 0;
        bool result = self.GetL16Daten(pVonZeitraum, pBisZeitraum, staat, wechsel, fbz, pfb, uhz, bg, eg, bh, eh);
        return std::make_tuple(result, Out(staat), wechsel, fbz, pfb, uhz, bg, eg, bh, eh);
      },
      py::arg("pVonZeitraum"), py::arg("pBisZeitraum"),
      "(result, KSTAAT, KSTWE, KAFBZ, KAPFB, KAUHZ, KBGFP, KEGFP, KBHFP, KEHFP)");

  using Z = LLohn_Kind_Zeitbezug;
  auto entry = ClassOf<Z>(m, "LLohn_Kind_Zeitbezug");
  entry.def(py::init<>());
  Members<&Z::ID, &Z::Zeitraum, &Z::KFZ, &Z::Kinderzuschlag_ab, &Z::FB_Bezieher, &Z::FABO, &Z::FABO18, &Z::AVAB>(
      entry);

  using H = LLohn_Kind_Zeitbezuege;
  auto history = ClassOf<H>(m, "LLohn_Kind_Zeitbezuege");
  CollectionProtocol<H, Z>(history, [](const H& self, const Variant& key) { return self.Item(key); });
  Methods<&H::Load, &H::Clear>(history);
  Method<&H::GetZB>(history, py::arg("pZeitraum"));
}

void DefineChildren(py::module_& m) {
  using C = LLohn_Kinder;
  auto children = ClassOf<C>(m, "LLohn_Kinder");
  CollectionProtocol<C, LLohn_Kind>(children, [](const C& self, const Variant& key) { return self.Item(key); });
  Methods<&C::Load, &C::Clear, &C::EmployeeID>(children);
  // What a question answers is a list of its own, of the list's children.
  auto selection = Class<C::Auswahl>(children, "Auswahl", "The children a question of LLohn_Kinder answers.");
  CollectionProtocol<C::Auswahl, LLohn_Kind>(selection,
                                             [](const C::Auswahl& self, const Variant& key) { return self.Item(key); });
  for (auto [name, question] :
       {std::pair{"GetFABOKinderOhneUnterhaltszahler", &C::GetFABOKinderOhneUnterhaltszahler},
        std::pair{"GetFABOKinderUnterhaltszahler", &C::GetFABOKinderUnterhaltszahler},
        std::pair{"GetFABOKinder", &C::GetFABOKinder}, std::pair{"GetFABOKinderWegfall", &C::GetFABOKinderWegfall},
        std::pair{"GetFABOKinderAenderung", &C::GetFABOKinderAenderung}, std::pair{"GetAVAEKinder", &C::GetAVAEKinder},
        std::pair{"GetAVAEKinderWegfall", &C::GetAVAEKinderWegfall},
        std::pair{"GetAVAEKinderAenderung", &C::GetAVAEKinderAenderung}}) {
    children.def(
        name,
        [question](const C& self, std::int32_t pZeitraum) {
          return std::make_shared<C::Auswahl>((self.*question)(pZeitraum));
        },
        py::arg("pZeitraum"));
  }
}

}  // namespace

void DeclareCareerChildren(py::module_& m) {
  Class<LLohn_Laufbahn>(m, "LLohn_Laufbahn", "One step of an employee's career.");
  Class<LLohn_Laufbahnen>(m, "LLohn_Laufbahnen", "The career of an employee and its queries.");
  Class<LLohn_Kind>(m, "LLohn_Kind", "A child of an employee with its dated entitlements.");
  Class<LLohn_Kind_Zeitbezug>(m, "LLohn_Kind_Zeitbezug", "One dated entry of a child's entitlements.");
  Class<LLohn_Kind_Zeitbezuege>(m, "LLohn_Kind_Zeitbezuege", "The dated entitlements of a child.");
  Class<LLohn_Kinder>(m, "LLohn_Kinder", "The children of an employee and the monthly bonus selection.");
}

void DefineCareerChildren(py::module_& m) {
  DefineStep(m);
  DefineCareer(m);
  DefineChild(m);
  DefineChildren(m);
}

}  // namespace ormelix::python
