#include "common/values.h"

#include "common/table.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/variant.h"

namespace cli {

namespace {

// Singles are shown to the seven digits they carry.
double Shown(float value) { return ormelix::RoundingHelpers::RoundTo(value, 6); }

json::Value VariantJson(const ormelix::Variant& value) {
  switch (value.kind()) {
    case ormelix::Variant::Boolean:
      return json::Value(value.AsBool());
    case ormelix::Variant::Integer:
      return json::Value(static_cast<long long>(value.AsInteger()));
    case ormelix::Variant::Double:
      return json::Value(value.AsDouble());
    case ormelix::Variant::Text:
      return json::Value(value.AsText());
    default:
      return json::Value();
  }
}

}  // namespace

// A day count read as a date: its double.
static const double* DateOf(const ColumnValue& value) {
  if (value.load != ormelix::LoadAs::Date || !value.property) return nullptr;
  auto* date = std::get_if<double*>(&*value.property);
  return date ? *date : nullptr;
}

json::Value ValueJson(const ColumnValue& value) {
  if (!value.property) return VariantJson(value.stored);
  if (const double* date = DateOf(value)) return json::Value(ormelix::DateHelpers::FormatDate(*date));
  return std::visit(ormelix::Overloaded{[](std::string* p) { return json::Value(*p); },
                               [](bool* p) { return json::Value(*p); },
                               [](std::int16_t* p) { return json::Value(static_cast<int>(*p)); },
                               [](std::int32_t* p) { return json::Value(static_cast<long>(*p)); },
                               [](float* p) { return json::Value(Shown(*p)); },
                               [](double* p) { return json::Value(*p); },
                               [](ormelix::Variant* p) { return VariantJson(*p); }},
                    *value.property);
}

std::string ValueText(const ColumnValue& value) {
  if (!value.property) return value.stored.Describe();
  if (const double* date = DateOf(value)) return ormelix::DateHelpers::FormatDate(*date);
  return std::visit(ormelix::Overloaded{[](std::string* p) { return *p; },
                               [](bool* p) { return std::string(*p ? "ja" : "nein"); },
                               [](std::int16_t* p) { return std::to_string(*p); },
                               [](std::int32_t* p) { return std::to_string(*p); },
                               [](float* p) { return Number(Shown(*p)); },
                               [](double* p) { return Number(*p); },
                               [](ormelix::Variant* p) { return p->Describe(); }},
                    *value.property);
}

bool IsBlank(const ColumnValue& value) {
  if (!value.property) {
    double number = 0;
    return value.stored.IsMissing() || (value.stored.IsText() && value.stored.AsText().empty()) ||
           (value.stored.TryNumber(number) && number == 0);
  }
  return std::visit(ormelix::Overloaded{[](std::string* p) { return p->empty(); },
                               [](bool* p) { return !*p; },
                               [](std::int16_t* p) { return *p == 0; },
                               [](std::int32_t* p) { return *p == 0; },
                               [](float* p) { return *p == 0; },
                               [](double* p) { return *p == 0; },
                               [](ormelix::Variant* p) { return p->IsMissing(); }},
                    *value.property);
}

void AddValues(json::Value& object, const std::vector<ColumnValue>& values) {
  for (const ColumnValue& value : values) {
    json::Value* into = &object;
    std::string_view name = value.name;
    for (std::size_t dot = name.find('.'); into && dot != std::string_view::npos; dot = name.find('.')) {
      std::string part(name.substr(0, dot));
      json::Value* member = into->Find(part);
      into = !member ? &into->Set(part, json::Value::MakeObject()) : member->IsObject() ? member : nullptr;
      name.remove_prefix(dot + 1);
    }
    if (into && !into->Find(std::string(name))) into->Set(std::string(name), ValueJson(value));
  }
}

void PrintPairs(std::ostream& out, const std::string& title, const std::vector<ColumnValue>& values,
                bool skip_blank) {
  out << "\n" << title << "\n";
  TextTable table;
  table.Column("Feld");
  table.Column("Wert", TextTable::Right);
  for (const ColumnValue& value : values)
    if (!skip_blank || !IsBlank(value)) table.Row({value.name, ValueText(value)});
  table.Print(out, "  ");
}

}  // namespace cli
