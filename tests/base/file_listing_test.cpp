#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/FileListing.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
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

class ListingDir : public ::testing::Test {
 protected:
  ListingDir() {
    for (const char* f : {"b.sif", "A.SIF", "a.sif", "c.Sif", "d.txt", "README", ".hidden.sif", "Zeta/inner.sif"})
      testing::WriteFile(dir / f, "x");
    std::filesystem::create_directories(dir / "alpha.sif");  // a folder that fits the pattern
    std::filesystem::create_directories(dir / ".cache");
  }
  testing::TempDir dir;
};

TEST_F(ListingDir, FilesFitThePatternInCaseInsensitiveOrder) {
  const struct {
    const char* pattern;
    Names files;
  } rows[] = {
      {"*.sif", {"A.SIF", "a.sif", "b.sif", "c.Sif"}},
      {"*.*", {"A.SIF", "a.sif", "b.sif", "c.Sif", "d.txt", "README"}},
      {"*.jpg", {}},
  };
  for (const auto& r : rows) EXPECT_THAT(ListFiles(dir.str(), r.pattern), ElementsAreArray(r.files)) << r.pattern;
  EXPECT_THAT(ListFiles(dir / "missing", "*.*"), ElementsAre());
}

// Rows from the root down to the folder are open, one level each; its own
// folders follow one level deeper, hidden ones and files left out.
TEST_F(ListingDir, DirectoryListOpensTheWayDownAndListsTheFoldersBelow) {
  for (const std::string& at : {std::string("/"), dir.str()}) {
    const std::vector<DirListEntry> rows = DirListEntries(at);
    std::size_t here = 0;
    while (here + 1 < rows.size() && rows[here + 1].open) ++here;
    EXPECT_EQ(rows.front().name, "/");
    EXPECT_EQ(rows[here].path, at);
    EXPECT_EQ(rows[here].depth, static_cast<int>(here));
    ASSERT_GT(rows.size(), here + 1);
    EXPECT_EQ(rows[here + 1].depth, rows[here].depth + 1);
    EXPECT_EQ(rows[here + 1].path, (at == "/" ? "" : at) + "/" + rows[here + 1].name);
  }
  std::vector<std::string> below;
  for (const DirListEntry& e : DirListEntries(dir.str()))
    if (!e.open) below.push_back(e.name);
  EXPECT_THAT(below, ElementsAre("alpha.sif", "Zeta"));
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

TEST(FileListingTest, DrivesAreTheRootHomeAndUserVolumes) {
  EXPECT_THAT(DriveRoots("/home/u/", {"/", "/boot/efi", "/media/u/USB", "/home", "/mnt/data", "/media/", "/home/u"}),
              ElementsAre("/", "/home/u", "/media/u/USB", "/mnt/data"));
  EXPECT_THAT(DriveRoots("/", {}), ElementsAre("/"));
  EXPECT_THAT(DriveRoots("", {}), ElementsAre("/"));

  const Names roots = {"/", "/home/u", "/media/u/USB"};
  const struct {
    const char *path, *drive;
  } rows[] = {
      {"/home/u/Files", "/home/u"}, {"/home/u", "/home/u"},           {"/home/user2", "/"},
      {"/home", "/"},               {"/media/u/USB/x", "/media/u/USB"}, {"/", "/"},
  };
  for (const auto& r : rows) EXPECT_EQ(DriveOf(r.path, roots), r.drive) << r.path;
}

}  // namespace
}  // namespace cb
