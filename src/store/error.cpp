#include "ormelix/error.h"

namespace ormelix {

namespace {

std::string Compose(const std::string& what_failed, const std::string& subject, const std::string& message) {
  std::string text = what_failed;
  if (!message.empty()) text += ": " + message;
  if (!subject.empty()) text += " [" + subject + "]";
  return text;
}

}  // namespace

StoreError::StoreError(const std::string& what_failed, std::string subject, std::string backend_message, int code)
    : Error(Compose(what_failed, subject, backend_message)),
      subject_(std::move(subject)),
      backend_message_(std::move(backend_message)),
      code_(code) {}

KeyNotFound::KeyNotFound(std::string key, const std::string& collection)
    : Error("no entry '" + key + "' in " + collection), key_(std::move(key)) {}

}  // namespace ormelix
