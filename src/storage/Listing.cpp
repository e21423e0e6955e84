// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/Listing.h"

#include <algorithm>

#include "base/FileListing.h"

namespace cb {
namespace {

// The visible entries of `dir` of `kind` that `keep` accepts, sorted.
template <typename Keep>
std::vector<std::string> Names(Env& env, const std::string& dir, EntryKind kind, Keep keep) {
  std::vector<DirEntry> entries;
  env.ListDirectory(dir, entries);  // what could be read before a failure is listed
  std::vector<std::string> names;
  for (DirEntry& e : entries)
    if (e.kind == kind && !e.name.starts_with('.') && keep(e.name)) names.push_back(std::move(e.name));
  std::ranges::sort(names, LessIgnoreCase);
  return names;
}

}  // namespace

std::vector<std::string> ListFiles(Env& env, const std::string& dir, const std::string& pattern) {
  return Names(env, dir, EntryKind::File, [&pattern](const std::string& name) { return MatchesPattern(name, pattern); });
}

std::vector<std::string> ListDirectories(Env& env, const std::string& dir) {
  return Names(env, dir, EntryKind::Directory, [](const std::string&) { return true; });
}

}  // namespace cb
