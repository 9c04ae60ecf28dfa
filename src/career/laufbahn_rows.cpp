#include "laufbahn_rows.h"

#include <string>

#include "../session/row_reading.h"
#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::detail {

namespace {

using namespace ValueHelpers;

constexpr const char* kTable = "Mitarbeiter_Laufbahn";

}  // namespace

LaufbahnRowReader::LaufbahnRowReader(const Recordset& rows, Recordset* reasons)
    : rows_(rows),
      reasons_(reasons),
      id_(rows.FieldIndex("ID")),
      schritt_(rows.FieldIndex("Schritt")),
      datum_(rows.FieldIndex("Datum")),
      grund_(rows.FieldIndex("Grund")),
      bound_(LaufbahnColumns().Bind(rows)) {
  if (reasons_) {
    code_ = reasons_->FieldIndex("Code");
    kuerzel_ = reasons_->FieldIndex("Kürzel");
    text_ = reasons_->FieldIndex("Grund");
  }
}

void LaufbahnRowReader::Read(LLohn_Laufbahn& step) const {
  step.ID = ToText(rows_.Fields(id_));
  const RowOf row{"the career step", kTable, step.ID};
  Reading(row, "Schritt", [&] { step.Schritt = static_cast<eLaufbahnschritte>(ToInteger(rows_.Fields(schritt_))); });
  // A step stands on its day: Null or a blank text is no day.
  Reading(row, "Datum", [&] { step.Datum = StoredDate("Datum", rows_.Fields(datum_).Peek(), false); });
  Reading(row, "Grund", [&] { ReadReason(step); });
  ReadColumns(LaufbahnColumns(), bound_, step, rows_, row);
}

// The catalogue row of the step's reason, as a filter on the catalogue finds it:
// "[Code]=NULL" for a step without a reason, which matches no catalogue row.
void LaufbahnRowReader::ReadReason(LLohn_Laufbahn& step) const {
  step.GrundIndex = 0;
  step.GrundNr = Variant::NullValue();
  step.GrundKürzel.clear();
  step.GrundText.clear();
  if (!reasons_) return;
  const Field grund = rows_.Fields(grund_);
  reasons_->Filter("[Code]=" + (grund.Peek().IsMissing() ? std::string("NULL") : std::to_string(ToInteger(grund))));
  if (reasons_->Eof()) return;
  const std::int16_t code = ToInteger(reasons_->Fields(code_));
  step.GrundIndex = static_cast<std::int16_t>(code + 1);
  step.GrundNr = Variant(code);
  step.GrundKürzel = ToText(reasons_->Fields(kuerzel_));
  step.GrundText = ToText(reasons_->Fields(text_));
}

}  // namespace ormelix::detail
