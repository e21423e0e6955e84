// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dwelling.h"

#include <QRadialGradient>

#include <algorithm>
#include <cmath>

#include "Assets.h"

namespace cb::assets {
namespace {

void CoveringLines(QPainter& p, const QPainterPath& shape, const QRectF& r, Covering covering, const QColor& colour) {
  p.save();
  p.setClipPath(shape);
  if (covering == Covering::Tiles) {
    for (double y = r.bottom(), row = 0; y > r.top() - 16; y -= 16, ++row) {
      p.fillRect(QRectF(r.left(), y - 4, r.width(), 4), WithAlpha(Tone(colour, 0.55), 150));
      p.setPen(QPen(WithAlpha(Tone(colour, 0.6), 120), 1.5));
      for (double x = r.left() + std::fmod(row, 2) * 13; x < r.right(); x += 26) p.drawLine(QPointF(x, y - 16), QPointF(x, y - 4));
    }
  } else {
    for (double x = r.left(); x < r.right(); x += 10) {
      p.fillRect(QRectF(x, r.top(), 4, r.height()), WithAlpha(Tone(colour, 1.25), 90));
      p.fillRect(QRectF(x + 5, r.top(), 3, r.height()), WithAlpha(Tone(colour, 0.7), 90));
    }
  }
  p.restore();
}

QPainterPath Polygon(std::initializer_list<QPointF> points) {
  QPainterPath path;
  bool first = true;
  for (const QPointF& pt : points) {
    if (first)
      path.moveTo(pt);
    else
      path.lineTo(pt);
    first = false;
  }
  path.closeSubpath();
  return path;
}

}  // namespace

void WallFace(QPainter& p, const QPainterPath& shape, const QRectF& r, Cladding cladding, const QColor& colour,
              quint32 seed) {
  Fill(p, shape, Horizontal(r, Tone(colour, 1.06), Tone(colour, 0.92)));
  p.save();
  p.setClipPath(shape);
  Rng rng(seed);
  switch (cladding) {
    case Cladding::Brick:
      for (double y = r.bottom(), row = 0; y > r.top() - 13; y -= 13, ++row) {
        for (double x = r.left() - std::fmod(row, 2) * 18; x < r.right(); x += 36) {
          p.fillRect(QRectF(x + 1, y - 12, 34, 11), Tone(colour, rng.Uniform(0.82, 1.1)));
        }
      }
      break;
    case Cladding::Weatherboard:
      for (double y = r.bottom(); y > r.top() - 18; y -= 18) {
        p.fillRect(QRectF(r.left(), y - 18, r.width(), 18), Vertical(QRectF(0, y - 18, 1, 18), Tone(colour, 1.05), Tone(colour, 0.9)));
        p.fillRect(QRectF(r.left(), y - 2, r.width(), 2), WithAlpha(Tone(colour, 0.5), 140));
      }
      break;
    case Cladding::Render:
      for (int k = 0; k < 40; ++k) {
        const QPointF at(rng.Uniform(r.left(), r.right()), rng.Uniform(r.top(), r.bottom()));
        QRadialGradient g(at, rng.Uniform(30, 90));
        g.setColorAt(0, WithAlpha(Tone(colour, rng.Uniform(0.92, 1.06)), 60));
        g.setColorAt(1, WithAlpha(colour, 0));
        p.fillRect(r, g);
      }
      break;
    case Cladding::Panels:
      p.setPen(QPen(WithAlpha(Tone(colour, 0.6), 160), 2));
      for (double x = r.left() + 40; x < r.right(); x += 56) p.drawLine(QPointF(x, r.top()), QPointF(x, r.bottom()));
      break;
  }
  p.restore();
}

void EaveShadow(QPainter& p, double left, double right, double y, double depth) {
  p.fillRect(QRectF(left, y, right - left, depth), Vertical(QRectF(0, y, 1, depth), QColor(0, 0, 0, 90), QColor(0, 0, 0, 0)));
}

void Roof(QPainter& p, const RoofShape& roof, double left, double right, double eave, Cladding gableWall,
          const QColor& wallColour, const QColor& trim) {
  const double l = left - roof.overhang, r = right + roof.overhang, h = roof.height;
  const QColor c = roof.colour;
  const QRectF box(l, eave - h - 30, r - l, h + 40);
  switch (roof.kind) {
    case RoofKind::Hip: {
      const double inset = std::min(h * 1.2, (r - l) / 2 - 20);
      const QPainterPath face = Polygon({{l, eave}, {r, eave}, {r - inset, eave - h}, {l + inset, eave - h}});
      Fill(p, face, Vertical(box, Tone(c, 1.15), Tone(c, 0.85)));
      CoveringLines(p, face, box, roof.covering, c);
      Fill(p, Polygon({{l, eave}, {l + inset, eave - h}, {l + inset * 1.35, eave}}), WithAlpha(QColor(255, 255, 255), 30));
      Fill(p, Polygon({{r, eave}, {r - inset, eave - h}, {r - inset * 1.35, eave}}), WithAlpha(QColor(0, 0, 0), 45));
      p.fillRect(QRectF(l + inset - 2, eave - h - 4, r - l - 2 * inset + 4, 6), Tone(c, 0.7));
      break;
    }
    case RoofKind::Gable: {
      const double mid = (l + r) / 2;
      const QPainterPath wall = Polygon({{left, eave}, {mid, eave - h + 10}, {right, eave}});
      WallFace(p, wall, QRectF(left, eave - h, right - left, h), gableWall, wallColour, 5);
      Fill(p, Polygon({{mid - 16, eave - h * 0.55}, {mid + 16, eave - h * 0.55}, {mid, eave - h * 0.7}}), Tone(trim, 0.8));
      const double t = 28;
      const QPainterPath band = Polygon({{l, eave + 4}, {mid, eave - h}, {r, eave + 4}, {r, eave + 4 - t * 0.6}, {mid, eave - h - t}, {l, eave + 4 - t * 0.6}});
      Fill(p, band, Vertical(box, Tone(c, 1.1), Tone(c, 0.8)));
      CoveringLines(p, band, box, roof.covering, c);
      p.setPen(QPen(trim, 7, Qt::SolidLine, Qt::RoundCap));
      p.drawLine(QPointF(l, eave + 4), QPointF(mid, eave - h));
      p.drawLine(QPointF(mid, eave - h), QPointF(r, eave + 4));
      break;
    }
    case RoofKind::Flat:
      p.fillRect(QRectF(l + roof.overhang / 2, eave - 30, r - l - roof.overhang, 32), Vertical(QRectF(0, eave - 30, 1, 32), Tone(c, 1.2), Tone(c, 0.85)));
      p.fillRect(QRectF(l + roof.overhang / 2 - 4, eave - 34, r - l - roof.overhang + 8, 6), Tone(c, 1.4));
      break;
    case RoofKind::Skillion: {
      const double slope = h / (r - l);
      const QPainterPath wall = Polygon({{left, eave}, {left, eave - slope * roof.overhang}, {right, eave - slope * (right - l)}, {right, eave}});
      WallFace(p, wall, QRectF(left, eave - h, right - left, h), gableWall, wallColour, 6);
      const QPainterPath band = Polygon({{l, eave}, {r, eave - h}, {r, eave - h - 22}, {l, eave - 22}});
      Fill(p, band, Vertical(box, Tone(c, 1.2), Tone(c, 0.8)));
      break;
    }
  }
  if (roof.kind == RoofKind::Hip || roof.kind == RoofKind::Gable)
    p.fillRect(QRectF(l, eave - 2, r - l, 10), Vertical(QRectF(0, eave - 2, 1, 10), Tone(trim, 1.05), Tone(trim, 0.8)));
}

void Window(QPainter& p, const QRectF& r, const QColor& trim, int across, int down, bool arched) {
  const auto shape = [arched](const QRectF& box) {
    QPainterPath path;
    if (!arched) {
      path.addRect(box);
      return path;
    }
    path.moveTo(box.bottomLeft());
    path.lineTo(box.left(), box.top() + box.width() / 2);
    path.arcTo(QRectF(box.left(), box.top(), box.width(), box.width()), 180, -180);
    path.lineTo(box.bottomRight());
    path.closeSubpath();
    return path;
  };
  Fill(p, shape(r.adjusted(-8, -8, 8, 8)), Tone(trim, 0.95));
  Fill(p, shape(r), Vertical(r, QColor(176, 204, 228), QColor(60, 80, 100)));
  p.save();
  p.setClipPath(shape(r));
  QLinearGradient shine(r.topLeft(), r.bottomRight());
  shine.setColorAt(0.3, QColor(255, 255, 255, 0));
  shine.setColorAt(0.42, QColor(255, 255, 255, 80));
  shine.setColorAt(0.55, QColor(255, 255, 255, 0));
  p.fillRect(r, shine);
  p.setPen(QPen(trim, 5));
  for (int k = 1; k < across; ++k) p.drawLine(QPointF(r.left() + r.width() * k / across, r.top()), QPointF(r.left() + r.width() * k / across, r.bottom()));
  for (int k = 1; k < down; ++k) p.drawLine(QPointF(r.left(), r.top() + r.height() * k / down), QPointF(r.right(), r.top() + r.height() * k / down));
  p.restore();
  p.fillRect(QRectF(r.left() - 14, r.bottom() + 6, r.width() + 28, 9), Tone(trim, 0.8));
}

void Door(QPainter& p, const QRectF& r, const QColor& colour, const QColor& trim) {
  p.fillRect(r.adjusted(-10, -10, 10, 0), trim);
  p.fillRect(r, Horizontal(r, Tone(colour, 1.1), Tone(colour, 0.85)));
  p.setPen(QPen(Tone(colour, 0.6), 2));
  p.setBrush(Qt::NoBrush);
  const double w = r.width() / 2 - 12, h = r.height() / 2 - 16;
  for (int k = 0; k < 4; ++k)
    p.drawRect(QRectF(r.left() + 8 + (k % 2) * (w + 8), r.top() + 10 + (k / 2) * (h + 12), w, h));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(220, 180, 80));
  p.drawEllipse(QPointF(r.right() - 12, r.center().y() + 6), 4, 4);
  p.fillRect(QRectF(r.left() - 24, r.bottom(), r.width() + 48, 10), QColor(170, 166, 160));
  Fill(p, Box(QRectF(r.right() + 16, r.top() + 10, 12, 20), 4), QColor(250, 230, 170));
}

