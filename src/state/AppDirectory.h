// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which directory the program works in. Run from where it was built, that is
// the executable's own directory. An installed program, root's too, works in
// the user's data directory, seeded from the installed tree at the first start.

#include <string>

#include "storage/Env.h"

namespace cb {

// `$XDG_DATA_HOME/Chattelbook`, or `$HOME/.local/share/Chattelbook` when the
// variable is unset, empty or not absolute; "" when neither gives a place.
// Either pointer may be null.
std::string UserApplicationDirectory(const char* xdgDataHome, const char* home);

// The file an installation puts beside the program; a build tree has none.
inline constexpr char kInstalledMarker[] = "installed";

// Makes `target` from the shipped tree `shipped` unless it exists already:
// Files, Gallery, Background and Wallpaper copied as the user's own, empty
// Help and Reports, and the links help -> Help and wallpaper -> Wallpaper.
// The tree is built beside `target` and renamed into place, so an
// interrupted first start leaves no half-made directory. False, with the
// user's `message` filled, on failure.
bool SeedApplicationDirectory(const std::string& shipped, const std::string& target, std::string& message,
                              Env& env = Env::Default());

struct AppDirectoryChoice {
  std::string path;
  std::string failure;  // what start-up tells when the user's directory could not be made
};

// The application directory for an executable in `exeDir`: `exeDir` itself
// in a build tree; installed, the user's, seeded from `exeDir`, or `exeDir`
// again, with the failure told, when the user's cannot be made.
AppDirectoryChoice ChooseApplicationDirectory(const std::string& exeDir, const char* xdgDataHome, const char* home,
                                              Env& env = Env::Default());

}  // namespace cb
