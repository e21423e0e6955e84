// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artwork.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace cb {
namespace {

// One framed picture: a mount, a sky, a hill and a sun, tilted by `angle`.
void DrawSnapshot(QPainter& p, QPointF centre, double angle, QColor sky, QColor hill) {
  p.save();
  p.translate(centre);
  p.rotate(angle);
  const QRectF frame(-62, -48, 124, 96);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0, 0, 0, 60));
  p.drawRoundedRect(frame.translated(4, 5), 3, 3);
  p.setBrush(QColor(250, 247, 240));
  p.drawRoundedRect(frame, 3, 3);
  const QRectF photo = frame.adjusted(8, 8, -8, -20);
  QLinearGradient g(photo.topLeft(), photo.bottomLeft());
  g.setColorAt(0, sky.lighter(130));
  g.setColorAt(1, sky);
  p.setBrush(g);
  p.drawRect(photo);
  p.setBrush(QColor(255, 214, 102));
  p.drawEllipse(QPointF(photo.right() - 22, photo.top() + 16), 9, 9);
  QPainterPath h;
  h.moveTo(photo.bottomLeft());
  h.cubicTo(photo.left() + 30, photo.top() + 30, photo.left() + 60, photo.bottom() - 10, photo.right(), photo.top() + 38);
  h.lineTo(photo.bottomRight());
  h.closeSubpath();
  p.setBrush(hill);
  p.drawPath(h);
  p.restore();
}

}  // namespace

QPixmap SplashPicture(QSize size) {
  QPixmap pm(size);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF r(QPointF(0, 0), QSizeF(size));
  QLinearGradient bg(r.topLeft(), r.bottomRight());
  bg.setColorAt(0, QColor(36, 52, 71));
  bg.setColorAt(1, QColor(18, 27, 38));
  p.fillRect(r, bg);
  p.setPen(QPen(QColor(201, 162, 39), 3));
  p.setBrush(Qt::NoBrush);
  p.drawRect(r.adjusted(8, 8, -8, -8));

  // The snapshots sit low and right, clear of the title.
  const double cx = r.width() * 0.70;
  const double cy = r.height() * 0.64;
  p.save();
  p.translate(cx, cy);
  p.scale(0.85, 0.85);
  p.translate(-cx, -cy);
  DrawSnapshot(p, {cx - 70, cy + 10}, -12, QColor(92, 148, 196), QColor(76, 128, 72));
  DrawSnapshot(p, {cx + 60, cy + 25}, 10, QColor(214, 128, 92), QColor(120, 86, 60));
  DrawSnapshot(p, {cx, cy - 20}, -2, QColor(120, 170, 210), QColor(58, 110, 80));
  p.restore();

  QFont title("DejaVu Serif");
  title.setPixelSize(static_cast<int>(r.height() * 0.13));
  title.setBold(true);
  p.setFont(title);
  p.setPen(QColor(240, 232, 214));
  const QRectF text(r.width() * 0.07, r.height() * 0.08, r.width() * 0.86, r.height() * 0.2);
  p.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, "Chattelbook");
  QFont sub("DejaVu Sans");
  sub.setPixelSize(static_cast<int>(r.height() * 0.055));
  p.setFont(sub);
  p.setPen(QColor(201, 162, 39));
  p.drawText(text.translated(0, r.height() * 0.17), Qt::AlignLeft | Qt::AlignTop, "A pictorial inventory");
  sub.setPixelSize(static_cast<int>(r.height() * 0.04));
  p.setFont(sub);
  p.setPen(QColor(170, 180, 190));
  p.drawText(QRectF(r.width() * 0.07, r.height() * 0.84, r.width() * 0.6, r.height() * 0.1), Qt::AlignLeft,
             "Home Security \u00b7 Real Estate \u00b7 Car Yard");
  return pm;
}

}  // namespace cb
