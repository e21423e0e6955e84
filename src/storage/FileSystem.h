// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Directory look-ups with the rules of the platform the files come from:
// names compare case-insensitively when searched for.

#include <string>

namespace cb {

// The name of the regular file that `path` finds, as it stands in its
// directory: the exact name when present, otherwise the first entry equal to
// it ignoring case, otherwise the empty string.
std::string DirEntryName(const std::string& path);

}  // namespace cb
