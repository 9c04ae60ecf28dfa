// The paths a command is given, checked before they are used, so that a path that
// cannot be used gives one line saying why (exit status 2) and never a raw
// failure of the file system.
#pragma once

#include <filesystem>

namespace cli {

// What lies at the path (file_type::not_found for nothing); a UsageError for a
// path that cannot be looked at: too long, a loop of links, a folder on the way
// that may not be entered.
std::filesystem::file_type KindAt(const std::filesystem::path& path);

// A UsageError unless this program may read the file.
void RequireReadable(const std::filesystem::path& file);

// A UsageError unless this program may create files in the folder.
void RequireWritableFolder(const std::filesystem::path& folder);

// The folder, made if it is not there; a UsageError naming what stands in the way.
void MakeFolder(const std::filesystem::path& folder);

// The path for a message: its first 200 characters.
std::string Shown(const std::filesystem::path& path);

}  // namespace cli
