#include "app/MDIMainMenuBuilder.h"

#include <QAction>
#include <QMenu>

#include "qt/Twips.h"

namespace cb {

BuiltMenus BuildMenus(QWidget* owner, std::span<const MenuItemSpec> table) {
  BuiltMenus built;
  QMenu* current = nullptr;
  for (const auto& spec : table) {
    const auto at = static_cast<std::size_t>(spec.id);
    if (spec.depth == 0) {
      current = new QMenu(Utf8ToQ(spec.caption), owner);
      current->setObjectName(Utf8ToQ(spec.name));
      built.menus[at] = current;
      if (spec.state != ItemState::Hidden) built.bar.append(current);
      continue;
    }
    QAction* a = spec.caption == "-" ? current->addSeparator() : current->addAction(Utf8ToQ(spec.caption));
    a->setObjectName(Utf8ToQ(spec.name));
    a->setEnabled(spec.Enabled());
    a->setVisible(spec.state != ItemState::Hidden);
    a->setCheckable(spec.state == ItemState::Checked);
    a->setChecked(spec.state == ItemState::Checked);
    built.items[at] = a;
  }
  return built;
}

}  // namespace cb
