// The enumerations as Python enums: an IntEnum per enumeration (an IntFlag for the
// update flags, which combine), with the members the library names. The members
// of the library's plain enumerations are module attributes too, as they are
// names of the namespace in C++ (ormelix.eLBEintritt); those of StoreKind, a
// scoped enumeration, are not.
#include "binding.h"

namespace ormelix::python {

namespace {

// The members' names are the compiler's spelling of each value. A member that
// shares its value with one before it (an alias) is spelt as that one, so aliases
// are given by name.
struct Alias {
  const char* name;
  long long value;
};

template <auto... Values>
void Enum(py::module_& m, const char* name, bool at_module_level = true, const char* kind = "IntEnum",
          std::initializer_list<Alias> aliases = {}) {
  using E = std::common_type_t<decltype(Values)...>;
  py::list members;
  (members.append(py::make_tuple(ToStr(std::string(NameOf<Values>())), static_cast<long long>(Values))), ...);
  for (const Alias& alias : aliases) members.append(py::make_tuple(ToStr(alias.name), alias.value));
  py::object cls = py::module_::import("enum").attr(kind)(ToStr(name), members, py::arg("module") = "ormelix");
  EnumClass<E>::cls = cls.inc_ref().ptr();
  m.add_object(name, cls);
  if (!at_module_level) return;
  for (py::handle member : members) {
    py::str member_name = member.cast<py::tuple>()[0];
    m.add_object(member_name.cast<std::string>().c_str(), cls.attr(member_name));
  }
}

}  // namespace

void DefineEnums(py::module_& m) {
  Enum<ucAllTables, ucTableMitarbeiter, ucTableBankverbindung, ucTableKinder, ucTableLaufbahn, ucTableLohnarten,
       ucTableLohnzettel, ucTableSendedaten, ucTableÜbertritte, uctableJahresdaten, ucTablePDFEncrypt>(
      m, "eUpdateConstants", true, "IntFlag");
  Enum<lcPersonalnummer, lcName>(m, "eSortOrderMitarbeiter");
  Enum<Laufende_Bezüge_LST_pfl_SV_pfl_Zusatz, Laufende_Bezüge_LST_frei_SV_frei_Zusatz,
       Laufende_Bezüge_LST_frei_SV_pfl_Zusatz, Laufende_Bezüge_LST_pfl_SV_frei_Zusatz,
       Zulagen_LST_frei_68_SV_pfl_Zusatz, Zulagen_LST_frei_68_SV_frei_Zusatz, Sonstige_Abzüge_Zusatz,
       Aufwandsentschädigung_Zusatz>(m, "eLohnartenConstants", true, "IntEnum", {{"MaxAnzahl", MaxAnzahl}});
  Enum<eMANone, eMASelbstabrechner, eMAVorschreibebetrieb>(m, "eMandantAbrechnungsart");
  Enum<eVSPOSVNummer, eVSPOSIndividual, eVSPOSIndividualMitarbeiter>(m, "eVSPasswordOption");
  Enum<eBasisSWGeschäftsführer, eBasisSWAngestellte, eBasisSWArbeiter, eBasisSWBauarbeiter, eBasisSWRAWAnwärter,
       eBasisSWFreierMitarbeiter, eBasisSWLehrlingAngestellte, eBasisSWLehrlingArbeiter, eBasisSWFerialpraktikant,
       eBasisSWForstarbeiter, eBasisSWLehrlingForstArbeiter>(m, "eBasisSWDienstnehmergruppe");
  Enum<eBasisSAArbeitslosenversicherung, eBasisSAKrankenversicherung, eBasisSAKrankenversicherungArbeiter,
       eBasisSAKrankenversicherungAngestellte, eBasisSAKrankenversicherungFreierMitarbeiter,
       eBasisSAPensionsversicherung, eBasisSAKammerumlage, eBasisSALandArbeiterKammerumlage,
       eBasisSAWohnbaufoederung, eBasisSASchlechtwetter, eBasisSAUnfallversicherung, eBasisSAIESGZuschlag,
       eBasisSANachtschwerarbeit, eBasisSAArbeitslosenversicherungLehrlinge2016,
       eBasisSAKrankenversicherungLehrlinge2016, eBasisSAKrankenversicherungLehrlingeBis2016>(
      m, "eBasisSAVersicherungsgruppe");
  Enum<eBasisDGGeschäftsführer, eBasisDGAngestellte, eBasisDGArbeiter, eBasisDGBauarbeiter, eBasisDGErntehelfer,
       eBasisDGForstarbeiter, eBasisDGRAWAnwaerter, eBasisDGFreierMitarbeiter, eBasisDGLehrlingArbeiter1,
       eBasisdgLehrlingArbeiter2, eBasisdgLehrlingArbeiter3, eBasisDGLehrlingArbeiter4, eBasisDGLehrlingArbeiter5,
       eBasisDGLehrlingAngestellte1, eBasisdgLehrlingAngestellte2, eBasisDGLehrlingAngestellte3,
       eBasisdgLehrlingAngestellte4, eBasisdgLehrlingAngestellte5, eBasisdgLehrlingForstArbeiter1,
       eBasisdgLehrlingForstArbeiter2, eBasisdgLehrlingForstArbeiter3, eBasisdgLehrlingForstArbeiter4,
       eBasisdgLehrlingForstArbeiter5, eBasisDGGeringfügigAngestellte, eBasisdgGeringfügigArbeiter,
       eBasisDGLehrlingArbeiter12016, eBasisdgLehrlingArbeiter22016, eBasisdgLehrlingArbeiter32016,
       eBasisDGLehrlingArbeiter42016, eBasisDGLehrlingArbeiter52016, eBasisDGLehrlingAngestellte12016,
       eBasisdgLehrlingAngestellte22016, eBasisDGLehrlingAngestellte32016, eBasisdgLehrlingAngestellte42016,
       eBasisdgLehrlingAngestellte52016, eBasisdgLehrlingForstArbeiter12016, eBasisdgLehrlingForstArbeiter22016,
       eBasisdgLehrlingForstArbeiter32016, eBasisdgLehrlingForstArbeiter42016, eBasisdgLehrlingForstArbeiter52016>(
      m, "eBasisDGDienstnehmergruppe");
  Enum<eBasis2Lehrjahre, eBasis3Lehrjahre, eBasis35Lehrjahre, eBasis4Lehrjahre>(m, "eBasisLehrjahre");
  Enum<eBasisBurgenland, eBasisKärnten, eBasisNiederösterreich, eBasisOberösterreich, eBasisSalzburg,
       eBasisSteiermark, eBasisTirol, eBasisVoralberg, eBasisWien>(m, "eBasisBundesländer");
  Enum<eLBNone, eLBEintritt, eLBDVRuht, eLBAustritt, eLBBKZEintritt, eLBBKZAustritt>(m, "eLaufbahnschritte");
  Enum<eALBAlle, eALBNurNormalBeschäftigt, eALBNurBefristetBeschäftigt, eALBNurFallweiseBeschäftigt>(
      m, "eAusgabeLaufbahnen");
  Enum<eFBB_Wegfall, eFBB_Familienbeihilfenbezieher, eFBB_Partner_Familienbeihilfenbezieher, eFBB_Unterhaltszahler>(
      m, "eFB_Bezieher");
  Enum<eFABO_kein_FABO, eFABO_ganzer_FABO, eFABO_halber_FABO>(m, "eFABO");
  Enum<adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic>(m, "CursorTypeEnum");
  Enum<adLockReadOnly, adLockPessimistic, adLockOptimistic, adLockBatchOptimistic>(m, "LockTypeEnum");
  Enum<StoreKind::Payroll, StoreKind::Reference>(m, "StoreKind", false);
}

}  // namespace ormelix::python
