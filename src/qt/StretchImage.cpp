#include "qt/StretchImage.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace cb {

StretchImage::StretchImage(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent, false); }

void StretchImage::SetPicture(QImage picture) {
  picture_ = std::move(picture);
  update();
}

void StretchImage::paintEvent(QPaintEvent*) {
  if (picture_.isNull()) return;
  QPainter p(this);
  p.setRenderHint(QPainter::SmoothPixmapTransform);
  p.drawImage(rect(), picture_);
}

void StretchImage::mousePressEvent(QMouseEvent* e) { emit MouseDown(e->button(), e->position()); }

void StretchImage::mouseReleaseEvent(QMouseEvent* e) {
  emit MouseUp(e->button(), e->position());
  const bool second = std::exchange(doubleClicked_, false);
  if (!second && rect().contains(e->position().toPoint())) emit Click();
}

// The toolkit's default would report the press a second time.
void StretchImage::mouseDoubleClickEvent(QMouseEvent*) { doubleClicked_ = true; }

}  // namespace cb
