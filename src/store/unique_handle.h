// A move-only owner of a C library's handle (a connection, a statement, a
// result), given back to the library by Free when the owner goes.
#pragma once

#include <utility>

namespace ormelix::detail {

template <class T, auto Free>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(T* handle) : handle_(handle) {}
  ~UniqueHandle() { Reset(); }
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) {
      Reset();
      handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;

  T* get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void Reset() {
    if (handle_) Free(handle_);
    handle_ = nullptr;
  }

 private:
  T* handle_ = nullptr;
};

}  // namespace ormelix::detail
