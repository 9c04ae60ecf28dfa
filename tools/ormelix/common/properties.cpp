#include "common/properties.h"

#include "common/table.h"

namespace cli {

Properties& Properties::Text(const std::string& name, const std::string& value) {
  entries_.push_back({name, json::Value(value), value});
  return *this;
}

Properties& Properties::Flag(const std::string& name, bool value) {
  entries_.push_back({name, json::Value(value), value ? "ja" : "nein"});
  return *this;
}

Properties& Properties::Whole(const std::string& name, long value, const std::string& meaning) {
  std::string text = std::to_string(value);
  if (!meaning.empty()) text += " (" + meaning + ")";
  entries_.push_back({name, json::Value(value), text});
  return *this;
}

Properties& Properties::Decimal(const std::string& name, double value) {
  entries_.push_back({name, json::Value(value), Number(value)});
  return *this;
}

json::Value Properties::Json() const {
  json::Value object = json::Value::MakeObject();
  for (const Entry& entry : entries_) object.Set(entry.name, entry.json);
  return object;
}

void Properties::Print(std::ostream& out, const std::string& title, const std::string& indent) const {
  out << indent << title << "\n";
  TextTable table;
  table.Column("Feld");
  table.Column("Wert");
  for (const Entry& entry : entries_) table.Row({entry.name, entry.text});
  table.Print(out, indent + "  ");
}

}  // namespace cli
