#include "common/paths.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "cli.h"
#include "ormelix/error.h"

namespace cli {

namespace fs = std::filesystem;

std::string Shown(const fs::path& path) { return ormelix::ShortenForMessage(path.string()); }

fs::file_type KindAt(const fs::path& path) {
  std::error_code error;
  fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return fs::file_type::not_found;
  if (error) throw UsageError("cannot look at '" + Shown(path) + "': " + error.message());
  return status.type();
}

void RequireReadable(const fs::path& file) {
  if (access(file.c_str(), R_OK) != 0)
    throw UsageError("cannot read '" + Shown(file) + "': " + std::strerror(errno));
}

void RequireWritableFolder(const fs::path& folder) {
  fs::path shown = folder.empty() ? fs::path(".") : folder;
  if (access(shown.c_str(), W_OK | X_OK) != 0)
    throw UsageError("cannot write in the folder '" + Shown(shown) + "': " + std::strerror(errno));
}

void MakeFolder(const fs::path& folder) {
  fs::file_type kind = KindAt(folder);
  if (kind == fs::file_type::directory) return;
  if (kind != fs::file_type::not_found)
    throw UsageError("'" + Shown(folder) + "' is no folder; expected a folder for the stores (or the name of a new one)");
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw UsageError("cannot make the folder '" + Shown(folder) + "': " + error.message());
}

}  // namespace cli
