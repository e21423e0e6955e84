// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The manifest of a backup: each file's SHA-256 in the form `sha256sum -c`
// checks, and the files that were missing when the backup was made.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cb::pack {

// The manifest's name inside the archive.
inline constexpr std::string_view kManifestName = "manifest.sha256";

// The folders of the application directory a backup fills.
inline constexpr std::string_view kBackupFolders[] = {"Files", "Gallery", "Background", "Wallpaper"};

struct Manifest {
  std::map<std::string, std::string> hashes;  // archive name -> lower-case hex SHA-256
  std::vector<std::string> order;             // archive names as they were added
  std::vector<std::string> missing;           // archive names of the files not found
};

// Lower-case hex SHA-256 of `bytes`.
std::string Sha256Hex(std::string_view bytes);

// The manifest's text: comment lines, "HASH  NAME" lines, "# missing: NAME" lines.
std::string ManifestText(const Manifest& m, const std::string& sifName);

// Reads a manifest's text; nothing, with `message` naming the line, when a
// line is neither a comment nor a hash line, or a name comes twice.
std::optional<Manifest> ParseManifest(std::string_view text, std::string& message);

// True when `s` is UTF-8, as every name a backup writes is.
bool IsUtf8(std::string_view s);

// `name` as a message shows it: as it is when UTF-8, else with each byte
// beyond ASCII as \xHH.
std::string ShownName(std::string_view name);

// True when `name` is "FOLDER/FILE" with one of the backup's folders and a
// plain file name, or a file of a slide file's undo history,
// "Files/.NAME.history/FILE": nothing that could reach outside the folder.
bool IsBackupName(std::string_view name);

// The slide file whose history holds `name`: "Files/My.sif" for
// "Files/.My.sif.history/cursor"; nothing for any other name.
std::optional<std::string> HistoryOwner(std::string_view name);

}  // namespace cb::pack
