#include "ormelix/session/messages.h"

#include <iostream>

namespace ormelix {

namespace {
MessageSink& Sink() {
  static MessageSink sink;
  return sink;
}
}  // namespace

void SetMessageSink(MessageSink sink) { Sink() = std::move(sink); }

void ShowMessage(const std::string& message) {
  try {
    if (Sink()) {
      Sink()(message);
    } else {
      std::cerr << message << std::endl;
    }
  } catch (...) {
  }
}

}  // namespace ormelix
