// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/frmLoading.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

#include "qt/Twips.h"
#include "state/MDIMainRules.h"

namespace cb {

frmLoading::frmLoading() : QDialog(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setObjectName("frmLoading");
  setWindowTitle(kAppTitle);
  lblText = new QLabel(this);
  lblText->setObjectName("lblText");
  ProgressBar1 = new QProgressBar(this);
  ProgressBar1->setObjectName("ProgressBar1");
  ProgressBar1->setTextVisible(false);
  ProgressBar1->setRange(1, 100);  // the design's range; the fills step it from 1
  ProgressBar1->setAccessibleName("Progress");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblText);
  layout->addWidget(ProgressBar1);
  setFixedSize(TwipsToPixelsX(4500), TwipsToPixelsY(1100));
}

void frmLoading::SetPBMax(int v) { ProgressBar1->setMaximum(v); }
void frmLoading::SetPBMin(int v) { ProgressBar1->setMinimum(v); }

void frmLoading::showEvent(QShowEvent* e) {
  // Below the centre of the screen, out of the way of the gallery's top rows.
  if (const QScreen* s = QGuiApplication::primaryScreen()) {
    const QRect g = s->geometry();
    move(g.left() + (g.width() - width()) / 2, g.top() + static_cast<int>((g.height() - height()) / 1.3));
  }
  QDialog::showEvent(e);
}

namespace {
QPointer<frmLoading>& Loading() {
  static QPointer<frmLoading> loading;
  return loading;
}
}  // namespace

frmLoading& TheLoading() {
  if (!Loading()) Loading() = new frmLoading();
  return *Loading();
}

void UnloadLoading() { delete Loading().data(); }

}  // namespace cb
