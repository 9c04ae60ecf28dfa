/// \file
/// Per-user settings of the application, in a small INI file in the user's config
/// directory: $XDG_CONFIG_HOME/Ormelix/Ormelix.ini, or ~/.config/Ormelix/Ormelix.ini
/// when XDG_CONFIG_HOME is not set. Only read; the file may be missing.
#pragma once

#include <string>

namespace ormelix {

/// The path of the file for an application name ("Ormelix").
std::string UserSettingsPath(const std::string& application);
/// The value of key in [section], or the default when the file, the section or the
/// key is missing.
std::string GetUserSetting(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& default_value);

}  // namespace ormelix
