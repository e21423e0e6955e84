// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/FileSystem.h"

#include <filesystem>
#include <system_error>

#include "base/Text.h"

namespace cb {
namespace fs = std::filesystem;

std::string DirEntryName(const std::string& path) {
  const auto slash = path.rfind('/');
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  if (name.empty()) return {};
  std::error_code ec;
  if (fs::is_regular_file(path, ec)) return name;
  const fs::path dir = slash == std::string::npos ? fs::path(".") : fs::path(path.substr(0, slash + 1));
  for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string entry = it->path().filename().string();
    if (SameName(entry, name) && it->is_regular_file(ec)) return entry;
  }
  return {};
}

}  // namespace cb
