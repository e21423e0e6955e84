// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/frmHelp.h"

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTextBrowser>

#include "artwork/ToolbarIcons.h"
#include "base/Cp1252.h"
#include "dialogs/HelpRoutine.h"
#include "dialogs/PagePrint.h"
#include "dialogs/PageViewer.h"
#include "qt/Twips.h"
#include "state/MDIMainRules.h"
#include "state/modGlobal.h"

namespace cb {
namespace {

constexpr char kCaption[] = "Chattelbook Help";
constexpr char kHelpDir[] = "/Help/";

std::string AppPath() {
  const ModGlobal& g = Globals();
  return g.MainController ? g.MainController->AppPath() : PathFromQ(QCoreApplication::applicationDirPath());
}

// A link's target as written in the page: a path, with any "?" or "#" it held.
std::string LinkPath(const QUrl& url) {
  if (url.isLocalFile()) return PathFromQ(url.toLocalFile());
  QString path = url.path(QUrl::FullyDecoded);
  if (url.hasQuery()) path += '?' + url.query(QUrl::FullyDecoded);
  if (url.hasFragment()) path += '#' + url.fragment(QUrl::FullyDecoded);
  return PathFromQ(path);
}

}  // namespace

frmHelp::frmHelp() {
  setObjectName("frmHelp");
  setWindowTitle(kCaption);
  setWindowIcon(ToolbarIcon("Help"));
  setAttribute(Qt::WA_DeleteOnClose);
  Toolbar1 = MakeViewerToolbar(*this);
  QAction** buttons[] = {&cmdPrint, &cmdPrevious, &cmdNext};
  for (std::size_t i = 0; i < kHelpToolbar.size(); ++i)
    *buttons[i] = AddViewerButton(*Toolbar1, kHelpToolbar[i].key, kHelpToolbar[i].tooltip);
  WebBrowser1 = new QTextBrowser(this);
  WebBrowser1->setAccessibleName("Help page");
  WebBrowser1->setOpenLinks(false);  // every link comes through the history
  LayOutViewer(*this, *Toolbar1, *WebBrowser1);
  connect(cmdPrint, &QAction::triggered, this, &frmHelp::Print_Click);
  connect(cmdPrevious, &QAction::triggered, this, &frmHelp::Previous_Click);
  connect(cmdNext, &QAction::triggered, this, &frmHelp::Next_Click);
  connect(WebBrowser1, &QTextBrowser::anchorClicked, this, &frmHelp::WebBrowser1_AnchorClicked);
  InstallF1(*this);
  SetButtons();
}

void frmHelp::ShowForward() {
  QWidget* frame = parentWidget() ? parentWidget() : this;
  if (frame->isMinimized()) frame->showNormal();
  show();
  frame->show();
  frame->raise();
  if (auto* sub = qobject_cast<QMdiSubWindow*>(frame)) {
    if (QMdiArea* area = sub->mdiArea()) area->setActiveSubWindow(sub);
  } else {
    activateWindow();
  }
}

void frmHelp::showEvent(QShowEvent* e) {
  if (!loaded_) Form_Load();
  QWidget::showEvent(e);
  // The snap back to the client area while hidden (a maximised sibling
  // restoring it) leaves the layout at the size it had before: lay out afresh.
  layout()->setGeometry(rect());
}

void frmHelp::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  if (loaded_) Form_Resize();
}

// Whatever size it is given, the viewer goes back to the whole client area,
// from its top left; minimised and maximised it is left alone.
void frmHelp::Form_Resize() {
  auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget());
  QMdiArea* area = sub ? sub->mdiArea() : nullptr;
  if (!area || sub->isMinimized() || sub->isMaximized()) return;
  const QRect client = area->viewport()->rect();
  if (sub->geometry() != client) sub->setGeometry(client);
}

void frmHelp::Form_Load() {
  loaded_ = true;
  Form_Resize();
  Display(history_.Load(AppPath() + kHelpDir + PathFromQ(HelpPage)));
  SetButtons();
  WebBrowser1->setFocus();
}

void frmHelp::Navigate2(const std::string& url) {
  history_.BeforeNavigate(url);
  Display(url);
  SetButtons();
}

void frmHelp::Display(const std::string& path) {
  shown_ = path;
  const QString file = PathToQ(path);
  QFile in(file);
  if (QFileInfo(file).isFile() && in.open(QIODevice::ReadOnly)) {
    const QByteArray bytes = in.readAll();
    WebBrowser1->setHtml(QString::fromStdString(Cp1252ToUtf8(std::string_view(bytes.data(), bytes.size()))));
  } else {
    WebBrowser1->setHtml(QString::fromStdString(MissingHelpPage(path)));
  }
}

void frmHelp::WebBrowser1_AnchorClicked(const QUrl& url) {
  // The maker's web site and mail address belong to the desktop's browser and mail program.
  if (!url.scheme().isEmpty() && !url.isLocalFile()) {
    QDesktopServices::openUrl(url);
    return;
  }
  Navigate2(LinkPath(url));
}

void frmHelp::Previous_Click() { Navigate2(history_.Previous()); }

void frmHelp::Next_Click() { Navigate2(history_.Next()); }

void frmHelp::SetButtons() {
  cmdPrevious->setEnabled(history_.PreviousEnabled());
  cmdNext->setEnabled(history_.NextEnabled());
}

void frmHelp::Print_Click() { PrintBrowser(*WebBrowser1, "help topic"); }

void InstallHelpViewer() {
  SetHelpViewerMaker([]() -> HelpViewerWindow* { return new frmHelp(); });
}

frmHelp* HelpViewer() { return qobject_cast<frmHelp*>(OpenHelpViewer()); }

}  // namespace cb
