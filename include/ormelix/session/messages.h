/// \file
/// The one place where the library talks to the user: a replaceable message sink.
/// By default messages go to standard error; a host with a user interface puts its
/// own message box in.
#pragma once

#include <functional>
#include <string>

namespace ormelix {

/// What shows a message to the user: standard error by default, a message box in a
/// host with a user interface.
using MessageSink = std::function<void(const std::string& message)>;

/// Replaces the sink; an empty function restores the default (standard error).
void SetMessageSink(MessageSink sink);
/// Hands a message to the sink. A sink that throws is not the caller's concern: the
/// failure is swallowed, so that showing a message never stops an operation.
void ShowMessage(const std::string& message);

}  // namespace ormelix
