// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/dlgWhat.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

#include "qt/LookAlike.h"
#include "qt/Twips.h"
#include "state/modGlobal.h"

namespace cb {
namespace {
constexpr double kBorderTwips = 20;
constexpr char kFace[] = "Verdana";
constexpr double kPoints = 9.75;
}  // namespace

dlgWhat::dlgWhat(QWidget* owner)
    : QWidget(owner ? owner : QApplication::activeWindow(), Qt::Tool | Qt::FramelessWindowHint) {
  setObjectName("dlgWhat");
  setAttribute(Qt::WA_DeleteOnClose);
  lblBack = new QLabel(this);
  lblBack->setObjectName("lblBack");
  lblBack->setAutoFillBackground(true);
  lblBack->setBackgroundRole(QPalette::Shadow);
  lblWhat = new QLabel(this);
  lblWhat->setObjectName("lblWhat");
  lblWhat->setAutoFillBackground(true);
  lblWhat->setBackgroundRole(QPalette::ToolTipBase);
  lblWhat->setForegroundRole(QPalette::ToolTipText);
  lblWhat->setWordWrap(true);
  lblWhat->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void dlgWhat::Show() {
  resize(TwipsToPixelsX(width_), TwipsToPixelsY(height_));
  move(TwipsToPixelsX(left_), TwipsToPixelsY(top_));
  lblWhat->setText(WhatText);
  setAccessibleName(WhatText);
  // Every press in the program passes by the note first; it is never a grab.
  qApp->installEventFilter(this);
  show();
  raise();
  activateWindow();
}

void dlgWhat::resizeEvent(QResizeEvent*) {
  lblBack->setGeometry(rect());
  const int bx = TwipsToPixelsX(kBorderTwips), by = TwipsToPixelsY(kBorderTwips);
  lblWhat->setGeometry(bx, by, width() - 2 * bx, height() - 2 * by);
  // The note keeps its size; its face is measured so that the text fits it.
  lblWhat->setFont(FittedInto(LookAlike(kFace, kPoints, WhatText), WhatText, lblWhat->contentsRect().size()));
}

void dlgWhat::changeEvent(QEvent* e) {
  if (e->type() == QEvent::ActivationChange) {
    if (isActiveWindow())
      wasActive_ = true;
    else if (wasActive_)
      close();
  }
  QWidget::changeEvent(e);
}

bool dlgWhat::eventFilter(QObject* watched, QEvent* e) {
  if (e->type() != QEvent::MouseButtonPress || !isVisible()) return false;
  auto* w = qobject_cast<QWidget*>(watched);
  if (!w) return false;
  close();
  // A press on the note ends there; one elsewhere goes on to what was clicked.
  return w->window() == this;
}

dlgWhat* ShowWhat(long heightTwips, long widthTwips, const QString& text) {
  auto* what = new dlgWhat();
  what->SetHeight(heightTwips);
  what->SetWidth(widthTwips);
  what->SetLeft(Globals().MouseX);
  what->SetTop(Globals().MouseY);
  what->WhatText = text;
  what->Show();
  return what;
}

}  // namespace cb
