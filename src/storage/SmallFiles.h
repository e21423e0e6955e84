// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the small private files live, and the quoted-list line format of
// the history file.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cb {

inline constexpr std::size_t kHistoryEntries = 4;
// The last files opened, newest first, at indexes 1 to kHistoryEntries;
// index 0 is unused.
using FileHistory = std::array<std::string, kHistoryEntries + 1>;

// The per-user configuration directory of the program with a trailing "/":
// $XDG_CONFIG_HOME, else $HOME/.config, + "/Chattelbook/". Empty when
// neither variable is set, so a file name stands alone.
std::string PasswordDirectory();

// One line of quoted strings as a sequential write makes it: "a","b" + CR LF.
std::string WriteLine(const std::vector<std::string>& fields);

// Reads up to `count` fields of a sequential-input file's text: a quoted
// field runs to the next quote, a bare one to the next comma or line end,
// blanks around it dropped. Fewer fields come back when the text runs out.
std::vector<std::string> ReadFields(std::string_view text, std::size_t count);

}  // namespace cb
