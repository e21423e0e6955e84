// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/frmAbout.h"

#include <QLabel>
#include <QPushButton>

#include "artwork/Artwork.h"
#include "qt/Twips.h"
#include "state/MDIMainRules.h"

namespace cb {

frmAbout::frmAbout() {
  setObjectName("frmAbout");
  setWindowTitle("About Chattelbook");
  picture_ = new QLabel(this);
  picture_->setScaledContents(true);
  picture_->setAccessibleName(kAppTitle);  // the picture shows the program's name
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  resize(TwipsToPixelsX(7200), TwipsToPixelsY(4320));
  CentreOnScreen(*this);
}

void frmAbout::resizeEvent(QResizeEvent*) {
  picture_->setGeometry(rect());
  picture_->setPixmap(SplashPicture(size()));
  const QSize b(TwipsToPixelsX(1140), TwipsToPixelsY(390));
  cmdOK->setGeometry(width() - b.width() - TwipsToPixelsX(240), height() - b.height() - TwipsToPixelsY(200),
                     b.width(), b.height());
}

}  // namespace cb
