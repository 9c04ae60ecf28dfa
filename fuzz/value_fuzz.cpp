// The conversions of stored values and the date helpers: any text or number is
// converted or refused with the library's own failures (ConversionError,
// std::out_of_range), never undefined behaviour.
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "fuzz_input.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/text_order.h"
#include "ormelix/store/value_helpers.h"

using namespace ormelix;

namespace {

template <class Convert>
void Try(Convert convert) {
  try {
    convert();
  } catch (const ConversionError&) {
  } catch (const std::out_of_range&) {
  }
}

void Convert(const Variant& value) {
  using namespace ValueHelpers;
  Try([&] { ToText(value); });
  Try([&] { ToFlag(value); });
  Try([&] { ToLong(value); });
  Try([&] { ToInteger(value); });
  Try([&] { ToSingle(value); });
  Try([&] { ToAmount(value); });
  Try([&] { ToVariantValue(value); });
  Try([&] { RoundingHelpers::RoundTo(value, 2); });
  Try([&] {
    Date date = ToDate(value);
    DateHelpers::FormatDate(date);
    DateHelpers::LastDayOfMonth(date);
    DateToZeitraum(date);
  });
  Try([&] { DateHelpers::ZeitraumAddYears(202403, value); });
  DateHelpers::IsID(value);
  DateHelpers::IsEmptyText(value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  double number = input.Take<double>();
  std::int32_t zeitraum = input.Take<std::int32_t>();
  std::int16_t day = input.Take<std::int16_t>();
  std::string text(input.Rest());
  Convert(Variant(text));
  Convert(Variant(number));
  Convert(Variant(static_cast<std::int64_t>(zeitraum)));
  Try([&] { DateHelpers::ZeitraumToDate(zeitraum, day); });
  Try([&] { DateHelpers::ZeitraumMonth(zeitraum); });
  Try([&] { ValueHelpers::MakeZeitraum(day, static_cast<std::int16_t>(zeitraum)); });
  Try([&] { ValueHelpers::SqlDate(number); });
  Try([&] { RoundingHelpers::DivideExact(number, static_cast<double>(zeitraum), 14); });
  Try([&] { RoundingHelpers::MultiplyExact(number, Variant(text), 2); });
  ValueHelpers::SqlID(text);
  CompareText(text, "Ärzte");
  return 0;
}
