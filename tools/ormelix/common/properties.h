// An object's properties by name, for the table view and the JSON view alike, for
// the classes whose values sit behind getters rather than column declarations.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "common/json.h"

namespace cli {

class Properties {
 public:
  Properties& Text(const std::string& name, const std::string& value);
  Properties& Flag(const std::string& name, bool value);
  // A whole number; `meaning`, if given, is shown beside it in the table only.
  Properties& Whole(const std::string& name, long value, const std::string& meaning = "");
  Properties& Decimal(const std::string& name, double value);

  json::Value Json() const;
  // The title, then the properties as a table of field and value.
  void Print(std::ostream& out, const std::string& title, const std::string& indent = "  ") const;

 private:
  struct Entry {
    std::string name;
    json::Value json;
    std::string text;
  };
  std::vector<Entry> entries_;
};

}  // namespace cli
