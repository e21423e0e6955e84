// SPDX-License-Identifier: GPL-3.0-or-later
// The application's state: where the program works and how it seeds the user's
// folder, the controller's paths and keys, the main window's rules, the command line.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "gallery/DropRules.h"
#include "gallery/GalleryMenuTable.h"
#include "state/AppDirectory.h"
#include "state/CommandLine.h"
#include "state/MDIMainRules.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
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

struct TailRow {
  std::string appPath;
  std::string sif, gallery, graphics, reports, root;
};

// Beside a directory that ends in "/" the tails lose their first characters.
const TailRow kTails[] = {
    {"/opt/chattelbook", "/Files/", "/Gallery/", "/Background/", "/Reports/", "/"},
    {"/", "/Files/", "Gallery/", "ckground/", "Reports/", ""},
};

TEST(MainControllerTest, TailsFollowTheLastCharacterOfTheApplicationDirectory) {
  for (const auto& row : kTails) {
    SCOPED_TRACE(row.appPath);
    MemorySettings settings;
    ModGlobal g;
    UIMainController mc(row.appPath, settings, g);
    EXPECT_EQ(mc.GetSIFDirectory(), row.sif);
    EXPECT_EQ(mc.GetGalleryDirectory(), row.gallery);
    EXPECT_EQ(mc.GetGraphicsDirectory(), row.graphics);
    EXPECT_EQ(mc.GetReportsDirectory(), row.reports);
    EXPECT_EQ(mc.GetRootDirectory(), row.root);
  }
}

struct SplitRow {
  std::string path, directory, file;
};

const SplitRow kSplits[] = {
    {"/home/ann/Files/MyFiles.sif", "/home/ann/Files/", "MyFiles.sif"},
    {"/a.b/c d.e.sif", "/a.b/", "c d.e.sif"},
    {"/x/", "/x/", ""},
    {"/top.sif", "/", "top.sif"},
    {"bare.sif", "bare.sif", "kept.sif"},  // no directory: the name cannot be cut out
};

TEST(MainControllerTest, PathSplitsAtTheLastSlash) {
  for (const auto& row : kSplits) {
    SCOPED_TRACE(row.path);
    MemorySettings settings;
    ModGlobal g;
    UIMainController mc("/app", settings, g);
    mc.SlideInformationFile("kept.sif");
    mc.SlideInformationFilePath(row.path);
    EXPECT_EQ(mc.SlideInformationPath(), row.directory);
    EXPECT_EQ(mc.SlideInformationFile(), row.file);
  }
}

TEST(MainControllerTest, RegistryKeysNameTheFileOfTheNextStart) {
  MemorySettings settings;
  ModGlobal g;
  UIMainController first("/app", settings, g);
  EXPECT_FALSE(first.SetRegistryKeys(""));
  EXPECT_FALSE(settings.Has("Startup", "DefDir"));
  EXPECT_FALSE(settings.Has("AppDir", "AppDir"));
  ASSERT_TRUE(first.SetRegistryKeys("/data/Cars.sif"));
  EXPECT_EQ(first.SlideInformationFile(), "Cars.sif");
  EXPECT_EQ(settings.Get("AppDir", "AppDir", ""), "/app");

  UIMainController next("/app", settings, g);
  EXPECT_FALSE(next.FirstRun);
  EXPECT_EQ(next.SlideInformationFilePath(), "/data/Cars.sif");
  EXPECT_EQ(next.SlideInformationPath(), "/data/");
}

using History = std::array<std::string, 5>;

struct HistoryRow {
  const char* name;
  History before;
  std::string open;
  History after;
  bool written;
};

const HistoryRow kHistoryRows[] = {
    {"first_stays", {"", "a", "b", "c", "d"}, "a", {"", "a", "b", "c", "d"}, false},
    {"second_swaps", {"", "a", "b", "c", "d"}, "b", {"", "b", "a", "c", "d"}, true},
    {"fourth_brings_back_the_third", {"", "a", "b", "c", "d"}, "d", {"", "c", "a", "b", "c"}, true},
    {"new_pushes_the_last_out", {"", "a", "b", "c", "d"}, "e", {"", "e", "a", "b", "c"}, true},
    {"names_compare_exactly", {"", "a.sif", "", "", ""}, "A.sif", {"", "A.sif", "a.sif", "", ""}, true},
};

TEST(MainWindowRulesTest, HistoryMovesTheOpenFileByItsPlace) {
  for (const auto& row : kHistoryRows) {
    SCOPED_TRACE(row.name);
    History h = row.before;
    EXPECT_EQ(UpdateHistory(h, row.open), row.written);
    EXPECT_EQ(h, row.after);
  }
}

// What each event leaves on the toolbar: "+" live, "-" off, "." untouched;
// the pressed column is Zoom then Unzoom.
struct ToolbarRow {
  const char* name;
  ToolbarEvent event;
  ToolbarFacts facts;
  const char* enabled;  // New Open Edit Report Zoom Unzoom Window Back Help
  const char* pressed;
};