void GarageDoor(QPainter& p, const QRectF& r, const QColor& colour) {
  p.fillRect(r.adjusted(-6, -6, 6, 0), Tone(colour, 0.7));
  p.fillRect(r, Vertical(r, Tone(colour, 0.9), Tone(colour, 1.08)));
  for (double y = r.top() + 12; y < r.bottom(); y += 14) {
    p.fillRect(QRectF(r.left(), y, r.width(), 2), WithAlpha(Tone(colour, 0.6), 160));
    p.fillRect(QRectF(r.left(), y + 2, r.width(), 1), WithAlpha(Tone(colour, 1.3), 160));
  }
  p.fillRect(QRectF(r.left(), r.top(), r.width(), 10), QColor(0, 0, 0, 60));
}

void Suburb(QPainter& p, double horizon, const QColor& skyTop, const QColor& skyLow, const QColor& lawn, quint32 seed) {
  const QRectF canvas(0, 0, kPictureWidth, kPictureHeight);
  Outdoors(p, canvas, horizon, skyTop, skyLow, lawn, seed);
  Rng rng(seed + 1);
  for (int k = 0; k < 9; ++k)
    Tree(p, QPointF(rng.Uniform(0, canvas.width()), horizon + 4), rng.Uniform(150, 230),
         Tone(QColor(70, 110, 70), rng.Uniform(0.75, 1.0)), seed + 10 + k);
  p.fillRect(QRectF(0, horizon, canvas.width(), 8), Tone(lawn, 0.75));
}

