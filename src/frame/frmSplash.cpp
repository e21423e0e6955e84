// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/frmSplash.h"

#include "artwork/Artwork.h"
#include "qt/Twips.h"
#include "state/MDIMainRules.h"
#include "state/modGlobal.h"

namespace cb {

frmSplash::frmSplash() : QLabel(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setAttribute(Qt::WA_DeleteOnClose);
  const QSize size(TwipsToPixelsX(7200), TwipsToPixelsY(4320));
  setFixedSize(size);
  setPixmap(SplashPicture(size));
  setAccessibleName(kAppTitle);  // the picture shows the program's name
  CentreOnScreen(*this);
}

void frmSplash::mousePressEvent(QMouseEvent*) {
  Globals().SplashDismissed = true;
  close();
}

}  // namespace cb
