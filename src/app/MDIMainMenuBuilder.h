#pragma once
// Menus built from a table of items, found afterwards by name.

#include <QHash>
#include <QList>
#include <span>

#include "app/MDIMainRules.h"

class QAction;
class QMenu;
class QWidget;

namespace cb {

struct BuiltMenus {
  // Items by name, "mnuFileHist(2)" for an element of an array.
  QHash<QString, QAction*> items;
  QHash<QString, QMenu*> menus;
  // The menus of the bar in order; hidden ones are popups only.
  QList<QMenu*> bar;
};

// Makes the menus of `table` as children of `owner`.
BuiltMenus BuildMenus(QWidget* owner, std::span<const MenuItemSpec> table);

// The name under which an element of an item array is found.
QString ItemName(const QString& name, int index);

}  // namespace cb
