#include "app/MDIMain.h"

#include <QPainter>

#include "dialogs/Twips.h"

namespace cb {

void WallpaperArea::SetPicture(QImage picture) {
  picture_ = std::move(picture);
  viewport()->update();
}

void WallpaperArea::paintEvent(QPaintEvent* e) {
  QMdiArea::paintEvent(e);
  if (picture_.isNull()) return;
  QPainter p(viewport());
  const QRect r = viewport()->rect();
  p.drawImage(QPoint(r.center().x() - picture_.width() / 2, r.center().y() - picture_.height() / 2), picture_);
}

MDIMain::MDIMain() : area_(new WallpaperArea(this)) {
  setObjectName("MDIMain");
  setWindowTitle("Chattelbook");
  area_->setObjectName("MDIClient");
  area_->setBackground(QColor(128, 128, 128));
  setCentralWidget(area_);
  resize(TwipsToPixelsX(14400), TwipsToPixelsY(10800));
  MDIForm_Load();
}

void MDIMain::MDIForm_Load() { mnuFileGallery_Click(); }

void MDIMain::mnuFileGallery_Click() {
  // The gallery window arrives with the gallery; until then there is nothing to show.
}

}  // namespace cb
