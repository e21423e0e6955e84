// SPDX-License-Identifier: GPL-3.0-or-later
// Furniture and the things of the lounge and dining room.

#include <QLinearGradient>
#include <QRadialGradient>

#include <cmath>

#include "Assets.h"
#include "Drawings.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

const QRectF kCanvas(0, 0, kPictureWidth, kPictureHeight);

// A mountain sunset, as on a screen or in a painting: sky, far range, near hills.
void Landscape(QPainter& p, const QRectF& r, const QColor& skyTop, const QColor& skyLow, const QColor& far,
               const QColor& near, quint32 seed) {
  p.save();
  p.setClipRect(r);
  p.fillRect(r, Vertical(r, skyTop, skyLow));
  Rng rng(seed);
  for (int layer = 0; layer < 2; ++layer) {
    const QColor c = layer == 0 ? far : near;
    const double base = r.top() + r.height() * (layer == 0 ? 0.55 : 0.7);
    QPainterPath hills;
    hills.moveTo(r.bottomLeft());
    for (double x = r.left(); x <= r.right() + 1; x += r.width() / 40)
      hills.lineTo(x, base - r.height() * 0.16 * Fbm(x / r.width() * 4, layer * 3.0, 3, seed + layer));
    hills.lineTo(r.bottomRight());
    hills.closeSubpath();
    Fill(p, hills, Vertical(r, Tone(c, 1.15), Tone(c, 0.75)));
  }
  p.restore();
}

}  // namespace

void DrawTelevision(QPainter& p) {
  RoomBackdrop(p, kCanvas, 560, QColor(206, 200, 190), QColor(150, 112, 80), Floor::Boards);
  // Low cabinet with two doors.
  GroundShadow(p, QRectF(170, 540, 690, 50), 90);
  const QRectF cabinet(200, 468, 624, 86);
  Fill(p, Box(cabinet, 4), Vertical(cabinet, QColor(138, 100, 68), QColor(104, 72, 48)));
  p.setPen(QPen(QColor(70, 48, 32), 2));
  p.drawLine(QPointF(512, 476), QPointF(512, 546));
  p.drawLine(QPointF(356, 476), QPointF(356, 546));
  p.drawLine(QPointF(668, 476), QPointF(668, 546));
  p.fillRect(QRectF(200, 468, 624, 6), QColor(160, 122, 88));
  for (double x : {340.0, 372.0, 496.0, 528.0, 652.0, 684.0}) p.fillRect(QRectF(x - 2, 500, 4, 22), QColor(200, 200, 196));
  for (double x : {214.0, 798.0}) p.fillRect(QRectF(x, 554, 12, 14), QColor(60, 44, 30));
  // Stand, soundbar and the set itself.
  Fill(p, Box(QRectF(470, 420, 84, 44), 4), Vertical(QRectF(470, 420, 84, 44), QColor(60, 60, 64), QColor(30, 30, 32)));
  Fill(p, Box(QRectF(400, 456, 224, 12), 3), QColor(40, 40, 42));
  const QRectF set(236, 128, 552, 316);
  Fill(p, Box(set.adjusted(-4, 8, 4, 12), 6), QColor(0, 0, 0, 50));
  Fill(p, Box(set, 6), Vertical(set, QColor(46, 46, 50), QColor(18, 18, 20)));
  const QRectF screen = set.adjusted(10, 10, -10, -14);
  Landscape(p, screen, QColor(64, 96, 168), QColor(246, 172, 108), QColor(110, 90, 140), QColor(40, 70, 60), 7);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(255, 236, 180));
  p.drawEllipse(QPointF(640, 300), 26, 26);
  QLinearGradient glare(screen.topLeft(), screen.bottomRight());
  glare.setColorAt(0, QColor(255, 255, 255, 70));
  glare.setColorAt(0.35, QColor(255, 255, 255, 0));
  p.fillRect(screen, glare);
  p.fillRect(QRectF(506, 434, 12, 3), QColor(200, 40, 40));
  // A pot plant beside the cabinet.
  GroundShadow(p, QRectF(850, 600, 130, 26), 80);
  QPainterPath pot = Rounded({{868, 520, 4}, {952, 520, 4}, {940, 612, 6}, {880, 612, 6}});
  Fill(p, pot, Cylinder(QPointF(868, 0), QPointF(952, 0), QColor(214, 208, 196)));
  Rng rng(17);
  p.setPen(Qt::NoPen);
  for (int i = 0; i < 14; ++i) {
    const double angle = rng.Uniform(-2.6, -0.5), len = rng.Uniform(120, 220);
    const QPointF from(910, 522), to = from + QPointF(std::cos(angle) * len * 0.55, std::sin(angle) * len);
    QPainterPath leaf;
    const QPointF mid = (from + to) / 2, side(-(to - from).y() * 0.18, (to - from).x() * 0.18);
    leaf.moveTo(from);
    leaf.quadTo(mid + side, to);
    leaf.quadTo(mid - side, from);
    p.setBrush(Tone(QColor(62, 122, 70), rng.Uniform(0.7, 1.2)));
    p.drawPath(leaf);
  }
}

