// SPDX-License-Identifier: GPL-3.0-or-later
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
TEST(Listing, FilesFitThePatternInCaseInsensitiveOrder) {
  testing::TempDir disk;
  MemoryEnv memory;
  for (const char* f : {"b.sif", "A.SIF", "a.sif", "c.Sif", "d.txt", "README", ".hidden.sif", "Zeta/inner.sif",
                        "alpha.sif/x", ".cache/x"}) {
    testing::WriteFile(disk / f, "x");
    memory.Files()["/m/" + std::string(f)] = "x";
  }
  const struct {
    const char* pattern;
    Names files;
  } rows[] = {
      {"*.sif", {"A.SIF", "a.sif", "b.sif", "c.Sif"}},  // not the folder alpha.sif, nor the hidden file
      {"*.*", {"A.SIF", "a.sif", "b.sif", "c.Sif", "d.txt", "README"}},
      {"*.jpg", {}},
  };
  const std::pair<Env&, std::string> places[] = {{Env::Default(), disk.str()}, {memory, "/m"}};
  for (const auto& [env, dir] : places) {
    for (const auto& r : rows) EXPECT_THAT(ListFiles(env, dir, r.pattern), ElementsAreArray(r.files)) << r.pattern;
    EXPECT_THAT(ListFiles(env, dir + "/missing", "*.*"), ElementsAre());
    EXPECT_THAT(ListDirectories(env, dir), ElementsAre("alpha.sif", "Zeta")) << dir;
    EXPECT_THAT(ListDirectories(env, dir + "/missing"), ElementsAre());
  }
}

}  // namespace
}  // namespace cb