void Paving(QPainter& p, double topLeft, double topRight, double top, double bottomLeft, double bottomRight,
            const QColor& colour) {
  QPainterPath path;
  path.moveTo(topLeft, top);
  path.lineTo(topRight, top);
  path.lineTo(bottomRight, kPictureHeight);
  path.lineTo(bottomLeft, kPictureHeight);
  path.closeSubpath();
  Fill(p, path, Vertical(QRectF(0, top, 1, kPictureHeight - top), Tone(colour, 0.9), Tone(colour, 1.1)));
  p.save();
  p.setClipPath(path);
  p.setPen(QPen(Tone(colour, 0.75), 2));
  for (double y = top + 30; y < kPictureHeight; y *= 1.12) p.drawLine(QPointF(0, y), QPointF(kPictureWidth, y));
  p.restore();
}

void PicketFence(QPainter& p, double left, double right, double base, double height, const QColor& colour) {
  p.fillRect(QRectF(left, base - height * 0.75, right - left, 8), Tone(colour, 0.8));
  p.fillRect(QRectF(left, base - height * 0.3, right - left, 8), Tone(colour, 0.8));
  for (double x = left; x < right; x += 24) {
    Fill(p, Polygon({{x, base}, {x, base - height + 8}, {x + 7, base - height}, {x + 14, base - height + 8}, {x + 14, base}}),
         Horizontal(QRectF(x, 0, 14, 1), colour, Tone(colour, 0.85)));
  }
  p.fillRect(QRectF(left, base, right - left, 6), QColor(0, 0, 0, 50));
}

