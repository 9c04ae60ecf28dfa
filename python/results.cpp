// The working record of a pay calculation, LLohn1, and its children: what a host
// works out for an employee and keeps while it needs it. Nothing of it is stored.
#include "binding.h"
#include "ormelix/employee/lohn1.h"

namespace ormelix::python {

namespace {

// The record a child was made by, or None; the record outlives no child that
// reports it (its end lets go of them), so the reference is never stale.
template <class Child>
py::object OwnerOf(const Child& child) {
  const LLohn1* owner = child.Owner();
  return owner ? py::cast(owner, py::return_value_policy::reference) : py::none();
}

void DefineChildren(py::module_& m) {
  using W = LLohn1_Werte;
  auto werte = ClassOf<W>(m, "LLohn1_Werte");
  werte.def(py::init<>());
  Members<&W::JahresSumme, &W::JahresSummeEL, &W::grenze, &W::grenzeEL, &W::Sonderzahlung, &W::Ueberschreitung,
          &W::ueberhang, &W::ueberhang_EP, &W::ueberhang_JG>(werte);
  werte.def("Owner", &OwnerOf<W>);

  using D = LLohn1_UebertrittDatum;
  auto datum = ClassOf<D>(m, "LLohn1_UebertrittDatum");
  datum.def(py::init<>());
  Members<&D::Begin, &D::Ende>(datum);
  datum.def("Owner", &OwnerOf<D>);

  using U = LLohn1_Uebertritt;
  auto transfer = ClassOf<U>(m, "LLohn1_Uebertritt");
  transfer.def(py::init<>());
  Members<&U::IsUebertritt, &U::BERGR1, &U::BERGR2, &U::BERZUG1, &U::BERZUG2>(transfer);
  Methods<&U::Datum1, &U::Datum2>(transfer);
  Method<&U::SetDatum1>(transfer, py::arg("p"));
  Method<&U::SetDatum2>(transfer, py::arg("p"));
  transfer.def("Owner", &OwnerOf<U>);
}

// SetX(pIndex, p) of a monthly child, the month 1..12.
template <class C, class P>
P ChildArgument(void (C::*)(int, P));

template <auto Setter>
void MonthlySetter(Class<LLohn1>& record, const char* name) {
  using Ptr = decltype(ChildArgument(Setter));
  record.def(
      name,
      [name](LLohn1& self, int pIndex, Ptr p) {
        RequireMonth(name, pIndex);
        (self.*Setter)(pIndex, std::move(p));
      },
      py::arg("pIndex"), py::arg("p"));
}

void DefineRecord(py::module_& m) {
  using R = LLohn1;
  auto record = ClassOf<R>(m, "LLohn1");
  record.def(py::init<>());
  Members<
      &R::ID, &R::Ein_Datum, &R::Abm_Datum, &R::Aus_Datum, &R::Ein_DatumIdx, &R::Abm_DatumIdx, &R::Aus_DatumIdx,
      &R::AbfertigungNeuMinder, &R::AbfertigungNeuMinder_Basis, &R::SechstelSolidarStaffelIndex,
      &R::SechstelSolidarStaffelWert, &R::SechstelSolidarStaffelBasis, &R::SechstelLST_sonder50Prozent, &R::ALV,
      &R::AIV2_Index, &R::AIV2_Basis, &R::AIV2, &R::AIV_Index, &R::AIV_Basis, &R::AIV, &R::AIV_Sonder_Index,
      &R::AIV_SonderBasis, &R::AIV_Sonder, &R::AIV_ERSSonder_Index, &R::AIV_ERSSonderBasis, &R::AIV_ERSSonder,
      &R::Pendler_klein, &R::Pendler_gross>(record);
  ArrayMembers<
      &R::Brutto_ali, &R::Ueberst__50_Betrag, &R::UeBasis, &R::Ueberst_100_Betrag, &R::Ueberst__xx_Betrag,
      &R::sz_vorbezug, &R::sz_Vorbezug_OU, &R::LST_sz_Vorbezug, &R::sz_Vorbezug_UA_UE, &R::ep_Vorbezug,
      &R::jg_Vorbezug, &R::Brutto, &R::SV_Laufend_EP, &R::SV_Laufend, &R::SV_Laufend_DiffSachbezug, &R::SV_Laufend2,
      &R::SV_Laufend_Basis, &R::SV_Laufend_Basis2, &R::SV_Laufend_BasisGesamt, &R::SV_Laufend_Basis_ohne_Kontrolle,
      &R::SV_SonderLKKaernten, &R::SV_SonderUBBauarbeiter, &R::SV_Sonder, &R::SV_SonderOrg, &R::SV_Sonder_Basis,
      &R::SV_Sonder_Basis1, &R::SV_Sonder_BasisGesamt, &R::SV_Laufend_UA_UE, &R::SV_Laufend_Basis_UA_UE,
      &R::SV_Laufend_Basis_UA_UEGesamt, &R::SV_Sonder_UA_UE, &R::SV_Sonder_Basis_UA_UE,
      &R::SV_Sonder_Basis_UA_UEGesamt, &R::AbfertigungNeu, &R::AbfertigungNeu_Basis, &R::LST_Laufend,
      &R::LST_Laufend_Basis, &R::LST_Laufend_BasisGesamt, &R::LST_Laufend_BasisAushilfskraft, &R::LST_sonder,
      &R::LST_sonder_Basis, &R::LST_sonder_Basis_ohne_FBAbzug, &R::LST_sonder_UBBauArb,
      &R::LST_Sonder_BasisAushilfskraft, &R::LST_UA_UE, &R::LST_Basis_UA_UE, &R::Gewerkschaft_Basis,
      &R::Betriebsrat_Basis, &R::Abzuege_gesamt, &R::Netto, &R::SV_Laufend_DG, &R::SV_Laufend2_DG, &R::SV_Sonder_DG,
      &R::SV_Laufend_DG_UA_UE, &R::SV_Sonder_DG_UA_UE, &R::sumN70, &R::Falast_DB, &R::Falast_DBK, &R::UBahn_Abgabe,
      &R::ServiceEntgelt, &R::AIV_ERS, &R::AIV_ERSBasis, &R::Malus, &R::MalusBGL_GKK, &R::SVSZU, &R::SVSZU_EP,
      &R::PendlerEuro, &R::Centausgleich, &R::Betriebsratsumlage, &R::N18_SV_Laufend, &R::N18_SV_Sonder,
      &R::N18_SV_Laufend_Ersatz, &R::N18_SV_Sonder_Ersatz, &R::N18_SV_LaufendBasis, &R::N18_SV_SonderBasis>(record);
  GridMembers<&R::SV_N70_Laufend, &R::SV_N70_Sonder, &R::SV_N70_Laufend_DG, &R::SV_N70_Sonder_DG>(record);
  MonthlyChildren<&R::Sechstel, &R::Uebertritt>(record);
  // A child put in by the caller stays the caller's; None empties the month.
  MonthlySetter<&R::SetSechstel>(record, "SetSechstel");
  MonthlySetter<&R::SetUebertritt>(record, "SetUebertritt");
}

}  // namespace

void DeclareResults(py::module_& m) {
  Class<LLohn1>(m, "LLohn1", "The working record of a pay calculation; nothing of it is stored.");
  Class<LLohn1_Werte>(m, "LLohn1_Werte", "The one-sixth figures of a month.");
  Class<LLohn1_UebertrittDatum>(m, "LLohn1_UebertrittDatum", "A stretch of days of a month with a transfer.");
  Class<LLohn1_Uebertritt>(m, "LLohn1_Uebertritt", "A change of contribution group as the calculation sees it.");
}

void DefineResults(py::module_& m) {
  DefineChildren(m);
  DefineRecord(m);
}

}  // namespace ormelix::python
