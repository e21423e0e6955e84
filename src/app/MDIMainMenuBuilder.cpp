#include "app/MDIMainMenuBuilder.h"

#include <QAction>
#include <QMenu>

namespace cb {
namespace {
QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }
}  // namespace

QString ItemName(const QString& name, int index) {
  return index ? QString("%1(%2)").arg(name).arg(index) : name;
}

BuiltMenus BuildMenus(QWidget* owner, std::span<const MenuItemSpec> table) {
  BuiltMenus built;
  QMenu* current = nullptr;
  for (const auto& spec : table) {
    if (spec.depth == 0) {
      current = new QMenu(Q(spec.caption), owner);
      current->setObjectName(Q(spec.name));
      built.menus.insert(Q(spec.name), current);
      if (spec.state != ItemState::Hidden) built.bar.append(current);
      continue;
    }
    QAction* a = spec.caption == "-" ? current->addSeparator() : current->addAction(Q(spec.caption));
    a->setObjectName(Q(spec.name));
    a->setEnabled(spec.state != ItemState::Off);
    a->setVisible(spec.state != ItemState::Hidden);
    a->setCheckable(spec.state == ItemState::Checked);
    a->setChecked(spec.state == ItemState::Checked);
    built.items.insert(ItemName(Q(spec.name), spec.index), a);
  }
  return built;
}

}  // namespace cb
