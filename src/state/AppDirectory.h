// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which directory the program works in. Run from where it was built (or any
// folder the user may write), that is the executable's own directory. An
// installed program's directory is read-only: it then works in the user's
// data directory, seeded from the installed tree at the first start.

#include <string>

#include "storage/Env.h"

namespace cb {

// `$XDG_DATA_HOME/Chattelbook`, or `$HOME/.local/share/Chattelbook` when the
// variable is unset, empty or not absolute; "" when neither gives a place.
// Either pointer may be null.
std::string UserApplicationDirectory(const char* xdgDataHome, const char* home);

// Makes `target` from the shipped tree `shipped` unless it exists already:
// Files, Gallery, Background and Wallpaper copied, empty Help and Reports,
// and the links help -> Help and wallpaper -> Wallpaper. The tree is built
// beside `target` and renamed into place, so an interrupted first start
// leaves no half-made directory. False, with `message` filled, on failure.
bool SeedApplicationDirectory(const std::string& shipped, const std::string& target, std::string& message,
                              Env& env = Env::Default());

// The application directory for an executable in `exeDir`: `exeDir` itself
// when `exeDirWritable`, else the user's, seeded from `exeDir`; `exeDir` again
// when the user's cannot be made.
std::string ChooseApplicationDirectory(const std::string& exeDir, bool exeDirWritable, const char* xdgDataHome,
                                       const char* home);

}  // namespace cb
