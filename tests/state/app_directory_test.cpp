// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program works: its own directory from a build tree, the user's
// data directory, seeded once from the shipped tree, when installed.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <map>

#include "state/AppDirectory.h"
#include "support/RowName.h"
#include "support/TempDir.h"

namespace cb {
namespace {

namespace fs = std::filesystem;
using cb::testing::ReadFile;
using cb::testing::TempDir;
using cb::testing::WriteFile;

TEST(AppDirectory, UserDirectoryFollowsXdgDataHome) {
  struct Case {
    const char* xdg;
    const char* home;
    std::string expected;
  };
  const Case cases[] = {
      {"/data", "/home/ann", "/data/Chattelbook"},
      {nullptr, "/home/ann", "/home/ann/.local/share/Chattelbook"},
      {"", "/home/ann", "/home/ann/.local/share/Chattelbook"},
      {"relative/data", "/home/ann", "/home/ann/.local/share/Chattelbook"},  // only absolute paths count
      {nullptr, nullptr, ""},
      {nullptr, "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.xdg ? c.xdg : "(unset)") + " " + (c.home ? c.home : "(unset)"));
    EXPECT_EQ(UserApplicationDirectory(c.xdg, c.home), c.expected);
  }
}

// A shipped tree as the installation holds it, with a Help folder that the
// user's copy must not take over.
struct Shipped {
  TempDir dir;
  fs::path root = fs::path(dir.str()) / "lib/chattelbook";
  Shipped() {
    for (const char* f : {"Files", "Gallery", "Background", "Wallpaper", "Help", "Reports"})
      fs::create_directories(root / f);
    WriteFile((root / "Files/HomeSecurity.sif").string(), std::string("sif\0bytes", 9));
    WriteFile((root / "Gallery/tv.jpg").string(), "tv");
    WriteFile((root / "Background/oak.jpg").string(), "oak");
    WriteFile((root / "Wallpaper/sage.jpg").string(), "sage");
    WriteFile((root / "Help/stale.htm").string(), "x");
  }
};

// An installation read-only to all still gives the user a folder to change.
TEST(AppDirectory, FirstStartSeedsTheUsersDirectory) {
  Shipped shipped;
  const auto readOnly = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(shipped.root / "Gallery/tv.jpg", readOnly, fs::perm_options::remove);
  fs::permissions(shipped.root / "Gallery", readOnly, fs::perm_options::remove);
  const std::string data = shipped.dir / "home/.local/share";
  const std::string app = ChooseApplicationDirectory(shipped.root.string(), false, nullptr,
                                                     (shipped.dir / "home").c_str());
  fs::permissions(shipped.root / "Gallery", fs::perms::owner_write, fs::perm_options::add);
  ASSERT_EQ(app, data + "/Chattelbook");
  EXPECT_EQ(ReadFile(app + "/Files/HomeSecurity.sif"), std::string("sif\0bytes", 9));
  EXPECT_EQ(ReadFile(app + "/Gallery/tv.jpg"), "tv");
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(static_cast<mode_t>(fs::status(app + "/Gallery").permissions()), 0777 & ~mask);
  EXPECT_EQ(static_cast<mode_t>(fs::status(app + "/Gallery/tv.jpg").permissions()), 0666 & ~mask);
  EXPECT_TRUE(fs::is_empty(app + "/Help"));
  EXPECT_TRUE(fs::is_empty(app + "/Reports"));
  EXPECT_EQ(fs::read_symlink(app + "/help"), "Help");
  EXPECT_EQ(fs::read_symlink(app + "/wallpaper"), "Wallpaper");
  // Nothing is left beside it.
  EXPECT_EQ(std::distance(fs::directory_iterator(data), fs::directory_iterator()), 1);

  // A later start keeps what the user made of it.
  WriteFile(app + "/Files/MyFiles.sif", "mine");
  fs::remove(app + "/Gallery/tv.jpg");
  EXPECT_EQ(ChooseApplicationDirectory(shipped.root.string(), false, data.c_str(), nullptr), app);
  EXPECT_EQ(ReadFile(app + "/Files/MyFiles.sif"), "mine");
  EXPECT_FALSE(fs::exists(app + "/Gallery/tv.jpg"));
}

// The shipped tree in memory, refusing one step of the seeding.
class RefusingMemory : public MemoryEnv {
 public:
  explicit RefusingMemory(std::string step) : refused_(std::move(step)) {
    Files() = {{"/lib/Files/HomeSecurity.sif", "sif"}, {"/lib/Gallery/tv.jpg", "tv"}};
  }
  RtError MakeUniqueDirectory(const std::string& prefix, unsigned mode, std::string& made) override {
    return Refused("unique") ? RtError::PathFileAccess : MemoryEnv::MakeUniqueDirectory(prefix, mode, made);
  }
  RtError CopyTree(const std::string& from, const std::string& to) override {
    return Refused("copy") && from.ends_with("Gallery") ? RtError::DiskFull : MemoryEnv::CopyTree(from, to);
  }
  RtError MakeLink(const std::string& target, const std::string& link) override {
    return Refused("link") ? RtError::PathFileAccess : MemoryEnv::MakeLink(target, link);
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    return Refused("rename") ? RtError::PathFileAccess : MemoryEnv::Rename(from, to);
  }

 private:
  bool Refused(const char* step) const { return refused_ == step; }
  std::string refused_;
};

struct SeedRow {
  const char* name;  // the step refused
  const char* message;
};

const SeedRow kSeeds[] = {
    {"nothing", ""},
    {"unique", "/home/Chattelbook: Path/File access error"},
    {"copy", "/home/Chattelbook: Disk full"},  // after the files were copied
    {"link", "/home/Chattelbook: Path/File access error"},
    {"rename", "/home/Chattelbook: Path/File access error"},
};

class SeedTest : public ::testing::TestWithParam<SeedRow> {};

// A seeding that fails at any step leaves nothing but the shipped tree.
TEST_P(SeedTest, IsWholeOrNothing) {
  RefusingMemory memory(GetParam().name);
  std::string message;
  const bool seeded = *GetParam().message == '\0';
  EXPECT_EQ(SeedApplicationDirectory("/lib", "/home/Chattelbook", message, memory), seeded);
  EXPECT_EQ(message, GetParam().message);
  std::map<std::string, std::string> expected{{"/lib/Files/HomeSecurity.sif", "sif"}, {"/lib/Gallery/tv.jpg", "tv"}};
  if (seeded) expected.merge(std::map<std::string, std::string>{{"/home/Chattelbook/Files/HomeSecurity.sif", "sif"},
                                                                {"/home/Chattelbook/Gallery/tv.jpg", "tv"}});
  EXPECT_EQ(memory.Files(), expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, SeedTest, ::testing::ValuesIn(kSeeds), testing::RowName());

}  // namespace
}  // namespace cb
