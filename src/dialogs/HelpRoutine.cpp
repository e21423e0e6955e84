// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/HelpRoutine.h"

#include <QApplication>
#include <QAction>
#include <QDialog>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QShortcut>

#include "qt/Twips.h"

namespace cb {
namespace {

QPointer<HelpViewerWindow>& Viewer() {
  static QPointer<HelpViewerWindow> viewer;
  return viewer;
}

HelpViewerWindow* (*&Maker())() {
  static HelpViewerWindow* (*maker)() = nullptr;
  return maker;
}

QPointer<QMdiArea>& Area() {
  static QPointer<QMdiArea> area;
  return area;
}

std::string_view View(const QByteArray& utf8) { return {utf8.data(), static_cast<std::size_t>(utf8.size())}; }

// The viewer is a child of the main window; before there is one (the login) it stands alone.
// Null until the help window has installed its maker.
HelpViewerWindow* TheHelp() {
  auto& viewer = Viewer();
  if (!viewer && Maker()) {
    viewer = Maker()();
    if (QMdiArea* area = Area()) area->addSubWindow(viewer)->setAttribute(Qt::WA_DeleteOnClose);
  }
  return viewer;
}

// An MDI child hides and closes with its frame.
QWidget& Frame(QWidget& window) {
  auto* sub = qobject_cast<QMdiSubWindow*>(window.parentWidget());
  return sub ? static_cast<QWidget&>(*sub) : window;
}

void CloseAndOpen(QWidget& window, const QString& page) {
  QWidget& frame = Frame(window);
  frame.hide();
  OpenHelp(page);
  if (auto* dialog = qobject_cast<QDialog*>(&window))
    dialog->reject();  // the dialog's own unload, which a waiting caller sees as a Cancel
  else
    frame.close();
}

const WindowHelp* RowForFocus(QWidget& window) {
  const QByteArray name = window.objectName().toUtf8();
  for (QWidget* w = QApplication::focusWidget(); w && w != &window; w = w->parentWidget()) {
    const WindowHelp* row = FindWindowHelp(View(name), View(w->objectName().toUtf8()));
    if (row && !row->control.empty()) return row;
  }
  return FindWindowHelp(View(name));
}

QString PageOf(const WindowHelp& row) { return Utf8ToQ(row.page); }

// A menu grabs the keyboard while it is open, so the window's F1 never sees it.
class MenuF1 final : public QObject {
 public:
  explicit MenuF1(QMenu& menu) : QObject(&menu), menu_(menu) {}

  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(e)->key() != Qt::Key_F1) return false;
    const QAction* item = menu_.activeAction();
    if (!item) return false;
    const QByteArray control = item->objectName().toUtf8();
    const WindowHelp* row = FindWindowHelp(kMenuHelpRows, View(control));
    if (!row || row->control.empty() || row->page.empty()) return false;
    for (QWidget* open = &menu_; auto* m = qobject_cast<QMenu*>(open); open = m->parentWidget()) m->close();
    OpenHelp(PageOf(*row));
    return true;
  }

 private:
  QMenu& menu_;
};

void Run(QWidget& window, const WindowHelp* row) {
  if (!row || row->page.empty()) return;
  if (row->closes)
    CloseAndOpen(window, PageOf(*row));
  else
    OpenHelp(PageOf(*row));
}

}  // namespace

void SetHelpArea(QMdiArea* area) { Area() = area; }

void SetHelpViewerMaker(HelpViewerWindow* (*maker)()) { Maker() = maker; }

void OpenHelp(const QString& page) {
  HelpViewerWindow* viewer = TheHelp();
  if (!viewer) return;
  viewer->HelpPage = page;
  viewer->ShowForward();
}

void ShowHelp(QWidget& window, const QString& control) {
  Run(window, FindWindowHelp(View(window.objectName().toUtf8()), View(control.toUtf8())));
}

void CloseWithHelp(QWidget& window) {
  if (const WindowHelp* row = FindWindowHelp(View(window.objectName().toUtf8())); row && !row->page.empty())
    CloseAndOpen(window, PageOf(*row));
}

void InstallF1(QWidget& window) {
  auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  // MDI children share their frame's window: each F1 keeps to its own widget.
  f1->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(f1, &QShortcut::activated, &window, [&window] { Run(window, RowForFocus(window)); });
}

void InstallMenuF1(QMenu& menu) { menu.installEventFilter(new MenuF1(menu)); }

HelpViewerWindow* OpenHelpViewer() { return Viewer().data(); }

QString HelpPage() { return Viewer() ? Viewer()->HelpPage : QString(); }

void UnloadHelp() {
  if (auto& viewer = Viewer()) {
    QWidget& frame = Frame(*viewer);
    delete &frame;
  }
}

}  // namespace cb
