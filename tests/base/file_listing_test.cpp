// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileListing.h"

namespace cb {
namespace {

using ::testing::ElementsAre;
using Names = std::vector<std::string>;

struct MatchRow {
  const char* name;
  const char* pattern;
  bool fits;
};

const MatchRow kMatches[] = {
    {"IMG_0001.JPG", "*.jpg", true},  // a camera's upper case
    {"house.sif", "*.SIF", true},
    {"house.sif.bak", "*.sif", false},
    {"house.sifx", "*.sif", false},
    {"README", "*.*", true},  // "*.*" is every file, dot or none
    {"README", "*.sif", false},
    {"a1.sif", "a?.sif", true},
    {"aXbXbc", "a*b*c", true},  // the first "b" is not the one that fits
    {"aXbXbd", "a*b*c", false},
    {"README", "READ*.*", true},
    {"x.gif", "*.jpg;*.gif", true},
    {"\xc3\x84pfel.JPG", "*.jpg", true},  // bytes beyond ASCII pass through
};

TEST(FileListingTest, PatternsMatchAsTheOldDirectorySearchDid) {
  for (const MatchRow& r : kMatches)
    EXPECT_EQ(MatchesPattern(r.name, r.pattern), r.fits) << r.name << " ~ " << r.pattern;
}

// Rows from the root down to the folder are open, one level each; its own
// folders follow one level deeper.
TEST(FileListingTest, DirectoryListOpensTheWayDownAndListsTheFoldersBelow) {
  const auto rows = [](const std::string& path, const Names& folders) {
    std::vector<std::string> out;
    for (const DirListEntry& e : DirListEntries(path, folders))
      out.push_back(e.name + " " + e.path + " " + std::to_string(e.depth) + (e.open ? " open" : ""));
    return out;
  };
  EXPECT_THAT(rows("/", {"home", "usr"}), ElementsAre("/ / 0 open", "home /home 1", "usr /usr 1"));
  EXPECT_THAT(rows("/home/u", {"Zeta"}),
              ElementsAre("/ / 0 open", "home /home 1 open", "u /home/u 2 open", "Zeta /home/u/Zeta 3"));
  EXPECT_THAT(rows("/home", {}), ElementsAre("/ / 0 open", "home /home 1 open"));
}

TEST(FileListingTest, DirectoriesAreCleanedAgainstTheBase) {
  const struct {
    const char *path, *base, *clean;
  } rows[] = {
      {"/app/Files/", "/x", "/app/Files"}, {"/a/./b/../c", "/x", "/a/c"}, {"Files", "/app", "/app/Files"},
      {"", "/app", "/app"},                {"/..", "/x", "/"},            {"//a//b/", "/", "/a/b"},
      {"/", "/x", "/"},
  };
  for (const auto& r : rows) EXPECT_EQ(CleanDirectory(r.path, r.base), r.clean) << r.path;
}

}  // namespace
}  // namespace cb
