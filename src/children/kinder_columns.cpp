#include "ormelix/children/kinder_columns.h"

#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using Kind = LLohn_Kind;
using Entry = LLohn_Kind_Zeitbezug;

template <auto M, class Target>
ColumnDecl<Target> Read(const char* column, LoadAs load) {
  return {column, Member<M, Target>, load, SaveAs::None};
}

// The two enumerations, read as 16-bit numbers and kept as stored.
void LoadFB(Entry& entry, const Field& field) {
  entry.FB_Bezieher = static_cast<eFB_Bezieher>(ValueHelpers::ToInteger(field));
}
Variant FBValue(Entry& entry) { return Variant(static_cast<std::int16_t>(entry.FB_Bezieher)); }
void LoadFABO(Entry& entry, const Field& field) { entry.FABO = static_cast<eFABO>(ValueHelpers::ToInteger(field)); }
Variant FABOValue(Entry& entry) { return Variant(static_cast<std::int16_t>(entry.FABO)); }

// A column of its own conversion that is read only; the value function serves the
// views of a record.
ColumnDecl<Entry> ReadEnum(const char* column, void (*load)(Entry&, const Field&), Variant (*value)(Entry&)) {
  return {column, nullptr, LoadAs::Custom, SaveAs::None, nullptr, load, value, column};
}

}  // namespace

const ColumnSet<LLohn_Kind>& KindColumns() {
  static const ColumnSet<Kind> columns{
      Read<&Kind::ID, Kind>("ID", LoadAs::Text),
      Read<&Kind::VorName, Kind>("VorName", LoadAs::Text),
      Read<&Kind::Nachname, Kind>("Nachname", LoadAs::Text),
      Read<&Kind::VersNr, Kind>("VersNr", LoadAs::Text),
      Read<&Kind::Geburtsdatum, Kind>("GebDatum", LoadAs::Date),
  };
  return columns;
}

const ColumnSet<LLohn_Kind_Zeitbezug>& ZeitbezugColumns() {
  static const ColumnSet<Entry> columns{
      Read<&Entry::ID, Entry>("ID", LoadAs::Text),
      Read<&Entry::Zeitraum, Entry>("Zeitraum", LoadAs::Long),
      Read<&Entry::KFZ, Entry>("KFZ", LoadAs::Text),
      Read<&Entry::Kinderzuschlag_ab, Entry>("Kinderzuschlag_ab", LoadAs::Long),
      ReadEnum("FB_Bezieher", &LoadFB, &FBValue),
      ReadEnum("FABO", &LoadFABO, &FABOValue),
      Read<&Entry::FABO18, Entry>("FABO18", LoadAs::Flag),
      Read<&Entry::AVAB, Entry>("AVAB", LoadAs::Flag),
  };
  return columns;
}

}  // namespace ormelix
