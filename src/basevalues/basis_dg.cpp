#include "ormelix/basevalues/basis_dg.h"

#include <string>

#include "basis_store.h"

namespace ormelix {

namespace {

using W = LBasis_DG_Wert;

// The plain properties of groups 1 to 8, in group order.
constexpr double W::*kPlain[] = {&W::Geschäftsführer,   &W::Angestellte,   &W::Arbeiter,
                                 &W::Bauarbeiter,       &W::Ferialpraktikant, &W::Forstarbeiter,
                                 &W::RAWAnwaerter,      &W::FreierMitarbeiter};

// The indexed properties of groups 9 to 23, then of 26 to 40.
constexpr W::Lehrjahre W::*kApprentice[] = {
    &W::LehrlingArbeiter1,          &W::LehrlingArbeiter2,          &W::LehrlingArbeiter3,
    &W::LehrlingArbeiter4,          &W::LehrlingArbeiter5,          &W::LehrlingAngestellte1,
    &W::LehrlingAngestellte2,       &W::LehrlingAngestellte3,       &W::LehrlingAngestellte4,
    &W::LehrlingAngestellte5,       &W::LehrlingForstArbeiter1,     &W::LehrlingForstArbeiter2,
    &W::LehrlingForstArbeiter3,     &W::LehrlingForstArbeiter4,     &W::LehrlingForstArbeiter5,
    &W::LehrlingArbeiter12016,      &W::LehrlingArbeiter22016,      &W::LehrlingArbeiter32016,
    &W::LehrlingArbeiter42016,      &W::LehrlingArbeiter52016,      &W::LehrlingAngestellte12016,
    &W::LehrlingAngestellte22016,   &W::LehrlingAngestellte32016,   &W::LehrlingAngestellte42016,
    &W::LehrlingAngestellte52016,   &W::LehrlingForstArbeiter12016, &W::LehrlingForstArbeiter22016,
    &W::LehrlingForstArbeiter32016, &W::LehrlingForstArbeiter42016, &W::LehrlingForstArbeiter52016};

[[noreturn]] void NoSuchGroup(int group) {
  throw std::out_of_range("LBasis_DG_Wert: the employee group " + std::to_string(group) +
                          " has no property (1 to 23 and 26 to 40 have one)");
}

}  // namespace

double* LBasis_DG_Wert::PlainGroup(int pDNGruppe) {
  return pDNGruppe >= 1 && pDNGruppe <= 8 ? &(this->*kPlain[pDNGruppe - 1]) : nullptr;
}

LBasis_DG_Wert::Lehrjahre* LBasis_DG_Wert::ApprenticeGroup(int pDNGruppe) {
  if (pDNGruppe >= 9 && pDNGruppe <= 23) return &(this->*kApprentice[pDNGruppe - 9]);
  if (pDNGruppe >= 26 && pDNGruppe <= 40) return &(this->*kApprentice[pDNGruppe - 26 + 15]);
  return nullptr;
}

double& LBasis_DG_Wert::Wert(int pDNGruppe, int pIndex) {
  if (double* plain = PlainGroup(pDNGruppe)) return *plain;
  if (Lehrjahre* apprentice = ApprenticeGroup(pDNGruppe)) return (*apprentice)[pIndex];
  NoSuchGroup(pDNGruppe);
}

double LBasis_DG_Wert::Wert(int pDNGruppe, int pIndex) const {
  return const_cast<LBasis_DG_Wert*>(this)->Wert(pDNGruppe, pIndex);
}

LBasis_DG::LBasis_DG()
    : sv_laufend_(std::make_shared<LBasis_DG_Wert>()),
      sv_sonderzahlung_(std::make_shared<LBasis_DG_Wert>()),
      falast_(std::make_shared<LBasis_DG_Wert>()),
      falastlgv_(std::make_shared<LBasis_DG_Wert>()),
      kommunalsteuer_(std::make_shared<LBasis_DG_Wert>()),
      u_bahn_(std::make_shared<LBasis_DG_Wert>()),
      produktivitaetsfaktor_(std::make_shared<LBasis_DG_Wert>()) {
  for (int province = eBasisBurgenland; province <= eBasisWien; ++province)
    dzbl_[province] = std::make_shared<LBasis_DG_Wert>();
}

double LBasis_DG::FalastOf(int pDNGruppe, int pIndex, bool pDBSenkung) const {
  // Both are read first, so that a bad index fails whatever the flag says.
  double reduced = falastlgv_->Wert(pDNGruppe, pIndex);
  double full = falast_->Wert(pDNGruppe, pIndex);
  return pDBSenkung ? reduced : full;
}

double LBasis_DG::GetFALASTGeschäftsführer(bool s) const { return FalastOf(eBasisDGGeschäftsführer, 0, s); }
double LBasis_DG::GetFALASTAngestellte(bool s) const { return FalastOf(eBasisDGAngestellte, 0, s); }
double LBasis_DG::GetFALASTArbeiter(bool s) const { return FalastOf(eBasisDGArbeiter, 0, s); }
double LBasis_DG::GetFALASTBauarbeiter(bool s) const { return FalastOf(eBasisDGBauarbeiter, 0, s); }
double LBasis_DG::GetFALASTFerialpraktikant(bool s) const { return FalastOf(eBasisDGErntehelfer, 0, s); }
double LBasis_DG::GetFALASTForstarbeiter(bool s) const { return FalastOf(eBasisDGForstarbeiter, 0, s); }
double LBasis_DG::GetFALASTRAWAnwaerter(bool s) const { return FalastOf(eBasisDGRAWAnwaerter, 0, s); }
double LBasis_DG::GetFALASTFreierMitarbeiter(bool s) const { return FalastOf(eBasisDGFreierMitarbeiter, 0, s); }

double LBasis_DG::GetFALASTLehrlingArbeiter1(std::int16_t j, bool s) const { return FalastOf(9, j, s); }
double LBasis_DG::GetFALASTLehrlingArbeiter2(std::int16_t j, bool s) const { return FalastOf(10, j, s); }
double LBasis_DG::GetFALASTLehrlingArbeiter3(std::int16_t j, bool s) const { return FalastOf(11, j, s); }
double LBasis_DG::GetFALASTLehrlingArbeiter4(std::int16_t j, bool s) const { return FalastOf(12, j, s); }
double LBasis_DG::GetFALASTLehrlingArbeiter5(std::int16_t j, bool s) const { return FalastOf(13, j, s); }
double LBasis_DG::GetFALASTLehrlingAngestellte1(std::int16_t j, bool s) const { return FalastOf(14, j, s); }
double LBasis_DG::GetFALASTLehrlingAngestellte2(std::int16_t j, bool s) const { return FalastOf(15, j, s); }
double LBasis_DG::GetFALASTLehrlingAngestellte3(std::int16_t j, bool s) const { return FalastOf(16, j, s); }
double LBasis_DG::GetFALASTLehrlingAngestellte4(std::int16_t j, bool s) const { return FalastOf(17, j, s); }
double LBasis_DG::GetFALASTLehrlingAngestellte5(std::int16_t j, bool s) const { return FalastOf(18, j, s); }
double LBasis_DG::GetFALASTLehrlingForstArbeiter1(std::int16_t j, bool s) const { return FalastOf(19, j, s); }
double LBasis_DG::GetFALASTLehrlingForstArbeiter2(std::int16_t j, bool s) const { return FalastOf(20, j, s); }
double LBasis_DG::GetFALASTLehrlingForstArbeiter3(std::int16_t j, bool s) const { return FalastOf(21, j, s); }
double LBasis_DG::GetFALASTLehrlingForstArbeiter4(std::int16_t j, bool s) const { return FalastOf(22, j, s); }
double LBasis_DG::GetFALASTLehrlingForstArbeiter5(std::int16_t j, bool s) const { return FalastOf(23, j, s); }

namespace {
LBasis_DG::Wert Required(LBasis_DG::Wert p, const char* property) {
  return modBasiswerte::detail::RequireObject(std::move(p), property);
}
}  // namespace

void LBasis_DG::SetSV_Laufend(Wert p) { sv_laufend_ = Required(std::move(p), "LBasis_DG.SV_Laufend"); }
void LBasis_DG::SetSV_Sonderzahlung(Wert p) {
  sv_sonderzahlung_ = Required(std::move(p), "LBasis_DG.SV_Sonderzahlung");
}
void LBasis_DG::SetFALAST(Wert p) { falast_ = Required(std::move(p), "LBasis_DG.FALAST"); }
void LBasis_DG::SetFALASTLGV(Wert p) { falastlgv_ = Required(std::move(p), "LBasis_DG.FALASTLGV"); }
void LBasis_DG::SetKommunalsteuer(Wert p) { kommunalsteuer_ = Required(std::move(p), "LBasis_DG.Kommunalsteuer"); }
void LBasis_DG::SetDZBL(int pIndex, Wert p) { dzbl_[pIndex] = Required(std::move(p), "LBasis_DG.DZBL"); }
void LBasis_DG::SetU_Bahn(Wert p) { u_bahn_ = Required(std::move(p), "LBasis_DG.U_Bahn"); }
void LBasis_DG::SetProduktivitaetsfaktor(Wert p) {
  produktivitaetsfaktor_ = Required(std::move(p), "LBasis_DG.Produktivitaetsfaktor");
}

}  // namespace ormelix
