// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PageViewer.h"

#include <QAction>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

#include "artwork/ToolbarIcons.h"
#include "qt/Twips.h"

namespace cb {

QToolBar* MakeViewerToolbar(QWidget& viewer, const QString& title) {
  auto* toolbar = new QToolBar(title, &viewer);
  toolbar->setObjectName("Toolbar1");
  toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  toolbar->setIconSize(QSize(24, 24));
  return toolbar;
}

QAction* AddViewerButton(QToolBar& toolbar, std::string_view key, std::string_view tip) {
  const QString name = Utf8ToQ(key);
  QAction* a = toolbar.addAction(ToolbarIcon(name), name);
  a->setObjectName(name);
  a->setToolTip(Utf8ToQ(tip));
  return a;
}

void LayOutViewer(QWidget& viewer, QToolBar& toolbar, QTextBrowser& browser) {
  browser.setObjectName("WebBrowser1");
  auto* layout = new QVBoxLayout(&viewer);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(&toolbar);
  layout->addWidget(&browser, 1);
}

}  // namespace cb
