#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "storage/Listing.h"
#include "support/TempDir.h"

namespace cb {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using Names = std::vector<std::string>;

// One tree on the disk and in memory: the memory's folders come from the paths it holds.
class ListingTest : public ::testing::Test {
 protected:
  ListingTest() {
    for (const char* f : {"b.sif", "A.SIF", "a.sif", "c.Sif", "d.txt", "README", ".hidden.sif", "Zeta/inner.sif",
                          "alpha.sif/x", ".cache/x"}) {
      testing::WriteFile(disk / f, "x");
      memory.Files()["/m/" + std::string(f)] = "x";
    }
  }
  struct Place {
    Env& env;
    std::string dir;
  };
  std::vector<Place> Places() { return {{Env::Default(), disk.str()}, {memory, "/m"}}; }

  testing::TempDir disk;
  MemoryEnv memory;
};

TEST_F(ListingTest, FilesFitThePatternInCaseInsensitiveOrder) {
  const struct {
    const char* pattern;
    Names files;
  } rows[] = {
      {"*.sif", {"A.SIF", "a.sif", "b.sif", "c.Sif"}},  // not the folder alpha.sif, nor the hidden file
      {"*.*", {"A.SIF", "a.sif", "b.sif", "c.Sif", "d.txt", "README"}},
      {"*.jpg", {}},
  };
  for (const Place& p : Places()) {
    for (const auto& r : rows) EXPECT_THAT(ListFiles(p.env, p.dir, r.pattern), ElementsAreArray(r.files)) << r.pattern;
    EXPECT_THAT(ListFiles(p.env, p.dir + "/missing", "*.*"), ElementsAre());
    EXPECT_THAT(ListDirectories(p.env, p.dir), ElementsAre("alpha.sif", "Zeta")) << p.dir;
    EXPECT_THAT(ListDirectories(p.env, p.dir + "/missing"), ElementsAre());
  }
}

}  // namespace
}  // namespace cb
