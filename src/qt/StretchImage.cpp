#include "qt/StretchImage.h"

#include <QMouseEvent>
#include <QPainter>

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
  if (rect().contains(e->position().toPoint())) emit Click();
}

}  // namespace cb
