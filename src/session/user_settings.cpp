#include "ormelix/session/user_settings.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "ormelix/text.h"

namespace ormelix {

std::string UserSettingsPath(const std::string& application) {
  std::filesystem::path base;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg) {
    base = xdg;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    base = std::filesystem::path(home) / ".config";
  } else {
    base = ".";
  }
  return (base / application / (application + ".ini")).string();
}

std::string GetUserSetting(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& default_value) {
  std::ifstream in(UserSettingsPath(application));
  if (!in) return default_value;
  std::string current;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string_view text = TrimBlanks(line);
    if (text.empty() || text.front() == ';' || text.front() == '#') continue;
    if (text.front() == '[' && text.back() == ']') {
      current = std::string(TrimBlanks(text.substr(1, text.size() - 2)));
      continue;
    }
    std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || !EqualsFolded(current, section)) continue;
    if (EqualsFolded(TrimBlanks(text.substr(0, equals)), key)) return std::string(TrimBlanks(text.substr(equals + 1)));
  }
  return default_value;
}

}  // namespace ormelix