void DrawSofa(QPainter& p) {
  RoomBackdrop(p, kCanvas, 520, QColor(196, 206, 212), QColor(176, 158, 138), Floor::Carpet);
  // A framed print above, and a rug below.
  Fill(p, Box(QRectF(402, 70, 220, 150), 2), QColor(40, 40, 40));
  Landscape(p, QRectF(414, 82, 196, 126), QColor(150, 190, 210), QColor(230, 226, 200), QColor(120, 150, 160),
            QColor(90, 120, 90), 3);
  p.save();
  p.translate(512, 650);
  p.scale(1, 0.18);
  Fill(p, Box(QRectF(-470, -420, 940, 840), 420), QColor(226, 214, 190));
  p.restore();
  GroundShadow(p, QRectF(110, 600, 804, 60), 120);

  const QColor fabric(78, 84, 94);
  const QRectF back(160, 250, 704, 220);
  Fill(p, Box(back, 36), Vertical(back, Tone(fabric, 1.1), Tone(fabric, 0.8)));
  for (int i = 0; i < 3; ++i) {
    const QRectF c(186 + i * 220.0, 280, 212, 200);
    Fill(p, Box(c, 26), Vertical(c, Tone(fabric, 1.3), Tone(fabric, 0.95)));
  }
  const QRectF base(180, 520, 664, 86);
  Fill(p, Box(base, 16), Vertical(base, Tone(fabric, 0.95), Tone(fabric, 0.7)));
  for (int i = 0; i < 3; ++i) {
    const QRectF seat(196 + i * 212.0, 462, 208, 80);
    Fill(p, Box(seat, 20), Vertical(seat, Tone(fabric, 1.35), Tone(fabric, 0.9)));
  }
  for (double x : {120.0, 818.0}) {
    const QRectF arm(x, 340, 86, 266);
    QLinearGradient g(arm.topLeft(), arm.topRight());
    g.setColorAt(0, Tone(fabric, x < 500 ? 1.2 : 0.85));
    g.setColorAt(1, Tone(fabric, x < 500 ? 0.9 : 0.65));
    Fill(p, Box(arm, 36), g);
  }
  for (double x : {150.0, 860.0, 330.0, 680.0}) {
    QPainterPath leg = Rounded({{x - 8, 604, 2}, {x + 8, 604, 2}, {x + 5, 634, 2}, {x - 5, 634, 2}});
    Fill(p, leg, QColor(92, 64, 40));
  }
  // Scatter cushions, leaning a little.
  const struct { double x, angle; QColor colour; } cushions[] = {
      {270, -10, QColor(214, 160, 60)}, {760, 9, QColor(40, 132, 138)}, {690, 4, QColor(226, 220, 206)}};
  for (const auto& c : cushions) {
    p.save();
    p.translate(c.x, 420);
    p.rotate(c.angle);
    const QRectF r(-62, -62, 124, 124);
    QRadialGradient g(QPointF(-20, -24), 110);
    g.setColorAt(0, Tone(c.colour, 1.15));
    g.setColorAt(1, Tone(c.colour, 0.75));
    Fill(p, Rounded({{-66, -60, 30}, {66, -64, 30}, {62, 64, 30}, {-62, 60, 30}}), g);
    p.restore();
  }
}

