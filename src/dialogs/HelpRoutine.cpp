#include "dialogs/HelpRoutine.h"

#include <QDialog>
#include <QShortcut>

namespace cb {
namespace {
QString& Page() {
  static QString page;
  return page;
}
}  // namespace

const QString& HelpPage() { return Page(); }

void OpenHelp(const QString& page) {
  Page() = page;
  // Only recorded: the help viewer is not built, and the items that would open it are disabled.
}

void CloseWithHelp(QDialog& dialog, const QString& page) {
  dialog.hide();
  OpenHelp(page);
  dialog.reject();
}

void InstallF1(QWidget& window, const QString& page) {
  auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  // MDI children share their frame's window: each F1 keeps to its own widget.
  f1->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(f1, &QShortcut::activated, &window, [&window, page] {
    if (auto* dialog = qobject_cast<QDialog*>(&window))
      CloseWithHelp(*dialog, page);
    else
      OpenHelp(page);
  });
}

}  // namespace cb
