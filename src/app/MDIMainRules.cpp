#include "app/MDIMainRules.h"

#include <utility>

namespace cb {

using S = ItemState;

const std::array<MenuItemSpec, 7> kHistoryItems{{
    {"mnuBar4", "-", 1, S::Hidden},
    {"mnuFileHist", "1 Hist1", 1, S::Hidden, 1},
    {"mnuFileHist", "2 Hist2", 1, S::Hidden, 2},
    {"mnuFileHist", "3 Hist3", 1, S::Hidden, 3},
    {"mnuFileHist", "4 Hist4", 1, S::Hidden, 4},
    {"mnuBar5", "-", 1, S::Hidden},
    {"mnuFileExit", "&Exit", 1, S::Normal},
}};

const std::array<MenuItemSpec, 3> kViewMenu{{
    {"mnuView", "&View", 0, S::Normal},
    {"mnuViewToolbar", "&Toolbar", 1, S::Checked},
    {"mnuViewStatusbar", "&Statusbar", 1, S::Checked},
}};

const std::array<MenuItemSpec, 5> kWallpaperPopup{{
    {"mnuPopup2", "&Popup2", 0, S::Hidden},
    {"mnuPopup2SetWallpaper", "&Set Wallpaper", 1, S::Normal},
    {"mnuPopup2What", "&What's this?", 1, S::Normal},
    {"mnuBar8", "-", 1, S::Normal},
    {"mnuPopup2Help", "&Help", 1, S::Normal},
}};

const std::array<MenuItemSpec, 4> kHelpMenu{{
    {"mnuHelp", "&Help", 0, S::Normal},
    {"mnuHelpContents", "&Contents", 1, S::Normal},
    {"mnuBar6", "-", 1, S::Normal},
    {"mnuHelpAbout", "&About", 1, S::Normal},
}};

std::vector<MenuItemSpec> JoinMenus(std::initializer_list<std::span<const MenuItemSpec>> parts) {
  std::vector<MenuItemSpec> out;
  for (const auto& part : parts) out.insert(out.end(), part.begin(), part.end());
  return out;
}

namespace {

constexpr MenuItemSpec kMainFile[] = {
    {"mnuFile", "&File", 0, S::Normal},
    {"mnuFileNew", "&New", 1, S::Off},
    {"mnuFileOpen", "&Open", 1, S::Normal},
    {"mnuBar1", "-", 1, S::Normal},
    {"mnuFileSaveAs", "&Save As", 1, S::Off},
    {"mnuBar2", "-", 1, S::Normal},
    {"mnuFileGallery", "&Gallery", 1, S::Normal},
    {"mnuFileWallpaper", "&Set Wallpaper", 1, S::Normal},
    {"mnuBar3", "-", 1, S::Normal},
    {"mnuFilePassword", "&Password", 1, S::Normal},
};

constexpr MenuItemSpec kMainSlidesAndWindow[] = {
    {"mnuSlides", "&Slides", 0, S::Normal},
    {"mnuSlidesAdd", "&Add Slide", 1, S::Off},
    {"mnuSlidesModify", "&Modify Slide Collection", 1, S::Off},
    {"mnuSlidesSet", "&Set Slide Template", 1, S::Off},
    {"mnuWindow", "&Window", 0, S::Normal},
    {"mnuWindowVertical", "&Tile Vertically", 1, S::Normal},
    {"mnuWindowHorizontal", "T&ile Horizontally", 1, S::Normal},
    {"mnuWindowCascade", "&Cascade", 1, S::Normal},
};

constexpr MenuItemSpec kMainPopups[] = {
    {"mnuPopup1", "&Popup1", 0, S::Hidden},
    {"mnuPopup1Reset", "&Reset", 1, S::Normal},
    {"mnuPopup1What", "&What's this?", 1, S::Normal},
    {"mnuBar7", "-", 1, S::Normal},
    {"mnuPopup1Help", "&Help", 1, S::Normal},
};

}  // namespace

const std::vector<MenuItemSpec>& MainMenu() {
  static const std::vector<MenuItemSpec> menu =
      JoinMenus({kMainFile, kHistoryItems, kViewMenu, kMainSlidesAndWindow, kHelpMenu, kMainPopups, kWallpaperPopup});
  return menu;
}

const std::array<ToolbarButtonSpec, 9> kToolbarButtons{{
    {"New", "New File", "New"},
    {"Open", "Open File", "Open"},
    {"Edit", "Edit Slide", "Edit"},
    {"Report", "Display Report", "Report"},
    {"Zoom", "Zoom Slide", "Zoom"},
    {"Unzoom", "Unzoom Slide", "Unzoom"},
    {"Window", "Arrange Windows", "Window"},
    {"Back", "Change Slide Background", "Background"},
    {"Help", "Help", "Help"},
}};

namespace {

struct ToolbarStateRow {
  std::string_view key;
  bool withSlide;
  bool withoutSlide;
};

// Help is not in the table: it stays as it is.
constexpr std::array<ToolbarStateRow, 8> kToolbarStates{{
    {"New", false, true},
    {"Open", false, true},
    {"Window", true, true},
    {"Edit", true, false},
    {"Zoom", true, false},
    {"Report", true, true},
    {"Unzoom", true, false},
    {"Back", false, true},
}};

struct ArrangementRow {
  Arrangement arrangement;
  int next;
};

constexpr std::array<ArrangementRow, 4> kArrangements{{
    {Arrangement::Cascade, 1},
    {Arrangement::TileVertical, 2},
    {Arrangement::Cascade, 3},
    {Arrangement::TileHorizontal, 1},
}};

}  // namespace

bool ToolbarButtonEnabled(std::string_view key, bool slideOpen) {
  for (const auto& row : kToolbarStates)
    if (row.key == key) return slideOpen ? row.withSlide : row.withoutSlide;
  return true;
}

Arrangement NextArrangement(int& counter) {
  const auto& row = kArrangements[static_cast<std::size_t>(counter) % kArrangements.size()];
  counter = row.next;
  return row.arrangement;
}

bool UpdateHistory(std::array<std::string, 5>& h, const std::string& c) {
  if (c == h[1]) return false;
  if (c == h[2]) {
    std::swap(h[1], h[2]);
  } else if (c == h[3]) {
    h[3] = h[2];
    h[2] = h[1];
    h[1] = c;
  } else if (c == h[4]) {
    // The old third entry comes first and stays fourth; the open file drops out.
    const std::string third = h[3];
    h[3] = h[2];
    h[2] = h[1];
    h[1] = third;
    h[4] = third;
  } else {
    h[4] = h[3];
    h[3] = h[2];
    h[2] = h[1];
    h[1] = c;
  }
  return true;
}

}  // namespace cb
