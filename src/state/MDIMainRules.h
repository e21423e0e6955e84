// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The main window's tables and rules: its menus, its toolbar, which buttons
// are live after each event, the tiling, the arrangement cycle and the file
// history's order.

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "storage/SmallFiles.h"

namespace cb {

// The program's title: the main window's caption and the title of its messages.
inline constexpr char kAppTitle[] = "Chattelbook";
// The title of the messages that tell of a failure.
inline constexpr char kErrorTitle[] = "Error";

// Every menu and menu item of the windows' menu bars, by purpose. An item of
// the gallery's bar shares its id with the main window's item of the same
// purpose, whatever the two are named.
enum class MenuId : std::uint8_t {
  File, Edit, View, Slides, Window, Help, Popup1, Popup2, Popup3, Popup4,
  FileNew, FileOpen, Bar1, FileSaveAs, Bar2, FileClaim, FileBackup, FileRestore, FileGallery, FileWallpaper, Bar3, FilePassword,
  Bar4, FileHist1, FileHist2, FileHist3, FileHist4, Bar5, FileExit,
  EditUndo, EditRedo, Bar11, EditFind,
  ViewToolbar, ViewStatusbar,
  SlidesAdd, SlidesModify, SlidesTemplate, SlidesRemoved,
  WindowVertical, WindowHorizontal, WindowCascade,
  HelpContents, Bar6, HelpAbout,
  Popup1Reset, Popup1Delete, Popup1What, Bar7, Popup1Help,
  Popup2SetWallpaper, Popup2What, Bar8, Popup2Help,
  Popup3Reset, Popup3What, Bar9, Popup3Help,
  Popup4SetBackground, Popup4What, Bar10, Popup4Help,
  Count
};
inline constexpr std::size_t kMenuIdCount = static_cast<std::size_t>(MenuId::Count);

// The history entry (1 to 4) an item opens, 0 for any other item.
int HistoryEntry(MenuId id);
MenuId HistoryItem(int entry);

enum class ItemState { Normal, Off, Hidden, Checked };

// One row of a menu bar: depth 0 is a menu of the bar, 1 an item in it.
// A caption "-" is a separator. Hidden menus of depth 0 are popups only.
// Several rows may share a name (the history entries); the id tells them apart.
struct MenuItemRow {
  MenuId id;
  std::string_view name;
  std::string_view caption;
  int depth;
  ItemState state;
  std::string_view shortcut = {};  // as QKeySequence reads it, e.g. "Ctrl+F"; several joined by "; "
  // Live when the window is made: normal or checked.
  constexpr bool Enabled() const { return state != ItemState::Off; }
};

// The items both menu bars share, in their places.
extern const std::array<MenuItemRow, 7> kHistoryItems;  // mnuBar4, mnuFileHist(1..4), mnuBar5, mnuFileExit
extern const std::array<MenuItemRow, 3> kViewMenu;
extern const std::array<MenuItemRow, 4> kHelpMenu;
extern const std::array<MenuItemRow, 5> kWallpaperPopup;  // mnuPopup2

// Tables joined in order.
std::vector<MenuItemRow> JoinMenus(std::initializer_list<std::span<const MenuItemRow>> parts);

// The main window's menu bar and its two popups.
const std::vector<MenuItemRow>& MainMenu();

enum class ToolbarButton : std::uint8_t { New, Open, Edit, Report, Zoom, Unzoom, Window, Back, Help, Count };
inline constexpr std::size_t kToolbarButtonCount = static_cast<std::size_t>(ToolbarButton::Count);

struct ToolbarButtonRow {
  ToolbarButton id;
  std::string_view key;  // the object name and the caption
  std::string_view tooltip;
  std::string_view imageKey;
  std::string_view statusTip = {};
  bool checkable = false;
};

// The buttons in their order on the bar.
extern const std::array<ToolbarButtonRow, kToolbarButtonCount> kToolbarButtons;
const ToolbarButtonRow& ButtonRow(ToolbarButton b);

// Whether a toolbar button is live, by whether a slide window is open.
bool ToolbarButtonEnabled(ToolbarButton b, bool slideOpen);

// What happens to the toolbar: the main window's activation, its children's
// activations, a press of Zoom or Unzoom, the gallery going down.
enum class ToolbarEvent {
  FrameActivated,
  GalleryActivated,
  SlideActivated,
  ReportActivated,
  ZoomPressed,
  UnzoomPressed,
  GalleryUnloaded
};

// What the event needs to know of the windows.
struct ToolbarFacts {
  bool slideOpen = false;
  bool severalChildren = false;  // more than one child in the client area
  bool zoomPressed = false;
};

enum class Change : std::uint8_t { Keep, Off, On };
struct ButtonChange {
  Change enabled = Change::Keep;
  Change pressed = Change::Keep;
  friend bool operator==(const ButtonChange&, const ButtonChange&) = default;
};
using ToolbarChange = std::array<ButtonChange, kToolbarButtonCount>;

// How the buttons change after `event`; a button waiting for a window never comes on.
ToolbarChange ToolbarAfter(ToolbarEvent event, const ToolbarFacts& facts);

enum class Arrangement { Cascade, TileVertical, TileHorizontal };

// The arrangement the Window button makes for `counter`; advances the counter.
Arrangement NextArrangement(int& counter);

struct TileRect {
  int left, top, width, height;
  friend bool operator==(const TileRect&, const TileRect&) = default;
};

// Where child k (0-based) of n goes when a client area of `width` x
// `height` pixels is tiled: side by side (vertical) or one above the other
// (horizontal). The strips share the rounding so that they meet and fill it.
TileRect TilePlace(Arrangement a, int width, int height, int k, int n);

// Puts the open file `current` into the history (indexes 1 to 4). Returns
// false when it already stood first and nothing needs writing. An entry
// found fourth brings back the third in first place and keeps it fourth too.
bool UpdateHistory(FileHistory& history, const std::string& current);

}  // namespace cb
