// The criteria of Recordset::Filter and Find: any text parses or is refused with
// a StoreError, and a parsed filter evaluates on rows of every kind of value.
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "ormelix/error.h"
#include "ormelix/text.h"
#include "store/filter.h"

using namespace ormelix;

namespace {

const char* const kColumns[] = {"ID", "Zeitraum", "Sections", "Fields", "Datum", "Nr", "Lohnarttyp", "Bezeichnung"};

int Resolve(std::string_view name) {
  for (int i = 0; i < static_cast<int>(std::size(kColumns)); ++i)
    if (EqualsFolded(name, kColumns[i])) return i;
  return -1;
}

std::vector<Variant> Row(int kind) {
  switch (kind % 3) {
    case 0:
      return {Variant("{8A0B1C2D-0000-4000-8000-00000000000A}"), Variant(std::int64_t{202403}), Variant("Druck"),
              Variant("Drucker"), Variant(45352.0), Variant(std::int64_t{7}), Variant(std::int64_t{1}),
              Variant("Ärzte")};
    case 1:
      return std::vector<Variant>(std::size(kColumns), Variant::NullValue());
    default:
      return {Variant(""), Variant("202403"), Variant("ärzte"), Variant(-1.5), Variant("2024-03-01"),
              Variant(true), Variant(1e300), Variant("Straße")};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  int kind = input.Take<std::uint8_t>();
  try {
    detail::FilterNode filter = detail::ParseFilter(input.Rest(), Resolve);
    std::vector<Variant> row = Row(kind);
    detail::Evaluate(filter, row.data());
  } catch (const StoreError&) {
    // criteria that do not parse, refused with their reason
  }
  return 0;
}