void DrawPainting(QPainter& p) {
  RoomBackdrop(p, kCanvas, 690, QColor(58, 92, 88), QColor(110, 80, 56), Floor::Boards);
  const QRectF outer(202, 126, 620, 440);
  Fill(p, Box(outer.translated(10, 16), 4), QColor(0, 0, 0, 70));
  // Gilt moulding: four mitred rails, each shaded by the way it faces the light.
  const double w = 44;
  const QRectF inner = outer.adjusted(w, w, -w, -w);
  const QPointF o[4] = {outer.topLeft(), outer.topRight(), outer.bottomRight(), outer.bottomLeft()};
  const QPointF i[4] = {inner.topLeft(), inner.topRight(), inner.bottomRight(), inner.bottomLeft()};
  const double light[4] = {1.15, 0.8, 0.65, 1.0};
  for (int s = 0; s < 4; ++s) {
    QPainterPath rail;
    rail.moveTo(o[s]);
    rail.lineTo(o[(s + 1) % 4]);
    rail.lineTo(i[(s + 1) % 4]);
    rail.lineTo(i[s]);
    rail.closeSubpath();
    const QPointF mid = (o[s] + o[(s + 1) % 4]) / 2, in = (i[s] + i[(s + 1) % 4]) / 2;
    QLinearGradient g(mid, in);
    const QColor gold = Tone(QColor(212, 170, 84), light[s]);
    g.setColorAt(0, Tone(gold, 0.6));
    g.setColorAt(0.2, Tone(gold, 1.3));
    g.setColorAt(0.45, Tone(gold, 0.8));
    g.setColorAt(0.7, Tone(gold, 1.2));
    g.setColorAt(1, Tone(gold, 0.55));
    Fill(p, rail, g);
  }
  Landscape(p, inner, QColor(120, 160, 200), QColor(238, 226, 196), QColor(112, 120, 158), QColor(86, 118, 74), 5);
  const double ground = inner.top() + inner.height() * 0.78;
  p.fillRect(QRectF(inner.left(), ground, inner.width(), inner.bottom() - ground),
             Vertical(inner, QColor(200, 170, 90), QColor(150, 120, 60)));
  p.save();
  p.setClipRect(inner);
  Tree(p, QPointF(inner.left() + 120, ground + 10), 240, QColor(112, 128, 76), 41);
  Tree(p, QPointF(inner.left() + 380, ground + 20), 180, QColor(96, 116, 70), 42);
  // Brush marks over the whole canvas.
  Rng rng(43);
  for (int k = 0; k < 900; ++k) {
    const QPointF at(rng.Uniform(inner.left(), inner.right()), rng.Uniform(inner.top(), inner.bottom()));
    p.setPen(QPen(rng.Int(0, 1) ? QColor(255, 255, 240, 16) : QColor(40, 30, 20, 16), rng.Uniform(3, 6),
                  Qt::SolidLine, Qt::RoundCap));
    p.drawLine(at, at + QPointF(rng.Uniform(4, 10), rng.Uniform(-4, 4)));
  }
  p.restore();
  // Brass picture light and its glow on the wall.
  QRadialGradient glow(QPointF(512, 140), 380);
  glow.setColorAt(0, QColor(255, 240, 200, 60));
  glow.setColorAt(1, QColor(255, 240, 200, 0));
  p.fillRect(kCanvas, glow);
  Fill(p, Box(QRectF(402, 84, 220, 26), 12), Cylinder(QPointF(0, 84), QPointF(0, 110), QColor(190, 150, 80)));
  p.fillRect(QRectF(506, 110, 12, 22), QColor(150, 112, 60));
}

