#include "laufbahn_rows.h"

#include <string>

#include "ormelix/career/laufbahn_columns.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::detail {

namespace {

using namespace ValueHelpers;

constexpr const char* kTable = "Mitarbeiter_Laufbahn";

// The calendar a stored date may fall into: 1 January 100 to 31 December 9999.
const Date kFirstDate = DateHelpers::DateSerial(100, 1, 1);
const Date kLastDate = DateHelpers::DateSerial(9999, 12, 31);

// Runs one column's read; a failure becomes a StoreError that names the column and
// the row, so that a payroll office can find and mend the row.
template <class Read>
void Reading(const char* column, const std::string& id, Read&& read) {
  try {
    read();
  } catch (const StoreError&) {
    throw;
  } catch (const std::exception& failure) {
    throw StoreError("cannot read the career step with ID " + (id.empty() ? std::string("(none)") : id) + " of " +
                         kTable,
                     std::string(kTable) + "." + column, failure.what());
  }
}

// A step stands on its day: Null, a blank text or a value that is no day of the
// calendar cannot be read as one.
Date StepDate(const Field& field) {
  const Variant& value = field.Peek();
  if (DateHelpers::IsEmptyText(value))
    throw ConversionError(value.IsText() ? "Datum is an empty text, not a date" : "Datum is Null, not a date");
  const Date date = ToDate(value);
  if (!(date >= kFirstDate && date <= kLastDate))
    throw ConversionError("Datum holds " + value.Describe() + ", which is no date of the years 100 to 9999");
  return date;
}

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
  const std::string& id = step.ID;
  Reading("Schritt", id, [&] { step.Schritt = static_cast<eLaufbahnschritte>(ToInteger(rows_.Fields(schritt_))); });
  Reading("Datum", id, [&] { step.Datum = StepDate(rows_.Fields(datum_)); });
  Reading("Grund", id, [&] { ReadReason(step); });
  const auto& columns = LaufbahnColumns().Columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto& decl = columns[i];
    Reading(decl.column, id, [&] {
      const Field field = rows_.Fields(bound_[i]);
      if (decl.load == LoadAs::Custom) decl.load_with(step, field);
      else LoadProperty(field, decl.load, decl.property(step));
    });
  }
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
