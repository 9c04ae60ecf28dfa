#include "ormelix/store/columns.h"

#include <atomic>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using namespace ValueHelpers;

[[noreturn]] void WrongTarget(const char* what) {
  throw ConversionError(std::string("a column declaration reads ") + what + " into a property of another type");
}

void AssignNumber(PropertyRef into, double value) {
  std::visit(Overloaded{[&](std::string* p) { *p = ToText(Variant(value)); },
                        [&](bool* p) { *p = value != 0; },
                        [&](std::int16_t* p) { *p = AmountToInteger(value); },
                        [&](std::int32_t* p) { *p = ToLong(Variant(value)); },
                        [&](float* p) { *p = static_cast<float>(value); },
                        [&](double* p) { *p = value; },
                        [&](Variant* p) { *p = Variant(value); }},
             into);
}

void AssignFlag(PropertyRef into, bool value) {
  std::visit(Overloaded{[&](std::string*) { WrongTarget("a flag"); },
                        [&](bool* p) { *p = value; },
                        [&](std::int16_t* p) { *p = value ? -1 : 0; },
                        [&](std::int32_t* p) { *p = value ? -1 : 0; },
                        [&](float* p) { *p = value ? -1.0f : 0.0f; },
                        [&](double* p) { *p = value ? -1.0 : 0.0; },
                        [&](Variant* p) { *p = Variant(value); }},
             into);
}

void AssignText(PropertyRef into, std::string value) {
  std::visit(Overloaded{[&](std::string* p) { *p = std::move(value); },
                        [&](Variant* p) { *p = Variant(std::move(value)); },
                        [&](auto*) { WrongTarget("a text"); }},
             into);
}

// The double a single stands for: its shortest decimal form read as a double, so
// that 0.1f is written as 0.1 and reads back as 0.1f.
double SingleAsDouble(float value) {
  char buffer[32];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  double result = value;
  if (ec == std::errc()) std::from_chars(buffer, end, result);
  return result;
}

Variant PlainValue(PropertyRef from) {
  return std::visit(Overloaded{[](std::string* p) { return Variant(*p); },
                               [](bool* p) { return Variant(*p); },
                               [](std::int16_t* p) { return Variant(*p); },
                               [](std::int32_t* p) { return Variant(*p); },
                               [](float* p) { return Variant(SingleAsDouble(*p)); },
                               [](double* p) { return Variant(*p); },
                               [](Variant* p) { return *p; }},
                    from);
}

double Rounded(PropertyRef from, int digits) {
  if (auto* single = std::get_if<float*>(&from)) return RoundingHelpers::RoundTo(**single, digits);
  return RoundingHelpers::RoundTo(PlainValue(from), digits);
}

}  // namespace

std::uint64_t detail::NewColumnSetKey() {
  static std::atomic<std::uint64_t> next{1};
  return next++;
}

void LoadProperty(const Field& field, LoadAs how, PropertyRef into) { LoadProperty(field.Peek(), how, into); }

void RethrowUnreadable(const Field& field) {
  static const std::string kNamed = "the stored value in ";
  try {
    throw;
  } catch (const ConversionError& e) {
    if (std::string_view(e.what()).substr(0, kNamed.size()) == kNamed) throw;
    throw ConversionError(kNamed + field.Where() + " cannot be read: " + e.what());
  } catch (const std::out_of_range& e) {
    if (std::string_view(e.what()).substr(0, kNamed.size()) == kNamed) throw;
    throw std::out_of_range(kNamed + field.Where() + " cannot be read: " + e.what());
  }
}

void LoadProperty(const Variant& field, LoadAs how, PropertyRef into) {
  // The usual cases first, as the general path below would take them: an amount
  // stored as a number into a single or a double, a whole number into a 16-bit
  // property or a flag. A pay row has some two hundred columns.
  if (field.kind() == Variant::Double && how == LoadAs::Amount) {
    if (float** single = std::get_if<float*>(&into)) return void(**single = static_cast<float>(field.AsDouble()));
    if (double** number = std::get_if<double*>(&into)) return void(**number = field.AsDouble());
  }
  if (field.kind() == Variant::Integer && (how == LoadAs::Integer || how == LoadAs::Flag)) {
    const std::int64_t whole = field.AsInteger();
    std::int16_t** small = std::get_if<std::int16_t*>(&into);
    if (small && how == LoadAs::Flag) return void(**small = whole != 0 ? -1 : 0);
    using Small = std::numeric_limits<std::int16_t>;
    if (small && whole >= Small::min() && whole <= Small::max()) return void(**small = static_cast<std::int16_t>(whole));
    if (bool** flag = std::get_if<bool*>(&into); flag && how == LoadAs::Flag) return void(**flag = whole != 0);
  }
  switch (how) {
    case LoadAs::None:
      return;
    case LoadAs::Text:
      return AssignText(into, ToText(field));
    case LoadAs::Flag:
      return AssignFlag(into, ToFlag(field));
    case LoadAs::Long:
      return AssignNumber(into, ToLong(field));
    case LoadAs::Integer:
      return AssignNumber(into, ToInteger(field));
    case LoadAs::Single:
      return AssignNumber(into, ToSingle(field));
    case LoadAs::Amount:
      return AssignNumber(into, ToAmount(field));
    case LoadAs::Date:
      return AssignNumber(into, ToDate(field));
    case LoadAs::Round2:
      return AssignNumber(into, RoundingHelpers::RoundTo(field, 2));
    case LoadAs::Round4:
      return AssignNumber(into, RoundingHelpers::RoundTo(field, 4));
    case LoadAs::AsVariant:
      if (auto* target = std::get_if<Variant*>(&into)) {
        **target = ToVariantValue(field);
        return;
      }
      WrongTarget("a variant");
    case LoadAs::Custom:
      throw ConversionError("a column declared with a conversion of its own is read by its load_with function");
  }
}

Variant SaveProperty(PropertyRef from, SaveAs how) {
  switch (how) {
    case SaveAs::None:
      return {};
    case SaveAs::Direct:
      return PlainValue(from);
    case SaveAs::Round2:
      return Variant(Rounded(from, 2));
    case SaveAs::Round3:
      return Variant(Rounded(from, 3));
    case SaveAs::Flag:
      return Variant(ToFlag(PlainValue(from)));
    case SaveAs::Integer:
      return Variant(ToInteger(PlainValue(from)));
    case SaveAs::Date:
      return Variant(ToDate(PlainValue(from)));
    case SaveAs::SqlID:
      return Variant(SqlID(ToText(PlainValue(from))));
    case SaveAs::IDOrNull: {
      Variant value = PlainValue(from);
      return DateHelpers::IsID(value) ? value : Variant::NullValue();
    }
    case SaveAs::Custom:
      throw ConversionError("a column declared with a conversion of its own is written by its save_with function");
  }
  return {};
}

}  // namespace ormelix