void DrawDiningTable(QPainter& p) {
  RoomBackdrop(p, kCanvas, 500, QColor(232, 224, 208), QColor(126, 90, 62), Floor::Boards);
  const QColor oak(196, 152, 100);
  // Pendant light.
  p.setPen(QPen(QColor(40, 40, 40), 2));
  p.drawLine(QPointF(512, 0), QPointF(512, 120));
  Fill(p, Rounded({{452, 180, 4}, {472, 130, 24}, {552, 130, 24}, {572, 180, 4}}), QColor(40, 44, 48));
  QRadialGradient bulb(QPointF(512, 182), 60);
  bulb.setColorAt(0, QColor(255, 244, 200, 200));
  bulb.setColorAt(1, QColor(255, 244, 200, 0));
  p.fillRect(QRectF(440, 170, 144, 40), bulb);
  GroundShadow(p, QRectF(150, 600, 724, 70), 110);
  // Three chairs behind the table.
  for (double x : {320.0, 512.0, 704.0}) {
    const QRectF back(x - 56, 260, 112, 150);
    Fill(p, Box(back, 10), Vertical(back, Tone(oak, 0.95), Tone(oak, 0.7)));
    for (double sx = x - 36; sx <= x + 36; sx += 24) p.fillRect(QRectF(sx - 5, 290, 10, 110), Tone(oak, 0.55));
  }
  // Table top in slight perspective, then its edge and legs.
  QPainterPath top;
  top.moveTo(250, 400);
  top.lineTo(774, 400);
  top.lineTo(820, 440);
  top.lineTo(204, 440);
  top.closeSubpath();
  Fill(p, top, Vertical(QRectF(0, 400, 1, 40), Tone(oak, 0.95), Tone(oak, 1.15)));
  const QRectF edge(204, 440, 616, 26);
  Fill(p, Box(edge, 3), Vertical(edge, Tone(oak, 0.9), Tone(oak, 0.65)));
  for (double x : {226.0, 798.0}) Fill(p, Box(QRectF(x - 13, 466, 26, 160), 3), Cylinder(QPointF(x - 13, 0), QPointF(x + 13, 0), oak));
  for (double x : {276.0, 748.0}) p.fillRect(QRectF(x - 10, 466, 20, 120), Tone(oak, 0.5));
  // Two chairs at the ends, seen from the side.
  for (int s : {-1, 1}) {
    const double cx = 512 + s * 388;
    const QRectF seat(cx - 62, 500, 124, 18);
    Fill(p, Box(seat, 4), Tone(oak, 0.9));
    const double backX = cx + s * 56;
    Fill(p, Box(QRectF(backX - 8, 330, 16, 290), 4), Cylinder(QPointF(backX - 8, 0), QPointF(backX + 8, 0), oak));
    Fill(p, Box(QRectF(cx - s * 56 - 7, 500, 14, 120), 3), Tone(oak, 0.8));
    for (double y : {350.0, 400.0, 450.0}) p.fillRect(QRectF(backX - 10, y, 20, 12), Tone(oak, 0.65));
  }
  // A vase of flowers in the middle.
  QPainterPath vase = Rounded({{492, 420, 4}, {532, 420, 4}, {546, 380, 18}, {528, 340, 4}, {496, 340, 4}, {478, 380, 18}});
  Fill(p, vase, Cylinder(QPointF(478, 0), QPointF(546, 0), QColor(60, 110, 150)));
  Rng rng(23);
  p.setPen(Qt::NoPen);
  for (int k = 0; k < 16; ++k) {
    const QPointF at(512 + rng.Uniform(-70, 70), 300 + rng.Uniform(-40, 30));
    p.setPen(QPen(QColor(70, 110, 60), 3));
    p.drawLine(QPointF(512, 342), at);
    p.setPen(Qt::NoPen);
    p.setBrush(k % 3 == 0 ? QColor(240, 220, 90) : k % 3 == 1 ? QColor(230, 120, 140) : QColor(250, 250, 245));
    p.drawEllipse(at, 13, 12);
  }
}

}  // namespace cb::assets
