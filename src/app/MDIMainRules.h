#pragma once
// The main window's tables and rules: its menus, its toolbar, which buttons
// are live, the arrangement cycle and the file history's order.

#include <array>
#include <initializer_list>
#include <span>
#include <vector>
#include <string>
#include <string_view>

namespace cb {

// The program's title: the main window's caption and the title of its messages.
inline constexpr char kAppTitle[] = "Chattelbook";

enum class ItemState { Normal, Off, Hidden, Checked };

// One item of a menu bar: depth 0 is a menu of the bar, 1 an item in it.
// A caption "-" is a separator. Hidden menus of depth 0 are popups only.
struct MenuItemSpec {
  std::string_view name;
  std::string_view caption;
  int depth;
  ItemState state;
  int index = 0;  // the element of a control array (mnuFileHist 1..4), 0 for none
};

// The items both menu bars share, in their places.
extern const std::array<MenuItemSpec, 7> kHistoryItems;  // mnuBar4, mnuFileHist(1..4), mnuBar5, mnuFileExit
extern const std::array<MenuItemSpec, 3> kViewMenu;
extern const std::array<MenuItemSpec, 4> kHelpMenu;
extern const std::array<MenuItemSpec, 5> kWallpaperPopup;  // mnuPopup2

// Tables joined in order.
std::vector<MenuItemSpec> JoinMenus(std::initializer_list<std::span<const MenuItemSpec>> parts);

// The main window's menu bar and its two popups.
const std::vector<MenuItemSpec>& MainMenu();

struct ToolbarButtonSpec {
  std::string_view key;  // also the caption
  std::string_view tooltip;
  std::string_view imageKey;
};

extern const std::array<ToolbarButtonSpec, 9> kToolbarButtons;

// Whether a toolbar button is live, by whether a slide window is open.
bool ToolbarButtonEnabled(std::string_view key, bool slideOpen);

enum class Arrangement { Cascade, TileVertical, TileHorizontal };

// The arrangement the Window button makes for `counter`; advances the counter.
Arrangement NextArrangement(int& counter);

// Puts the open file `current` into the history (indexes 1 to 4). Returns
// false when it already stood first and nothing needs writing. An entry
// found fourth brings back the third in first place and keeps it fourth too.
bool UpdateHistory(std::array<std::string, 5>& history, const std::string& current);

}  // namespace cb
