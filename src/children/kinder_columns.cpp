#include "ormelix/children/kinder_columns.h"

#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using Kind = LLohn_Kind;
using Entry = LLohn_Kind_Zeitbezug;


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
      Plain<&Kind::ID>(LoadAs::Text, SaveAs::None),
      Plain<&Kind::VorName>(LoadAs::Text, SaveAs::None),
      Plain<&Kind::Nachname>(LoadAs::Text, SaveAs::None),
      Plain<&Kind::VersNr>(LoadAs::Text, SaveAs::None),
      ColumnDecl<Kind>{"GebDatum", Member<&Kind::Geburtsdatum>, LoadAs::Date, SaveAs::None},
  };
  return columns;
}

const ColumnSet<LLohn_Kind_Zeitbezug>& ZeitbezugColumns() {
  static const ColumnSet<Entry> columns{
      Plain<&Entry::ID>(LoadAs::Text, SaveAs::None),
      Plain<&Entry::Zeitraum>(LoadAs::Long, SaveAs::None),
      Plain<&Entry::KFZ>(LoadAs::Text, SaveAs::None),
      Plain<&Entry::Kinderzuschlag_ab>(LoadAs::Long, SaveAs::None),
      ReadEnum("FB_Bezieher", &LoadFB, &FBValue),
      ReadEnum("FABO", &LoadFABO, &FABOValue),
      Plain<&Entry::FABO18>(LoadAs::Flag, SaveAs::None),
      Plain<&Entry::AVAB>(LoadAs::Flag, SaveAs::None),
  };
  return columns;
}

}  // namespace ormelix
