// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/StretchImage.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/PictureSource.h"

namespace cb {
namespace {
QRectF ToQ(const PixelBox& b) { return {b.x, b.y, b.w, b.h}; }
}  // namespace

StretchImage::StretchImage(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent, false); }

void StretchImage::SetPicture(QImage picture) {
  picture_ = std::move(picture);
  source_.reset();
  held_ = {};
  failed_ = false;
  update();
}

void StretchImage::SetSource(std::shared_ptr<const PictureSource> source) {
  SetPicture({});
  source_ = std::move(source);
}

bool StretchImage::ReplaceSource(std::shared_ptr<const PictureSource> source) {
  DecodePlan plan = Wanted(*source);
  // With nothing on show, the smallest decode of the whole still proves the file.
  if (plan.region.Empty()) plan = {1, {0, 0, double(source->Size().width()), double(source->Size().height())}};
  if (!Decode(source, plan)) return false;
  update();
  return true;
}

DecodePlan StretchImage::Wanted(const PictureSource& source) const {
  const double r = devicePixelRatioF();
  QRect shown = rect();
  if (parentWidget()) shown &= QRect(-pos(), parentWidget()->size());
  return PlanDecode(source.Size().width(), source.Size().height(), width() * r, height() * r,
                    {shown.x() * r, shown.y() * r, shown.width() * r, shown.height() * r}, kDecodePixels);
}

bool StretchImage::Decode(const std::shared_ptr<const PictureSource>& source, const DecodePlan& plan) {
  PictureSource::Decoded decoded = source->Decode(plan);
  if (decoded.image.isNull()) return false;
  picture_ = std::move(decoded.image);
  held_ = decoded.held;
  source_ = source;
  failed_ = false;
  return true;
}

void StretchImage::paintEvent(QPaintEvent* e) {
  // A source that failed once is not decoded again at every paint; what it gave stays.
  if (source_ && !failed_) {
    const DecodePlan wanted = Wanted(*source_);
    if (!Covers(held_, wanted)) failed_ = !Decode(source_, wanted);
  }
  if (picture_.isNull()) return;
  const QSizeF full = source_ ? QSizeF(source_->Size()) : QSizeF(picture_.size());
  const PixelBox region = source_ ? held_.region : PixelBox{0, 0, full.width(), full.height()};
  const QRect paint = e->rect();
  const DrawnPart part = PartToDraw({double(paint.x()), double(paint.y()), double(paint.width()), double(paint.height())},
                                    width(), height(), full.width(), full.height(), region, picture_.width(),
                                    picture_.height());
  if (part.target.Empty()) return;
  QPainter p(this);
  p.setRenderHint(QPainter::SmoothPixmapTransform);
  p.drawImage(ToQ(part.target), picture_, ToQ(part.source));
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
