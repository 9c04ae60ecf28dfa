// A strict JSON reader for the tests of the command line: it parses what ormelix
// show --json prints and refuses anything RFC 8259 does not allow, and a key that
// stands twice in one object (which parsers read differently), naming the offset.
#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace ormelix::test {

class JsonValue {
 public:
  enum Kind { Null, Bool, Number, String, Array, Object };

  static JsonValue Parse(const std::string& text);
  // The same: every parse refuses a key twice (kept for the callers that say so).
  static JsonValue ParseUnique(const std::string& text);

  Kind kind() const { return kind_; }
  bool AsBool() const { return boolean_; }
  double AsNumber() const { return number_; }
  const std::string& AsString() const { return string_; }
  const std::vector<JsonValue>& AsArray() const { return array_; }
  bool Has(const std::string& key) const { return object_.count(key) != 0; }
  // Object member; throws std::out_of_range naming the key when it is missing.
  const JsonValue& operator[](const std::string& key) const;
  const JsonValue& operator[](std::size_t index) const { return array_.at(index); }
  std::size_t Size() const { return kind_ == Array ? array_.size() : object_.size(); }

 private:
  friend class JsonParser;
  Kind kind_ = Null;
  bool boolean_ = false;
  double number_ = 0;
  std::string string_;
  std::vector<JsonValue> array_;
  std::map<std::string, JsonValue> object_;
};

}  // namespace ormelix::test
