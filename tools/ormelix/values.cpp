#include "values.h"

#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/variant.h"
#include "table.h"

namespace cli {

namespace {

template <class... F>
struct Overloaded : F... {
  using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

// Singles are shown to the seven digits they carry.
double Shown(float value) { return ormelix::RoundingHelpers::RoundTo(value, 6); }

}  // namespace

json::Value PropertyJson(ormelix::PropertyRef property) {
  return std::visit(Overloaded{[](std::string* p) { return json::Value(*p); },
                               [](bool* p) { return json::Value(*p); },
                               [](std::int16_t* p) { return json::Value(static_cast<int>(*p)); },
                               [](std::int32_t* p) { return json::Value(static_cast<long>(*p)); },
                               [](float* p) { return json::Value(Shown(*p)); },
                               [](double* p) { return json::Value(*p); },
                               [](ormelix::Variant* p) { return json::Value(p->Describe()); }},
                    property);
}

std::string PropertyText(ormelix::PropertyRef property) {
  return std::visit(Overloaded{[](std::string* p) { return *p; },
                               [](bool* p) { return std::string(*p ? "ja" : "nein"); },
                               [](std::int16_t* p) { return std::to_string(*p); },
                               [](std::int32_t* p) { return std::to_string(*p); },
                               [](float* p) { return Number(Shown(*p)); },
                               [](double* p) { return Number(*p); },
                               [](ormelix::Variant* p) { return p->Describe(); }},
                    property);
}

}  // namespace cli
