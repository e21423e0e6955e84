// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/Manifest.h"

#include <QCryptographicHash>
#include <QUtf8StringView>

#include <algorithm>

#include "storage/SlideHistory.h"

namespace cb::pack {
namespace {

constexpr std::string_view kMissing = "# missing: ";

bool IsHex64(std::string_view s) {
  return s.size() == 64 && std::all_of(s.begin(), s.end(), [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
         });
}

// True when `sha256sum` marks the name's line with a leading backslash.
bool NeedsEscape(std::string_view name) { return name.find_first_of("\n\\") != std::string_view::npos; }

// The name with newline and backslash written as "\\n" and "\\\\".
std::string Escaped(std::string_view name) {
  std::string out;
  for (char c : name) out += c == '\n' ? std::string("\\n") : c == '\\' ? std::string("\\\\") : std::string(1, c);
  return out;
}

// The name after a leading backslash, as `sha256sum -c` reads it; nothing
// for an escape it does not know.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    const char next = ++i < text.size() ? text[i] : '\0';
    if (next == 'n') out += '\n';
    else if (next == 'r') out += '\r';
    else if (next == '\\') out += '\\';
    else return std::nullopt;
  }
  return out;
}

bool IsPlainFile(std::string_view file) {
  return !file.empty() && file != "." && file != ".." && file.find('/') == std::string_view::npos &&
         file.find('\0') == std::string_view::npos;
}

// "FOLDER/FILE" with one of the backup's folders.
bool IsFolderFile(std::string_view name) {
  const std::size_t slash = name.find('/');
  if (slash == std::string_view::npos) return false;
  const std::string_view folder = name.substr(0, slash);
  const bool known =
      std::find(std::begin(kBackupFolders), std::end(kBackupFolders), folder) != std::end(kBackupFolders);
  return known && IsPlainFile(name.substr(slash + 1));
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
  const auto mark = [](const std::string& name) { return std::string(NeedsEscape(name) ? "\\" : ""); };
  for (const auto& name : m.order) text += mark(name) + m.hashes.at(name) + "  " + Escaped(name) + "\n";
  for (const auto& name : m.missing) text += std::string(kMissing) + mark(name) + Escaped(name) + "\n";
  return text;
}

std::optional<Manifest> ParseManifest(std::string_view text, std::string& message) {
  Manifest m;
  // Room for every line in each list at once: no list is copied as it grows.
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  m.order.reserve(lines);
  m.missing.reserve(lines);
  std::size_t number = 0;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    ++number;
    const auto refuse = [&](const char* form) {
      message = "manifest line " + std::to_string(number) + " is not \"" + form + "\"";
      return std::nullopt;
    };
    if (line.starts_with(kMissing)) {
      const std::string_view field = line.substr(kMissing.size());
      auto name = field.starts_with('\\') ? Unescaped(field.substr(1)) : std::string(field);
      if (!name) return refuse("# missing: NAME");
      m.missing.push_back(std::move(*name));
      continue;
    }
    if (line.empty() || line.starts_with("#")) continue;
    const bool marked = line.starts_with('\\');
    if (marked) line.remove_prefix(1);
    const std::string_view field = line.size() > 66 ? line.substr(66) : std::string_view();
    const auto parsed = marked ? Unescaped(field) : std::string(field);
    if (!IsHex64(line.substr(0, 64)) || line.substr(64, 2) != "  " || !parsed || parsed->empty())
      return refuse("SHA256  NAME");
    const std::string& name = *parsed;
    if (!m.hashes.emplace(name, std::string(line.substr(0, 64))).second) {
      message = "manifest names " + ShownName(name) + " twice";
      return std::nullopt;
    }
    m.order.push_back(name);
  }
  return m;
}

bool IsUtf8(std::string_view s) { return QUtf8StringView(s.data(), static_cast<qsizetype>(s.size())).isValidUtf8(); }

std::string ShownName(std::string_view name) {
  if (IsUtf8(name)) return std::string(name);
  std::string out;
  for (const char c : name) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x80) {
      out += c;
      continue;
    }
    const char hex[] = "0123456789ABCDEF";
    out += {'\\', 'x', hex[b >> 4], hex[b & 0xF]};
  }
  return out;
}

bool IsBackupName(std::string_view name) { return IsFolderFile(name) || HistoryOwner(name); }

std::optional<std::string> HistoryOwner(std::string_view name) {
  constexpr std::string_view files = "Files/", history = ".history";
  if (!name.starts_with(files)) return std::nullopt;
  const std::string_view rest = name.substr(files.size());
  const std::size_t slash = rest.find('/');
  if (slash == std::string_view::npos || !IsPlainFile(rest.substr(slash + 1))) return std::nullopt;
  const std::string_view folder = rest.substr(0, slash);
  if (folder.size() <= history.size() + 1 || !folder.starts_with('.') || !folder.ends_with(history))
    return std::nullopt;
  std::string owner = std::string(files) + std::string(folder.substr(1, folder.size() - 1 - history.size()));
  // The history's own naming decides which folder belongs to which file.
  if (!IsFolderFile(owner) || SlideHistory::FolderOf(owner) != name.substr(0, files.size() + slash))
    return std::nullopt;
  return owner;
}

}  // namespace cb::pack
