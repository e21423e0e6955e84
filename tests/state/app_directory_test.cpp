// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program works: its own directory from a build tree, the user's
// data directory, seeded once from the shipped tree, when installed.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <map>

#include "state/AppDirectory.h"
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
    WriteFile((root / "Help/stale.htm").string(), "x");
    WriteFile((root / kInstalledMarker).string(), "");
  }
};

// An installation read-only to all still gives the user a folder to change.
TEST(AppDirectory, FirstStartSeedsTheUsersDirectory) {
  Shipped shipped;
  const auto readOnly = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(shipped.root / "Gallery/tv.jpg", readOnly, fs::perm_options::remove);
  fs::permissions(shipped.root / "Gallery", readOnly, fs::perm_options::remove);
  const std::string data = shipped.dir / "home/.local/share";
  const std::string app =
      ChooseApplicationDirectory(shipped.root.string(), nullptr, (shipped.dir / "home").c_str()).path;
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
  EXPECT_EQ(ChooseApplicationDirectory(shipped.root.string(), data.c_str(), nullptr).path, app);
  EXPECT_EQ(ReadFile(app + "/Files/MyFiles.sif"), "mine");
  EXPECT_FALSE(fs::exists(app + "/Gallery/tv.jpg"));
}

// The shipped tree in memory, refusing one step of the seeding.
class RefusingMemory : public MemoryEnv {
 public:
  RefusingMemory(std::string step, bool installed) : refused_(std::move(step)) {
    Files() = {{"/lib/Files/HomeSecurity.sif", "sif"}, {"/lib/Gallery/tv.jpg", "tv"}};
    if (installed) Files()["/lib/installed"] = "";
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

constexpr char kUser[] = "/home/.local/share/Chattelbook";

struct ChoiceRow {
  const char* name;  // the step refused, when one is
  bool installed;
  const char* home;
  const char* path;
  const char* failure;
};

const ChoiceRow kChoices[] = {
    {"build_tree", false, "/home", "/lib", ""},
    {"installed", true, "/home", kUser, ""},
    {"no_home", true, nullptr, "/lib", "The folder ~/.local/share/Chattelbook could not be made: HOME is not set."},
    {"unique", true, "/home", "/lib",
     "The folder /home/.local/share/Chattelbook could not be made: Path/File access error."},
    {"copy", true, "/home", "/lib",  // after the files were copied
     "The folder /home/.local/share/Chattelbook could not be made: Disk full."},
    {"link", true, "/home", "/lib",
     "The folder /home/.local/share/Chattelbook could not be made: Path/File access error."},
    {"rename", true, "/home", "/lib",
     "The folder /home/.local/share/Chattelbook could not be made: Path/File access error."},
};

// An installed program seeds the user's directory whole or not at all, and
// tells why it works where it stands instead.
TEST(AppDirectory, SeedsWholeOrNothing) {
  for (const ChoiceRow& row : kChoices) {
    SCOPED_TRACE(row.name);
    RefusingMemory memory(row.name, row.installed);
    std::map<std::string, std::string> expected = memory.Files();
    const AppDirectoryChoice choice = ChooseApplicationDirectory("/lib", nullptr, row.home, memory);
    EXPECT_EQ(choice.path, row.path);
    EXPECT_EQ(choice.failure, row.failure);
    if (choice.path == kUser)
      expected.merge(std::map<std::string, std::string>{{std::string(kUser) + "/Files/HomeSecurity.sif", "sif"},
                                                        {std::string(kUser) + "/Gallery/tv.jpg", "tv"}});
    EXPECT_EQ(memory.Files(), expected);
  }
}

}  // namespace
}  // namespace cb
