// A small JSON document: built as a tree, written with stable key order.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace cli::json {

class Value {
 public:
  using Object = std::vector<std::pair<std::string, Value>>;
  using Array = std::vector<Value>;

  Value() : data_(nullptr) {}
  Value(std::nullptr_t) : data_(nullptr) {}
  Value(bool value) : data_(value) {}
  Value(int value) : data_(static_cast<std::int64_t>(value)) {}
  Value(long value) : data_(static_cast<std::int64_t>(value)) {}
  Value(long long value) : data_(static_cast<std::int64_t>(value)) {}
  Value(double value) : data_(value) {}
  Value(std::string value) : data_(std::move(value)) {}
  Value(const char* value) : data_(std::string(value)) {}

  static Value MakeObject() {
    Value v;
    v.data_ = Object{};
    return v;
  }
  static Value MakeArray() {
    Value v;
    v.data_ = Array{};
    return v;
  }

  // Object: adds a member (in order); a key the object has already is a
  // std::logic_error, so that no document carries a key twice. Array: appends.
  Value& Set(const std::string& key, Value value);
  Value& Push(Value value);
  // Object: the member under the key, or nullptr.
  Value* Find(const std::string& key);
  bool IsObject() const { return std::holds_alternative<Object>(data_); }

  std::string Dump(int indent = 2) const;

 private:
  void Write(std::string& out, int indent, int depth) const;
  std::variant<std::nullptr_t, bool, std::int64_t, double, std::string, Object, Array> data_;
};

}  // namespace cli::json
