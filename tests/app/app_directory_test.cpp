// Where the program works: its own directory from a build tree, the user's
// data directory, seeded once from the shipped tree, when installed.

#include <gtest/gtest.h>

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
    WriteFile((root / "Background/oak.jpg").string(), "oak");
    WriteFile((root / "Wallpaper/sage.jpg").string(), "sage");
    WriteFile((root / "Help/stale.htm").string(), "x");
  }
};

TEST(AppDirectory, FirstStartSeedsTheUsersDirectory) {
  Shipped shipped;
  const std::string data = shipped.dir / "home/.local/share";
  const std::string app = ChooseApplicationDirectory(shipped.root.string(), false, nullptr,
                                                     (shipped.dir / "home").c_str());
  ASSERT_EQ(app, data + "/Chattelbook");
  EXPECT_EQ(ReadFile(app + "/Files/HomeSecurity.sif"), std::string("sif\0bytes", 9));
  EXPECT_EQ(ReadFile(app + "/Gallery/tv.jpg"), "tv");
  EXPECT_EQ(ReadFile(app + "/Background/oak.jpg"), "oak");
  EXPECT_EQ(ReadFile(app + "/wallpaper/sage.jpg"), "sage");
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

TEST(AppDirectory, AWritableExecutableDirectoryStaysTheApplicationDirectory) {
  Shipped shipped;
  EXPECT_EQ(ChooseApplicationDirectory(shipped.root.string(), true, (shipped.dir / "data").c_str(), nullptr),
            shipped.root.string());
  EXPECT_FALSE(fs::exists(shipped.dir / "data"));
}

TEST(AppDirectory, NoPlaceForTheUsersDirectoryFallsBackToTheExecutables) {
  Shipped shipped;
  WriteFile(shipped.dir / "file", "a file where a folder would go");
  EXPECT_EQ(ChooseApplicationDirectory(shipped.root.string(), false, (shipped.dir / "file/data").c_str(), nullptr),
            shipped.root.string());
  EXPECT_EQ(ChooseApplicationDirectory(shipped.root.string(), false, nullptr, nullptr), shipped.root.string());
}

}  // namespace
}  // namespace cb
