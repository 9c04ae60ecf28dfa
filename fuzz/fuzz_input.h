// Splitting a fuzzer's input into the pieces a target needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ormelix::fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  // The rest of the input as text.
  std::string_view Rest() const { return {reinterpret_cast<const char*>(data_), size_}; }
  // A value of plain bytes from the front (zero when the input has run out).
  template <class T>
  T Take() {
    T value{};
    std::size_t n = size_ < sizeof(T) ? size_ : sizeof(T);
    std::memcpy(&value, data_, n);
    data_ += n;
    size_ -= n;
    return value;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace ormelix::fuzz
