// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/MenuBuilder.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include "qt/Twips.h"

namespace cb {

BuiltMenus BuildMenus(QWidget* owner, std::span<const MenuItemRow> table) {
  BuiltMenus built;
  QMenu* current = nullptr;
  for (const auto& entry : table) {
    const auto at = static_cast<std::size_t>(entry.id);
    if (entry.depth == 0) {
      current = new QMenu(Utf8ToQ(entry.caption), owner);
      current->setObjectName(Utf8ToQ(entry.name));
      built.menus[at] = current;
      if (entry.state != ItemState::Hidden) built.bar.append(current);
      continue;
    }
    QAction* a = entry.caption == "-" ? current->addSeparator() : current->addAction(Utf8ToQ(entry.caption));
    a->setObjectName(Utf8ToQ(entry.name));
    a->setEnabled(entry.Enabled());
    a->setVisible(entry.state != ItemState::Hidden);
    a->setCheckable(entry.state == ItemState::Checked);
    a->setChecked(entry.state == ItemState::Checked);
    if (!entry.shortcut.empty()) a->setShortcuts(QKeySequence::listFromString(Utf8ToQ(entry.shortcut)));
    built.items[at] = a;
  }
  return built;
}

}  // namespace cb
