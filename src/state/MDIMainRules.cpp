// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/MDIMainRules.h"

#include <utility>

namespace cb {

using S = ItemState;

using M = MenuId;

const std::array<MenuItemRow, 7> kHistoryItems{{
    {M::Bar4, "mnuBar4", "-", 1, S::Hidden},
    {M::FileHist1, "mnuFileHist", "1 Hist1", 1, S::Hidden},
    {M::FileHist2, "mnuFileHist", "2 Hist2", 1, S::Hidden},
    {M::FileHist3, "mnuFileHist", "3 Hist3", 1, S::Hidden},
    {M::FileHist4, "mnuFileHist", "4 Hist4", 1, S::Hidden},
    {M::Bar5, "mnuBar5", "-", 1, S::Hidden},
    {M::FileExit, "mnuFileExit", "&Exit", 1, S::Normal},
}};

const std::array<MenuItemRow, 3> kViewMenu{{
    {M::View, "mnuView", "&View", 0, S::Normal},
    {M::ViewToolbar, "mnuViewToolbar", "&Toolbar", 1, S::Checked},
    {M::ViewStatusbar, "mnuViewStatusbar", "&Statusbar", 1, S::Checked},
}};

const std::array<MenuItemRow, 5> kWallpaperPopup{{
    {M::Popup2, "mnuPopup2", "&Popup2", 0, S::Hidden},
    {M::Popup2SetWallpaper, "mnuPopup2SetWallpaper", "&Set Wallpaper", 1, S::Normal},
    {M::Popup2What, "mnuPopup2What", "&What's this?", 1, S::Normal},
    {M::Bar8, "mnuBar8", "-", 1, S::Normal},
    {M::Popup2Help, "mnuPopup2Help", "&Help", 1, S::Normal},
}};

const std::array<MenuItemRow, 4> kHelpMenu{{
    {M::Help, "mnuHelp", "&Help", 0, S::Normal},
    {M::HelpContents, "mnuHelpContents", "&Contents", 1, S::Normal},
    {M::Bar6, "mnuBar6", "-", 1, S::Normal},
    {M::HelpAbout, "mnuHelpAbout", "&About", 1, S::Normal},
}};

std::vector<MenuItemRow> JoinMenus(std::initializer_list<std::span<const MenuItemRow>> parts) {
  std::vector<MenuItemRow> out;
  for (const auto& part : parts) out.insert(out.end(), part.begin(), part.end());
  return out;
}

namespace {

constexpr MenuItemRow kMainFile[] = {
    {M::File, "mnuFile", "&File", 0, S::Normal},
    {M::FileNew, "mnuFileNew", "&New", 1, S::Off},
    {M::FileOpen, "mnuFileOpen", "&Open", 1, S::Normal},
    {M::Bar1, "mnuBar1", "-", 1, S::Normal},
    {M::FileSaveAs, "mnuFileSaveAs", "&Save As", 1, S::Off},
    {M::Bar2, "mnuBar2", "-", 1, S::Normal},
    {M::FileClaim, "mnuFileClaim", "&Claim Pack...", 1, S::Off},
    {M::FileBackup, "mnuFileBackup", "&Back Up...", 1, S::Off},
    {M::FileRestore, "mnuFileRestore", "&Restore...", 1, S::Normal},
    {M::FileGallery, "mnuFileGallery", "&Gallery", 1, S::Normal},
    {M::FileWallpaper, "mnuFileWallpaper", "&Set Wallpaper", 1, S::Normal},
    {M::Bar3, "mnuBar3", "-", 1, S::Normal},
    {M::FilePassword, "mnuFilePassword", "&Password", 1, S::Normal},
};

// Without a gallery the Slides menu has nothing to work on.
constexpr MenuItemRow kMainSlidesAndWindow[] = {
    {M::Slides, "mnuSlides", "&Slides", 0, S::Normal},
    {M::SlidesAdd, "mnuSlidesAdd", "&Add Slide", 1, S::Off},
    {M::SlidesModify, "mnuSlidesModify", "&Modify Slide Collection", 1, S::Off},
    {M::SlidesTemplate, "mnuSlidesSet", "&Set Slide Template", 1, S::Off},
    {M::Window, "mnuWindow", "&Window", 0, S::Normal},
    {M::WindowVertical, "mnuWindowVertical", "&Tile Vertically", 1, S::Normal},
    {M::WindowHorizontal, "mnuWindowHorizontal", "T&ile Horizontally", 1, S::Normal},
    {M::WindowCascade, "mnuWindowCascade", "&Cascade", 1, S::Normal},
};

constexpr MenuItemRow kMainPopups[] = {
    {M::Popup1, "mnuPopup1", "&Popup1", 0, S::Hidden},
    {M::Popup1Reset, "mnuPopup1Reset", "&Reset", 1, S::Normal},
    {M::Popup1What, "mnuPopup1What", "&What's this?", 1, S::Normal},
    {M::Bar7, "mnuBar7", "-", 1, S::Normal},
    {M::Popup1Help, "mnuPopup1Help", "&Help", 1, S::Normal},
};

}  // namespace

const std::vector<MenuItemRow>& MainMenu() {
  static const std::vector<MenuItemRow> menu =
      JoinMenus({kMainFile, kHistoryItems, kViewMenu, kMainSlidesAndWindow, kHelpMenu, kMainPopups, kWallpaperPopup});
  return menu;
}

using B = ToolbarButton;

const std::array<ToolbarButtonRow, kToolbarButtonCount> kToolbarButtons{{
    {B::New, "New", "New File", "New"},
    {B::Open, "Open", "Open File", "Open"},
    {B::Edit, "Edit", "Edit Slide", "Edit", "Edit Slide Details"},
    {B::Report, "Report", "Display Report", "Report"},
    {B::Zoom, "Zoom", "Zoom Slide", "Zoom", {}, true},
    {B::Unzoom, "Unzoom", "Unzoom Slide", "Unzoom", {}, true},
    {B::Window, "Window", "Arrange Windows", "Window"},
    {B::Back, "Back", "Change Slide Background", "Background"},
    {B::Help, "Help", "Help", "Help"},
}};

const ToolbarButtonRow& ButtonRow(ToolbarButton b) { return kToolbarButtons[static_cast<std::size_t>(b)]; }

int HistoryEntry(MenuId id) {
  const int k = static_cast<int>(id) - static_cast<int>(M::FileHist1);
  return k >= 0 && k < 4 ? k + 1 : 0;
}

MenuId HistoryItem(int entry) { return static_cast<MenuId>(static_cast<int>(M::FileHist1) + entry - 1); }

namespace {

struct ToolbarStateRow {
  ToolbarButton button;
  bool withSlide;
  bool withoutSlide;
};

// Help is not in the table: it stays live.
constexpr std::array<ToolbarStateRow, 8> kToolbarStates{{
    {B::New, false, true},
    {B::Open, false, true},
    {B::Window, true, true},
    {B::Edit, true, false},
    {B::Zoom, true, false},
    {B::Report, true, true},
    {B::Unzoom, true, false},
    {B::Back, false, true},
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

constexpr Change On(bool on) { return on ? Change::On : Change::Off; }

}  // namespace

bool ToolbarButtonEnabled(ToolbarButton b, bool slideOpen) {
  for (const auto& row : kToolbarStates)
    if (row.button == b) return slideOpen ? row.withSlide : row.withoutSlide;
  return true;
}

ToolbarChange ToolbarAfter(ToolbarEvent event, const ToolbarFacts& f) {
  ToolbarChange c{};
  auto at = [&c](ToolbarButton b) -> ButtonChange& { return c[static_cast<std::size_t>(b)]; };
  // Zoom and Unzoom act as a pair of radio buttons; which is pressed only sets
  // the sense of the next clicks on a slide.
  auto press = [&](bool zoom) {
    at(B::Zoom).pressed = On(zoom);
    at(B::Unzoom).pressed = On(!zoom);
  };
  switch (event) {
    case ToolbarEvent::FrameActivated:
      for (const auto& entry : kToolbarButtons) at(entry.id).enabled = On(ToolbarButtonEnabled(entry.id, f.slideOpen));
      press(f.zoomPressed);
      at(B::Zoom).pressed = Change::Keep;
      break;
    case ToolbarEvent::GalleryActivated:
      for (B b : {B::New, B::Open, B::Back, B::Report}) at(b).enabled = Change::On;
      for (B b : {B::Zoom, B::Unzoom, B::Edit}) at(b).enabled = Change::Off;
      if (f.severalChildren) at(B::Window).enabled = Change::On;
      press(true);
      break;
    case ToolbarEvent::SlideActivated:
      for (B b : {B::New, B::Open, B::Back}) at(b).enabled = Change::Off;
      for (B b : {B::Report, B::Zoom, B::Unzoom, B::Edit}) at(b).enabled = Change::On;
      if (f.severalChildren) at(B::Window).enabled = Change::On;
      press(true);
      break;
    case ToolbarEvent::ReportActivated:  // the Report button waits until the viewer closes
      for (B b : {B::New, B::Open, B::Edit, B::Report, B::Zoom, B::Unzoom, B::Back}) at(b).enabled = Change::Off;
      at(B::Window).enabled = Change::On;
      press(true);
      break;
    case ToolbarEvent::ZoomPressed: press(true); break;
    case ToolbarEvent::UnzoomPressed: press(false); break;
    case ToolbarEvent::GalleryUnloaded: at(B::Edit).enabled = Change::Off; break;
  }
  return c;
}

Arrangement NextArrangement(int& counter) {
  const auto& row = kArrangements[static_cast<std::size_t>(counter) % kArrangements.size()];
  counter = row.next;
  return row.arrangement;
}

TileRect TilePlace(Arrangement a, int width, int height, int k, int n) {
  if (a == Arrangement::TileVertical) return {width * k / n, 0, width * (k + 1) / n - width * k / n, height};
  return {0, height * k / n, width, height * (k + 1) / n - height * k / n};
}

bool UpdateHistory(FileHistory& h, const std::string& c) {
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
