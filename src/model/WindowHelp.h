// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which help page each window opens on F1 and on its Help button and menu
// items, and whether asking for help closes the window first.

#include <span>
#include <string_view>

namespace cb {

// The quick start page: a first start, the main window's popups, the viewer's own F1.
inline constexpr char kQuickStartPage[] = "help002.htm";
// The "window" whose rows give menu items of either menu bar their F1.
inline constexpr char kMenuHelpRows[] = "menus";

struct WindowHelp {
  std::string_view window;   // the window's object name
  std::string_view control;  // a control's object name; "" for the window and its other controls
  std::string_view page;     // a file of the Help directory; "" where F1 does nothing
  bool closes;               // hidden and unloaded as the viewer opens, like a Cancel
};

// Every row, the windows' own rows first.
std::span<const WindowHelp> WindowHelpTable();

// The row of `control` on `window`: its own row when it has one, else the
// window's; null when the window takes no help.
const WindowHelp* FindWindowHelp(std::string_view window, std::string_view control = {});

}  // namespace cb
