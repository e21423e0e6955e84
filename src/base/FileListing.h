// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The rules of what the open and save dialog lists: files by wildcard
// pattern, folders of a directory list, and the roots that stand in for
// drives. Names are the file system's bytes; order and matching ignore ASCII
// case, as on the platform the program's files come from. The lists
// themselves are read through an Env (storage/Listing.h).

#include <string>
#include <vector>

namespace cb {

// True when `name` fits `pattern`: "*" any run, "?" one character, case
// ignored; several patterns may be joined by ";". A trailing ".*" also fits a
// name without a dot, so "*.*" fits every name.
bool MatchesPattern(const std::string& name, const std::string& pattern);

// Case-insensitive order; names equal but for case fall back to byte order.
bool LessIgnoreCase(const std::string& a, const std::string& b);

// `path` made absolute against `base` and cleaned: no ".", "..", doubled or
// trailing "/", except that the root stays "/". Empty `path` gives `base`.
std::string CleanDirectory(const std::string& path, const std::string& base);

// One row of a directory list.
struct DirListEntry {
  std::string name;  // "/" for the root, else the folder's own name
  std::string path;  // clean and absolute
  int depth = 0;     // the root is 0
  bool open = false; // on the way down to the list's path, that path included
};

// The rows of a directory list standing on `path` (clean, absolute): the root
// and every folder down to `path` open, then `folders`, the sub-directories of `path`.
std::vector<DirListEntry> DirListEntries(const std::string& path, const std::vector<std::string>& folders);

// The roots of the drive list: "/", then `home`, then those of `mounts` that
// hold user volumes (under /media, /run/media or /mnt), without repeats.
std::vector<std::string> DriveRoots(const std::string& home, const std::vector<std::string>& mounts);

// The root of `roots` that holds `path` most closely; "/" when none does.
std::string DriveOf(const std::string& path, const std::vector<std::string>& roots);

}  // namespace cb
