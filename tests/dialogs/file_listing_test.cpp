#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "dialogs/FileListing.h"
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
    {"photo.jpeg", "*.jpg", false},
    {"README", "*.*", true},  // "*.*" is every file, dot or none
    {"a.b.c", "*.*", true},
    {"README", "READ*.*", true},
    {"README", "*.sif", false},
    {"a1.sif", "a?.sif", true},
    {"a12.sif", "a?.sif", false},
    {"aXbXbc", "a*b*c", true},  // the first "b" is not the one that fits
    {"aXbXbd", "a*b*c", false},
    {"x.gif", "*.jpg;*.gif", true},
    {"x.bmp", "*.jpg;*.gif", false},
    {"\xc3\x84pfel.JPG", "*.jpg", true},  // bytes beyond ASCII pass through
    {"anything", "", false},
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

TEST_F(ListingDir, DirectoryListOpensTheWayDownAndListsTheFoldersBelow) {
  const std::vector<DirListEntry> rows = DirListEntries(dir.str());
  ASSERT_GE(rows.size(), 4u);
  EXPECT_EQ(rows.front().path, "/");
  EXPECT_EQ(rows.front().name, "/");
  const std::size_t here = rows.size() - 3;
  for (std::size_t i = 0; i <= here; ++i) {
    EXPECT_TRUE(rows[i].open) << rows[i].path;
    EXPECT_EQ(rows[i].depth, static_cast<int>(i));
  }
  EXPECT_EQ(rows[here].path, dir.str());
  EXPECT_EQ(rows[here].name, std::filesystem::path(dir.str()).filename().string());
  const DirListEntry& alpha = rows[here + 1];
  const DirListEntry& zeta = rows[here + 2];
  EXPECT_EQ(alpha.name, "alpha.sif");
  EXPECT_EQ(alpha.path, dir / "alpha.sif");
  EXPECT_EQ(zeta.name, "Zeta");
  EXPECT_FALSE(alpha.open);
  EXPECT_EQ(zeta.depth, static_cast<int>(here) + 1);
}

TEST(FileListingTest, RootListsItsFoldersOneLevelDown) {
  const std::vector<DirListEntry> rows = DirListEntries("/");
  ASSERT_GT(rows.size(), 1u);
  EXPECT_TRUE(rows[0].open);
  EXPECT_EQ(rows[1].depth, 1);
  EXPECT_FALSE(rows[1].open);
  EXPECT_EQ(rows[1].path, "/" + rows[1].name);
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