const ToolbarRow kToolbarRows[] = {
    {"frame_without_slide", ToolbarEvent::FrameActivated, {false, false, false}, "++-+--+++", ".+"},
    {"frame_with_slide_zoom_pressed", ToolbarEvent::FrameActivated, {true, true, true}, "--+++++-+", ".-"},
    {"gallery_alone", ToolbarEvent::GalleryActivated, {false, false, false}, "++-+--.+.", "+-"},
    {"gallery_beside_a_slide", ToolbarEvent::GalleryActivated, {true, true, false}, "++-+--++.", "+-"},
    {"slide_alone", ToolbarEvent::SlideActivated, {true, false, false}, "--++++.-.", "+-"},
    {"slide_beside_the_gallery", ToolbarEvent::SlideActivated, {true, true, false}, "--+++++-.", "+-"},
    {"report", ToolbarEvent::ReportActivated, {true, true, false}, "------+-.", "+-"},
    {"zoom", ToolbarEvent::ZoomPressed, {true, false, false}, ".........", "+-"},
    {"unzoom", ToolbarEvent::UnzoomPressed, {true, false, true}, ".........", "-+"},
    {"gallery_unloaded", ToolbarEvent::GalleryUnloaded, {false, false, false}, "..-......", ".."},
};

Change FromMark(char c) { return c == '+' ? Change::On : c == '-' ? Change::Off : Change::Keep; }

TEST(MainWindowRulesTest, ToolbarEventSetsTheButtonsItTouches) {
  for (const auto& row : kToolbarRows) {
    SCOPED_TRACE(row.name);
    const ToolbarChange c = ToolbarAfter(row.event, row.facts);
    for (std::size_t k = 0; k < kToolbarButtonCount; ++k)
      EXPECT_EQ(c[k].enabled, FromMark(row.enabled[k])) << kToolbarButtons[k].key;
    EXPECT_EQ(c[static_cast<std::size_t>(ToolbarButton::Zoom)].pressed, FromMark(row.pressed[0]));
    EXPECT_EQ(c[static_cast<std::size_t>(ToolbarButton::Unzoom)].pressed, FromMark(row.pressed[1]));
  }
}

struct TileRow {
  const char* name;
  Arrangement arrangement;
  int width, height, n;
  std::vector<TileRect> places;
};

const TileRow kTileRows[] = {
    {"one_fills_the_area", Arrangement::TileVertical, 800, 600, 1, {{0, 0, 800, 600}}},
    {"three_share_the_odd_pixel", Arrangement::TileVertical, 100, 50, 3,
     {{0, 0, 33, 50}, {33, 0, 33, 50}, {66, 0, 34, 50}}},
    {"three_one_above_another", Arrangement::TileHorizontal, 90, 100, 3,
     {{0, 0, 90, 33}, {0, 33, 90, 33}, {0, 66, 90, 34}}},
    {"more_children_than_pixels", Arrangement::TileHorizontal, 10, 2, 3,
     {{0, 0, 10, 0}, {0, 0, 10, 1}, {0, 1, 10, 1}}},
};

TEST(MainWindowRulesTest, TileStripsMeetAndFillTheArea) {
  for (const TileRow& row : kTileRows) {
    for (int k = 0; k < row.n; ++k) {
      const TileRect r = TilePlace(row.arrangement, row.width, row.height, k, row.n);
      EXPECT_EQ(r, row.places[static_cast<std::size_t>(k)])
          << row.name << " " << k << ": " << r.left << "," << r.top << " " << r.width << "x" << r.height;
    }
  }
}

// A row that names an id twice would leave one item unreachable; the history
// entries are the only rows that share a name.
TEST(MainWindowRulesTest, EveryMenuRowHasItsOwnId) {
  for (const auto* table : {&MainMenu(), &GalleryMenu()}) {
    std::set<MenuId> seen;
    for (const auto& row : *table) {
      EXPECT_TRUE(seen.insert(row.id).second) << row.name;
      EXPECT_EQ(HistoryEntry(row.id) != 0, row.name == "mnuFileHist") << row.name;
    }
  }
  for (int entry = 1; entry <= 4; ++entry) EXPECT_EQ(HistoryEntry(HistoryItem(entry)), entry);
}

using K = CommandLine::Kind;

TEST(CommandLine, ParsesOneFileOrHelpOrVersion) {
  struct Case {
    std::vector<std::string> args;
    K kind;
    std::string file;
  };
  const Case cases[] = {
      {{}, K::Run, ""},
      {{"a.sif"}, K::Run, "a.sif"},
      {{"--help"}, K::Help, ""},
      {{"a.sif", "-h"}, K::Help, ""},      // help wins wherever it stands
      {{"-x", "--version"}, K::Version, ""},  // even after a mistake
      {{"--", "-v"}, K::Run, "-v"},         // a file may begin with a dash
      {{"a.sif", "b.sif"}, K::Error, ""},
      {{"--frobnicate"}, K::Error, ""},
      {{"-"}, K::Run, "-"},
  };
  for (const auto& c : cases) {
    const CommandLine line = ParseCommandLine(c.args);
    SCOPED_TRACE(c.args.empty() ? "(none)" : c.args.front());
    EXPECT_EQ(line.kind, c.kind);
    EXPECT_EQ(line.file, c.file);
    EXPECT_EQ(line.message.empty(), c.kind != K::Error);
  }
}

TEST(DropRules, SortsByExtensionInAnyCase) {
  const std::vector<std::string> dropped{"/p/a.JPG", "/p/b.jpeg", "/p/c.png", "/p/d.Sif", "/p.jpg/e", "/p/f.jpg"};
  const SortedDrop drop = SortDrop(dropped);
  EXPECT_EQ(drop.pictures, (std::vector<std::string>{"/p/a.JPG", "/p/b.jpeg", "/p/f.jpg"}));
  EXPECT_EQ(drop.slideFiles, std::vector<std::string>{"/p/d.Sif"});
  EXPECT_EQ(drop.others, (std::vector<std::string>{"/p/c.png", "/p.jpg/e"}));
  EXPECT_TRUE(NotTakenText(drop.others).ends_with(":\n\nc.png\ne"));
}

}  // namespace
}  // namespace cb
