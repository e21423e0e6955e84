// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Menus built from a table of rows, held afterwards by their ids.

#include <QList>
#include <array>
#include <span>

#include "state/MDIMainRules.h"

class QAction;
class QMenu;
class QWidget;

namespace cb {

struct BuiltMenus {
  // By id; null where the table has no such row.
  std::array<QAction*, kMenuIdCount> items{};
  std::array<QMenu*, kMenuIdCount> menus{};
  // The menus of the bar in order; hidden ones are popups only.
  QList<QMenu*> bar;

  QAction* Item(MenuId id) const { return items[static_cast<std::size_t>(id)]; }
  QMenu* Menu(MenuId id) const { return menus[static_cast<std::size_t>(id)]; }
};

// Makes the menus of `table` as children of `owner`.
BuiltMenus BuildMenus(QWidget* owner, std::span<const MenuItemRow> table);

}  // namespace cb
