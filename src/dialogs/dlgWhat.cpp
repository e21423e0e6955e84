#include "dialogs/dlgWhat.h"

#include <QEvent>
#include <QLabel>

#include "app/modGlobal.h"
#include "qt/Twips.h"

namespace cb {
namespace {
constexpr double kBorderTwips = 20;
}  // namespace

dlgWhat::dlgWhat() : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint) {
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
  QFont font("Verdana");
  font.setPointSizeF(9.75);
  lblWhat->setFont(font);
  for (QLabel* l : {lblBack, lblWhat}) l->installEventFilter(this);
}

void dlgWhat::Show() {
  resize(TwipsToPixelsX(width_), TwipsToPixelsY(height_));
  move(TwipsToPixelsX(left_), TwipsToPixelsY(top_));
  lblWhat->setText(WhatText);
  show();
}

void dlgWhat::resizeEvent(QResizeEvent*) {
  lblBack->setGeometry(rect());
  const int bx = TwipsToPixelsX(kBorderTwips), by = TwipsToPixelsY(kBorderTwips);
  lblWhat->setGeometry(bx, by, width() - 2 * bx, height() - 2 * by);
}

bool dlgWhat::eventFilter(QObject*, QEvent* e) {
  if (e->type() == QEvent::MouseButtonPress) {
    close();
    return true;
  }
  return false;
}

void ShowWhat(long heightTwips, long widthTwips, const QString& text) {
  auto* what = new dlgWhat();
  what->SetHeight(heightTwips);
  what->SetWidth(widthTwips);
  what->SetLeft(Globals().MouseX);
  what->SetTop(Globals().MouseY);
  what->WhatText = text;
  what->Show();
}

}  // namespace cb
