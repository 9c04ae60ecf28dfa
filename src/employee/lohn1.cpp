// The working record of a pay calculation and its children.
#include "ormelix/employee/lohn1.h"

namespace ormelix {

LLohn1_Uebertritt::LLohn1_Uebertritt()
    : datum1_(std::make_shared<LLohn1_UebertrittDatum>()), datum2_(std::make_shared<LLohn1_UebertrittDatum>()) {}

void LLohn1_Uebertritt::SetOwner(const LLohn1* owner) {
  // Only the Datum objects this one made (and still holds) follow; a replacement
  // the caller put in stays without an owner.
  for (const auto& datum : {datum1_, datum2_})
    if (datum && datum->owner_ == owner_) datum->owner_ = owner;
  owner_ = owner;
}

LLohn1::LLohn1() {
  for (int i = 0; i <= 12; ++i) {
    auto werte = std::make_shared<LLohn1_Werte>();
    werte->owner_ = this;
    sechstel_(i) = std::move(werte);
    auto uebertritt = std::make_shared<LLohn1_Uebertritt>();
    uebertritt->SetOwner(this);
    uebertritt_(i) = std::move(uebertritt);
  }
}

LLohn1::~LLohn1() {
  for (int i = 0; i <= 12; ++i) {
    if (const auto& werte = sechstel_(i); werte && werte->owner_ == this) werte->owner_ = nullptr;
    if (const auto& uebertritt = uebertritt_(i); uebertritt && uebertritt->owner_ == this)
      uebertritt->SetOwner(nullptr);
  }
}

}  // namespace ormelix
