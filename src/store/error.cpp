#include "ormelix/error.h"

namespace ormelix {

namespace {

std::string Compose(const std::string& what_failed, const std::string& subject, const std::string& message) {
  std::string text = what_failed;
  if (!message.empty()) text += ": " + message;
  if (!subject.empty()) text += " [" + ShortenForMessage(subject) + "]";
  return text;
}

}  // namespace

std::string ShortenForMessage(std::string_view text, std::size_t limit) {
  std::string out;
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    bool starts_character = (byte & 0xC0) != 0x80;
    if (starts_character && characters++ == limit) return out + "...";
    out += byte == '\n' || byte == '\r' || byte == '\t' ? ' ' : text[i];
  }
  return out;
}

StoreError::StoreError(const std::string& what_failed, std::string subject, std::string backend_message, int code)
    : Error(Compose(what_failed, subject, backend_message)),
      subject_(std::move(subject)),
      backend_message_(std::move(backend_message)),
      code_(code) {}

KeyNotFound::KeyNotFound(std::string key, const std::string& collection)
    : Error("no entry '" + key + "' in " + collection), key_(std::move(key)) {}

}  // namespace ormelix
