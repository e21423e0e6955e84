// SPDX-License-Identifier: GPL-3.0-or-later
#include "Manifest.h"

#include <QCryptographicHash>

#include <algorithm>

namespace cb::sif {
namespace {

constexpr std::string_view kMissing = "# missing: ";

bool IsHex64(std::string_view s) {
  return s.size() == 64 && std::all_of(s.begin(), s.end(), [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
         });
}

}  // namespace

std::string Sha256Hex(std::string_view bytes) {
  return QCryptographicHash::hash(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())),
                                  QCryptographicHash::Sha256)
      .toHex()
      .toStdString();
}

std::string ManifestText(const Manifest& m, const std::string& sifName) {
  std::string text = "# chattelbook-sif backup of " + sifName + "\n# check with: sha256sum -c " +
                     std::string(kManifestName) + "\n";
  for (const auto& name : m.order) text += m.hashes.at(name) + "  " + name + "\n";
  for (const auto& name : m.missing) text += std::string(kMissing) + name + "\n";
  return text;
}

std::optional<Manifest> ParseManifest(std::string_view text, std::string& message) {
  Manifest m;
  std::size_t number = 0;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    ++number;
    if (line.starts_with(kMissing)) {
      m.missing.emplace_back(line.substr(kMissing.size()));
      continue;
    }
    if (line.empty() || line.starts_with("#")) continue;
    const std::string name(line.size() > 66 ? line.substr(66) : std::string_view());
    if (!IsHex64(line.substr(0, 64)) || line.substr(64, 2) != "  " || name.empty()) {
      message = "manifest line " + std::to_string(number) + " is not \"SHA256  NAME\"";
      return std::nullopt;
    }
    if (!m.hashes.emplace(name, std::string(line.substr(0, 64))).second) {
      message = "manifest names " + name + " twice";
      return std::nullopt;
    }
    m.order.push_back(name);
  }
  return m;
}

bool IsBackupName(std::string_view name) {
  const std::size_t slash = name.find('/');
  if (slash == std::string_view::npos) return false;
  const std::string_view folder = name.substr(0, slash);
  const std::string_view file = name.substr(slash + 1);
  const bool known = std::find(std::begin(kBackupFolders), std::end(kBackupFolders), folder) != std::end(kBackupFolders);
  return known && !file.empty() && file != "." && file != ".." && file.find('/') == std::string_view::npos &&
         file.find('\0') == std::string_view::npos;
}

}  // namespace cb::sif