void Cypress(QPainter& p, QPointF base, double height) {
  QPainterPath shape;
  const double w = height * 0.13;
  shape.moveTo(base.x(), base.y() - height);
  shape.cubicTo(base.x() + w * 1.2, base.y() - height * 0.7, base.x() + w, base.y() - height * 0.1, base.x(), base.y());
  shape.cubicTo(base.x() - w, base.y() - height * 0.1, base.x() - w * 1.2, base.y() - height * 0.7, base.x(), base.y() - height);
  Fill(p, shape, Horizontal(QRectF(base.x() - w, 0, 2 * w, 1), QColor(64, 100, 56), QColor(28, 52, 30)));
  Rng rng(static_cast<quint32>(base.x()));
  p.save();
  p.setClipPath(shape);
  for (int k = 0; k < 60; ++k) {
    p.setBrush(QColor(90, 130, 70, 70));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(base.x() + rng.Uniform(-w, w * 0.3), base.y() - rng.Uniform(0, height)), w * 0.3, w * 0.15);
  }
  p.restore();
}

void Palm(QPainter& p, QPointF base, double height, double lean) {
  const QPointF top = base + QPointF(lean, -height);
  QPainterPath trunk;
  trunk.moveTo(base);
  trunk.quadTo(base + QPointF(lean * 0.2, -height * 0.5), top);
  p.setPen(QPen(QColor(150, 120, 90), 18, Qt::SolidLine, Qt::RoundCap));
  p.setBrush(Qt::NoBrush);
  p.drawPath(trunk);
  p.setPen(QPen(QColor(110, 86, 64), 3));
  for (double t = 0.05; t < 1; t += 0.07) {
    const QPointF at = trunk.pointAtPercent(t);
    p.drawLine(at + QPointF(-8, 0), at + QPointF(8, 0));
  }
  for (int k = 0; k < 9; ++k) {
    const double a = -M_PI + k * M_PI / 8;
    const QPointF tip = top + QPointF(std::cos(a) * height * 0.45, std::sin(a) * height * 0.18 + height * 0.12);
    QPainterPath frond;
    frond.moveTo(top);
    frond.quadTo(top + (tip - top) * 0.5 + QPointF(0, -height * 0.12), tip);
    frond.quadTo(top + (tip - top) * 0.5 + QPointF(0, -height * 0.04), top);
    Fill(p, frond, Tone(QColor(60, 130, 60), 0.8 + 0.05 * (k % 4)));
  }
}

}  // namespace cb::assets
