// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileListing.h"

#include <algorithm>
#include <filesystem>

#include "base/Text.h"

namespace cb {
namespace fs = std::filesystem;

namespace {

// One pattern without ";": greedy "*" with a single back-tracking point.
bool MatchOne(const std::string& name, const std::string& pattern) {
  std::size_t n = 0, p = 0, starP = std::string::npos, starN = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == '?' || Lower(pattern[p]) == Lower(name[n]))) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == '*') {
      starP = p++;
      starN = n;
    } else if (starP != std::string::npos) {
      p = starP + 1;
      n = ++starN;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

bool FitsOne(const std::string& name, const std::string& pattern) {
  if (MatchOne(name, pattern)) return true;
  // "name.*" also finds "name" itself, as the old directory search did.
  const bool dotStar = pattern.size() >= 2 && pattern.compare(pattern.size() - 2, 2, ".*") == 0;
  return dotStar && name.find('.') == std::string::npos && MatchOne(name, pattern.substr(0, pattern.size() - 2));
}

// True when `path` is `root` or lies below it.
bool Under(const std::string& path, const std::string& root) {
  if (root == "/") return !path.empty() && path.front() == '/';
  return path.compare(0, root.size(), root) == 0 && (path.size() == root.size() || path[root.size()] == '/');
}

constexpr const char* kVolumeParents[] = {"/media/", "/run/media/", "/mnt/"};

}  // namespace

bool MatchesPattern(const std::string& name, const std::string& pattern) {
  std::size_t start = 0;
  while (true) {
    const std::size_t semi = pattern.find(';', start);
    const std::string one = pattern.substr(start, semi == std::string::npos ? std::string::npos : semi - start);
    if (!one.empty() && FitsOne(name, one)) return true;
    if (semi == std::string::npos) return false;
    start = semi + 1;
  }
}

bool LessIgnoreCase(const std::string& a, const std::string& b) {
  const auto folded = [](char x, char y) { return Lower(x) < Lower(y); };
  if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), folded)) return true;
  if (std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), folded)) return false;
  return a < b;
}

std::string CleanDirectory(const std::string& path, const std::string& base) {
  fs::path p = path.empty() ? fs::path(base) : fs::path(path);
  if (p.is_relative()) p = fs::path(base) / p;
  std::string clean = p.lexically_normal().string();
  while (clean.size() > 1 && clean.back() == '/') clean.pop_back();
  return clean.empty() ? "/" : clean;
}

std::vector<DirListEntry> DirListEntries(const std::string& path, const std::vector<std::string>& folders) {
  std::vector<DirListEntry> rows{{"/", "/", 0, true}};
  std::string walked;
  std::size_t start = 1;
  while (start < path.size()) {
    const std::size_t slash = std::min(path.find('/', start), path.size());
    walked += "/" + path.substr(start, slash - start);
    rows.push_back({path.substr(start, slash - start), walked, static_cast<int>(rows.size()), true});
    start = slash + 1;
  }
  const int depth = static_cast<int>(rows.size());
  const std::string prefix = walked.empty() ? "/" : walked + "/";
  for (const std::string& name : folders) rows.push_back({name, prefix + name, depth, false});
  return rows;
}

std::vector<std::string> DriveRoots(const std::string& home, const std::vector<std::string>& mounts) {
  std::vector<std::string> roots{"/"};
  const auto add = [&roots](const std::string& root) {
    if (!root.empty() && std::ranges::find(roots, root) == roots.end()) roots.push_back(root);
  };
  if (!home.empty()) add(CleanDirectory(home, "/"));
  for (const std::string& m : mounts)
    for (const char* parent : kVolumeParents)
      if (m.starts_with(parent) && m.size() > std::char_traits<char>::length(parent)) add(CleanDirectory(m, "/"));
  return roots;
}

std::string DriveOf(const std::string& path, const std::vector<std::string>& roots) {
  std::string best = "/";
  for (const std::string& r : roots)
    if (Under(path, r) && r.size() > best.size()) best = r;
  return best;
}

}  // namespace cb
