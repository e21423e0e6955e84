// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/TemplatePictures.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace cb {
namespace {

// Each picture is laid out on a square of this many units.
constexpr double kGrid = 24.0;

const QColor kInk(0x44, 0x51, 0x5f);
const QColor kWall(0xf5, 0xd9, 0xae);
const QColor kRoof(0xc8, 0x4b, 0x3c);
const QColor kDoor(0x7f, 0x51, 0x27);
const QColor kGlass(0xc4, 0xe3, 0xfc);
const QColor kGold(0xff, 0xc8, 0x45);
const QColor kGoldLine(0xa8, 0x73, 0x0a);
const QColor kBoard(0xec, 0x6a, 0x5c);
const QColor kPost(0xc9, 0x8a, 0x4b);
const QColor kBody(0x3d, 0x8f, 0xe0);
const QColor kBodyLine(0x1e, 0x67, 0xb3);
const QColor kTyre(0x33, 0x3a, 0x42);
const QColor kHub(0x9a, 0xa7, 0xb4);
const QColor kWhite(Qt::white);

void Outlined(QPainter& p, const QPainterPath& path, const QColor& fill, const QColor& line) {
  p.setPen(QPen(line, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(fill);
  p.drawPath(path);
}

QPainterPath Rect(double l, double t, double r, double b, double radius = 0) {
  QPainterPath path;
  path.addRoundedRect(QRectF(QPointF(l, t), QPointF(r, b)), radius, radius);
  return path;
}

// A house with a pitched roof, a door and a window; `right` is its right wall.
void House(QPainter& p, double left, double right) {
  const double mid = (left + right) / 2;
  Outlined(p, Rect(left + 1.5, 10.5, right - 1.5, 21.5), kWall, kInk);
  QPainterPath roof;
  roof.moveTo(left, 11.5);
  roof.lineTo(mid, 3);
  roof.lineTo(right, 11.5);
  roof.closeSubpath();
  Outlined(p, roof, kRoof, kInk);
  Outlined(p, Rect(mid - 4.5, 15, mid - 1, 21.5), kDoor, kInk);
  Outlined(p, Rect(mid + 1, 13.5, mid + 4.5, 17), kGlass, kInk);
}

void DrawHomeSecurity(QPainter& p) {
  House(p, 0.5, 17.5);
  // The padlock stands in front of the house's right corner.
  QPainterPath shackle;
  shackle.moveTo(14.5, 15);
  shackle.lineTo(14.5, 12.5);
  shackle.arcTo(QRectF(14.5, 9.5, 6, 6), 180, -180);
  shackle.lineTo(20.5, 15);
  p.setPen(QPen(kInk, 3.2, Qt::SolidLine, Qt::FlatCap));
  p.setBrush(Qt::NoBrush);
  p.drawPath(shackle);
  p.setPen(QPen(kHub, 1.6, Qt::SolidLine, Qt::FlatCap));
  p.drawPath(shackle);
  Outlined(p, Rect(12.5, 14.5, 22.5, 22.5, 1.2), kGold, kGoldLine);
  p.setPen(Qt::NoPen);
  p.setBrush(kInk);
  p.drawEllipse(QPointF(17.5, 17.6), 1.3, 1.3);
  p.drawRect(QRectF(17, 18, 1, 2.6));
}

void DrawRealEstate(QPainter& p) {
  House(p, 0.5, 16.5);
  // A sale board on its post at the front of the block.
  Outlined(p, Rect(18.6, 8, 20.4, 23), kPost, kDoor);
  Outlined(p, Rect(13.5, 6, 23.5, 12.5, 0.8), kBoard, kInk);
  p.setPen(QPen(kWhite, 1.2, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(15.5, 8.3), QPointF(21.5, 8.3));
  p.drawLine(QPointF(15.5, 10.3), QPointF(19.5, 10.3));
}

void DrawCarYard(QPainter& p) {
  // A line of pennants over the yard.
  p.setPen(QPen(kInk, 0.6));
  p.drawLine(QPointF(0.5, 3), QPointF(23.5, 3));
  const QColor flags[] = {kBoard, kGold, kBody, kBoard, kGold};
  for (int i = 0; i < 5; ++i) {
    QPainterPath flag;
    const double x = 1.5 + i * 4.5;
    flag.moveTo(x, 3);
    flag.lineTo(x + 3, 3);
    flag.lineTo(x + 1.5, 6.5);
    flag.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(flags[i]);
    p.drawPath(flag);
  }
  // The car, side on, facing left.
  QPainterPath body;
  body.moveTo(1, 17.5);
  body.lineTo(1, 14.5);
  body.quadTo(1, 13, 3, 12.8);
  body.lineTo(6.5, 12.3);
  body.lineTo(9.5, 8.8);
  body.quadTo(10.2, 8.2, 11.5, 8.2);
  body.lineTo(17, 8.2);
  body.quadTo(18, 8.2, 18.7, 9);
  body.lineTo(21.5, 12.4);
  body.quadTo(23, 12.8, 23, 14.5);
  body.lineTo(23, 17.5);
  body.closeSubpath();
  Outlined(p, body, kBody, kBodyLine);
  QPainterPath glass;
  glass.moveTo(8.5, 12.2);
  glass.lineTo(10.6, 9.8);
  glass.lineTo(13.7, 9.8);
  glass.lineTo(13.7, 12.2);
  glass.closeSubpath();
  glass.moveTo(15, 12.2);
  glass.lineTo(15, 9.8);
  glass.lineTo(17.6, 9.8);
  glass.lineTo(19.6, 12.2);
  glass.closeSubpath();
  Outlined(p, glass, kGlass, kBodyLine);
  for (double x : {6.0, 18.0}) {
    p.setPen(QPen(kInk, 0.8));
    p.setBrush(kTyre);
    p.drawEllipse(QPointF(x, 18), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(kHub);
    p.drawEllipse(QPointF(x, 18), 1.3, 1.3);
  }
  p.setPen(Qt::NoPen);
  p.setBrush(kGold);
  p.drawRoundedRect(QRectF(1.2, 13.8, 1.6, 1.3), 0.4, 0.4);  // headlight
}

using DrawFn = void (*)(QPainter&);
constexpr DrawFn kDrawings[] = {DrawHomeSecurity, DrawRealEstate, DrawCarYard};

}  // namespace

QPixmap TemplatePicture(std::int32_t code, int side) {
  if (code < 1 || code > 3 || side <= 0) return {};
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(side / kGrid, side / kGrid);
  kDrawings[code - 1](p);
  p.end();
  return QPixmap::fromImage(image);
}

}  // namespace cb
