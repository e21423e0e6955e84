// SPDX-License-Identifier: GPL-3.0-or-later
// Small valuables, the guitar and the bicycle.

#include <QConicalGradient>
#include <QRadialGradient>

#include <cmath>

#include "Assets.h"
#include "Drawings.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

const QRectF kCanvas(0, 0, kPictureWidth, kPictureHeight);

QPointF Lerp(QPointF a, QPointF b, double t) { return a + (b - a) * t; }

// A sphere lit from the upper left, such as a pearl.
void Sphere(QPainter& p, QPointF c, double r, const QColor& base) {
  QRadialGradient g(c - QPointF(r * 0.35, r * 0.4), r * 1.3);
  g.setColorAt(0, QColor(255, 255, 255));
  g.setColorAt(0.25, Tone(base, 1.05));
  g.setColorAt(0.8, Tone(base, 0.75));
  g.setColorAt(1, Tone(base, 0.5));
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawEllipse(c, r, r);
}

void Spokes(QPainter& p, QPointF hub, double r) {
  p.setPen(QPen(QColor(200, 200, 204), 1.5));
  for (int k = 0; k < 32; ++k) {
    const double a = k * 2 * M_PI / 32, b = a + (k % 2 ? 0.5 : -0.5);
    p.drawLine(hub + QPointF(std::cos(b) * 10, std::sin(b) * 10), hub + QPointF(std::cos(a) * r, std::sin(a) * r));
  }
}

}  // namespace

void DrawLaptop(QPainter& p) {
  p.fillRect(kCanvas, Vertical(kCanvas, QColor(222, 226, 230), QColor(196, 200, 206)));
  const QRectF desk(0, 470, kCanvas.width(), 298);
  p.fillRect(desk, Vertical(desk, QColor(170, 128, 86), QColor(136, 96, 62)));
  p.setPen(QPen(QColor(120, 84, 54, 90), 2));
  for (double y = 490; y < 768; y += 22) p.drawLine(QPointF(0, y), QPointF(kCanvas.width(), y + 6));
  GroundShadow(p, QRectF(200, 610, 640, 70), 120);
  // Lid: aluminium rim, black bezel, and a desktop on the screen.
  const QRectF lid(272, 150, 480, 330);
  Fill(p, Box(lid, 14), QColor(176, 180, 186));
  Fill(p, Box(lid.adjusted(6, 6, -6, -4), 10), QColor(20, 20, 22));
  const QRectF screen = lid.adjusted(20, 20, -20, -20);
  QLinearGradient wall(screen.topLeft(), screen.bottomRight());
  wall.setColorAt(0, QColor(70, 40, 140));
  wall.setColorAt(0.5, QColor(40, 110, 200));
  wall.setColorAt(1, QColor(240, 140, 120));
  p.fillRect(screen, wall);
  Fill(p, Box(QRectF(320, 200, 230, 160), 6), QColor(250, 250, 250, 235));
  p.fillRect(QRectF(320, 200, 230, 22), QColor(226, 228, 232));
  p.setPen(QPen(QColor(150, 156, 166), 3));
  for (double y = 240; y < 350; y += 16) p.drawLine(QPointF(336, y), QPointF(336 + (y < 300 ? 190 : 120), y));
  p.fillRect(QRectF(screen.left(), screen.bottom() - 18, screen.width(), 18), QColor(255, 255, 255, 70));
  // Keyboard deck in perspective, the keys following it.
  QPainterPath deck;
  deck.moveTo(262, 480);
  deck.lineTo(762, 480);
  deck.lineTo(822, 640);
  deck.lineTo(202, 640);
  deck.closeSubpath();
  Fill(p, deck, Vertical(QRectF(0, 480, 1, 160), QColor(196, 200, 206), QColor(214, 218, 222)));
  Fill(p, Box(QRectF(202, 638, 620, 12), 5), QColor(140, 144, 150));
  const QPointF tl(292, 492), tr(732, 492), bl(258, 574), br(766, 574);
  p.setPen(Qt::NoPen);
  for (int row = 0; row < 5; ++row) {
    for (int col = 0; col < 14; ++col) {
      const double t0 = row / 5.0 + 0.02, t1 = (row + 1) / 5.0 - 0.02;
      const double s0 = col / 14.0 + 0.008, s1 = (col + 1) / 14.0 - 0.008;
      QPolygonF key;
      key << Lerp(Lerp(tl, bl, t0), Lerp(tr, br, t0), s0) << Lerp(Lerp(tl, bl, t0), Lerp(tr, br, t0), s1)
          << Lerp(Lerp(tl, bl, t1), Lerp(tr, br, t1), s1) << Lerp(Lerp(tl, bl, t1), Lerp(tr, br, t1), s0);
      p.setBrush(QColor(38, 40, 44));
      p.drawPolygon(key);
    }
  }
  QPolygonF pad;
  pad << QPointF(430, 586) << QPointF(594, 586) << QPointF(600, 628) << QPointF(424, 628);
  p.setBrush(QColor(186, 190, 196));
  p.drawPolygon(pad);
  // A coffee mug beside it.
  GroundShadow(p, QRectF(850, 600, 130, 30), 110);
  Fill(p, Box(QRectF(860, 500, 96, 116), 10), Cylinder(QPointF(860, 0), QPointF(956, 0), QColor(210, 70, 60)));
  p.setPen(QPen(QColor(180, 60, 52), 12));
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(QPointF(962, 556), 22, 28);
  Fill(p, Box(QRectF(864, 496, 88, 14), 7), QColor(70, 40, 26));
}

void DrawCamera(QPainter& p) {
  StudioBackdrop(p, kCanvas, QColor(238, 240, 242), QColor(172, 176, 182));
  GroundShadow(p, QRectF(220, 580, 600, 60), 150);
  const QColor body(42, 42, 44);
  // Prism hump with the hot shoe, then the body and its grip.
  Fill(p, Rounded({{420, 250, 4}, {604, 250, 4}, {580, 170, 16}, {444, 170, 16}}), Vertical(QRectF(0, 170, 1, 80), Tone(body, 1.4), body));
  p.fillRect(QRectF(478, 158, 68, 14), QColor(90, 90, 94));
  const QRectF shell(242, 240, 540, 340);
  Fill(p, Box(shell, 40), Vertical(shell, Tone(body, 1.3), Tone(body, 0.7)));
  const QRectF grip(242, 260, 130, 320);
  Fill(p, Box(grip, 50), Horizontal(grip, Tone(body, 0.9), Tone(body, 1.2)));
  Rng rng(5);
  p.setPen(Qt::NoPen);
  for (int k = 0; k < 400; ++k) {
    p.setBrush(QColor(0, 0, 0, 60));
    p.drawEllipse(QPointF(rng.Uniform(256, 360), rng.Uniform(290, 560)), 1.6, 1.6);
  }
  Fill(p, Box(QRectF(270, 214, 80, 30), 12), QColor(30, 30, 32));
  Fill(p, Box(QRectF(286, 206, 50, 14), 6), QColor(120, 120, 124));
  p.fillRect(QRectF(490, 196, 44, 12), QColor(200, 200, 204));
  // The lens: barrel, ridged focus ring, front element with its coloured sheen.
  const QPointF c(548, 420);
  for (const auto& [r, tone] : {std::pair{158.0, 0.6}, std::pair{150.0, 1.0}}) {
    QRadialGradient g(c - QPointF(40, 40), r * 1.4);
    g.setColorAt(0, Tone(body, 1.8 * tone));
    g.setColorAt(1, Tone(body, 0.6 * tone));
    p.setBrush(g);
    p.drawEllipse(c, r, r);
  }
  p.setPen(QPen(QColor(20, 20, 22), 3));
  for (int k = 0; k < 72; ++k) {
    const double a = k * 2 * M_PI / 72;
    p.drawLine(c + QPointF(std::cos(a) * 130, std::sin(a) * 130), c + QPointF(std::cos(a) * 148, std::sin(a) * 148));
  }
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(20, 20, 22));
  p.drawEllipse(c, 124, 124);
  p.setBrush(QColor(200, 30, 30));
  p.drawEllipse(c + QPointF(0, -138), 4, 4);
  QRadialGradient glass(c + QPointF(-20, -24), 110);
  glass.setColorAt(0, QColor(90, 110, 170));
  glass.setColorAt(0.5, QColor(30, 30, 60));
  glass.setColorAt(0.85, QColor(60, 30, 70));
  glass.setColorAt(1, QColor(10, 10, 14));
  p.setBrush(glass);
  p.drawEllipse(c, 100, 100);
  p.setBrush(QColor(255, 255, 255, 150));
  p.drawEllipse(c + QPointF(-38, -42), 22, 12);
  p.setBrush(QColor(120, 220, 160, 60));
  p.drawEllipse(c + QPointF(30, 34), 40, 24);
}

void DrawJewellery(QPainter& p) {
  p.fillRect(kCanvas, QColor(24, 28, 56));
  QRadialGradient light(QPointF(420, 300), 620);
  light.setColorAt(0, QColor(70, 76, 130));
  light.setColorAt(1, QColor(12, 14, 30));
  p.fillRect(kCanvas, light);
  // The strand of pearls, lying in a loose loop, each with its shadow.
  const int count = 46;
  for (int pass = 0; pass < 2; ++pass) {
    for (int k = 0; k < count; ++k) {
      const double t = (k + 0.5) / count * 2 * M_PI;
      const QPointF at(430 + 270 * std::sin(t), 330 - 190 * std::cos(t) + 60 * std::sin(t * 2) * 0.3);
      if (pass == 0) {
        GroundShadow(p, QRectF(at.x() - 8, at.y() + 4, 36, 20), 140);
      } else {
        Sphere(p, at, 18, QColor(236, 226, 220));
      }
    }
  }
  Fill(p, Box(QRectF(416, 126, 30, 20), 6), Vertical(QRectF(0, 126, 1, 20), QColor(250, 220, 130), QColor(170, 120, 40)));
  // The ring, a gold band seen from above at an angle, with its stone.
  const QPointF ring(760, 560);
  GroundShadow(p, QRectF(650, 570, 240, 70), 160);
  QPainterPath band;
  band.addEllipse(ring, 110, 62);
  QPainterPath hole;
  hole.addEllipse(ring + QPointF(0, -6), 88, 44);
  band = band.subtracted(hole);
  QConicalGradient gold(ring, 45);
  gold.setColorAt(0, QColor(255, 230, 150));
  gold.setColorAt(0.25, QColor(190, 140, 50));
  gold.setColorAt(0.5, QColor(250, 210, 110));
  gold.setColorAt(0.75, QColor(150, 100, 30));
  gold.setColorAt(1, QColor(255, 230, 150));
  Fill(p, band, gold);
  const QPointF stone = ring + QPointF(0, -62);
  Fill(p, Rounded({{stone.x() - 26, stone.y() + 6, 2}, {stone.x() + 26, stone.y() + 6, 2}, {stone.x() + 18, stone.y() + 20, 2}, {stone.x() - 18, stone.y() + 20, 2}}), QColor(200, 160, 70));
  const QPointF facets[] = {{-34, 0}, {-18, -20}, {18, -20}, {34, 0}, {0, 34}};
  for (int f = 0; f < 5; ++f) {
    QPolygonF tri;
    tri << stone << stone + facets[f] << stone + facets[(f + 1) % 5];
    p.setBrush(f % 2 ? QColor(200, 220, 255) : QColor(250, 252, 255));
    p.setPen(QPen(QColor(160, 180, 220), 1));
    p.drawPolygon(tri);
  }
  p.setPen(QPen(QColor(255, 255, 255, 220), 2));
  p.drawLine(stone + QPointF(-22, -34), stone + QPointF(-6, -18));
  p.drawLine(stone + QPointF(-22, -18), stone + QPointF(-6, -34));
}

void DrawWatch(QPainter& p) {
  StudioBackdrop(p, kCanvas, QColor(232, 222, 206), QColor(160, 140, 116));
  const QPointF c(512, 384);
  const QColor leather(120, 72, 40);
  // Strap above and below, stitched.
  for (const QRectF& strap : {QRectF(437, -10, 150, 250), QRectF(437, 528, 150, 260)}) {
    Fill(p, Box(strap, 16), Horizontal(strap, Tone(leather, 0.8), Tone(leather, 1.15)));
    p.setPen(QPen(QColor(230, 210, 180), 2, Qt::DashLine));
    p.drawLine(QPointF(strap.left() + 12, strap.top()), QPointF(strap.left() + 12, strap.bottom()));
    p.drawLine(QPointF(strap.right() - 12, strap.top()), QPointF(strap.right() - 12, strap.bottom()));
  }
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(60, 34, 20));
  for (double y = 640; y < 760; y += 40) p.drawEllipse(QPointF(512, y), 6, 6);
  GroundShadow(p, QRectF(330, 420, 380, 160), 110);
  // Case with lugs and crown, bezel, then the blue sunburst dial.
  for (double sx : {-1.0, 1.0})
    for (double sy : {-1.0, 1.0}) Fill(p, Box(QRectF(c.x() + sx * 62 - 16, c.y() + sy * 170 - 30, 32, 60), 8), QColor(190, 192, 196));
  Fill(p, Box(QRectF(c.x() + 168, c.y() - 20, 30, 40), 6), Cylinder(QPointF(0, c.y() - 20), QPointF(0, c.y() + 20), QColor(200, 202, 206)));
  QConicalGradient steel(c, 30);
  steel.setColorAt(0, QColor(250, 250, 252));
  steel.setColorAt(0.25, QColor(140, 142, 148));
  steel.setColorAt(0.5, QColor(236, 238, 240));
  steel.setColorAt(0.75, QColor(120, 122, 128));
  steel.setColorAt(1, QColor(250, 250, 252));
  p.setBrush(steel);
  p.drawEllipse(c, 172, 172);
  p.setBrush(QColor(70, 72, 78));
  p.drawEllipse(c, 146, 146);
  QConicalGradient dial(c, 0);
  for (int k = 0; k <= 8; ++k) dial.setColorAt(k / 8.0, k % 2 ? QColor(26, 52, 104) : QColor(44, 82, 150));
  p.setBrush(dial);
  p.drawEllipse(c, 140, 140);
  for (int h = 0; h < 60; ++h) {
    p.save();
    p.translate(c);
    p.rotate(h * 6);
    if (h % 5 == 0)
      p.fillRect(QRectF(h == 0 ? -8 : -4, -130, h == 0 ? 16 : 8, 28), QColor(236, 238, 242));
    else
      p.fillRect(QRectF(-1, -132, 2, 8), QColor(200, 210, 230));
    p.restore();
  }
  Fill(p, Box(QRectF(c.x() + 84, c.y() - 12, 30, 24), 2), QColor(250, 250, 250));
  const struct { double angle, length, width; QColor colour; } hands[] = {
      {-60, 80, 12, QColor(236, 238, 242)}, {60, 118, 8, QColor(236, 238, 242)}, {160, 126, 3, QColor(220, 50, 40)}};
  for (const auto& hand : hands) {
    p.save();
    p.translate(c);
    p.rotate(hand.angle);
    Fill(p, Rounded({{-hand.width / 2, 18, 2}, {hand.width / 2, 18, 2}, {hand.width / 4, -hand.length, 2}, {-hand.width / 4, -hand.length, 2}}), hand.colour);
    p.restore();
  }
  p.setBrush(QColor(200, 202, 206));
  p.drawEllipse(c, 9, 9);
  QLinearGradient glass(c + QPointF(-140, -140), c + QPointF(140, 140));
  glass.setColorAt(0.2, QColor(255, 255, 255, 80));
  glass.setColorAt(0.42, QColor(255, 255, 255, 0));
  p.setBrush(glass);
  p.drawEllipse(c, 140, 140);
}

void DrawGuitar(QPainter& p) {
  RoomBackdrop(p, kCanvas, 640, QColor(214, 196, 170), QColor(120, 86, 60), Floor::Boards);
  GroundShadow(p, QRectF(560, 620, 220, 40), 150);
  // Leaning against the wall: neck and head, then the body over the neck's heel.
  p.save();
  p.translate(600, 460);
  p.rotate(-20);
  p.scale(0.68, 0.68);
  const QColor rosewood(58, 34, 24);
  Fill(p, Rounded({{-30, -120, 0}, {30, -120, 0}, {24, -560, 0}, {-24, -560, 0}}), rosewood);
  p.setPen(QPen(QColor(200, 200, 196), 3));
  for (int f = 1; f < 15; ++f) {
    const double y = -560 + 440 * (1 - std::pow(0.944, f)) / (1 - std::pow(0.944, 15));
    p.drawLine(QPointF(-25, y), QPointF(25, y));
  }
  Fill(p, Rounded({{-24, -560, 4}, {24, -560, 4}, {40, -690, 14}, {-40, -690, 14}}), QColor(30, 22, 18));
  p.setPen(Qt::NoPen);
  for (int k = 0; k < 3; ++k)
    for (double s : {-1.0, 1.0}) {
      p.setBrush(QColor(210, 200, 170));
      p.drawEllipse(QPointF(s * 54, -600 - k * 32), 12, 8);
    }
  QPainterPath body;
  body.moveTo(0, -160);
  body.cubicTo(120, -170, 140, -60, 100, 0);
  body.cubicTo(190, 50, 200, 260, 0, 280);
  body.cubicTo(-200, 260, -190, 50, -100, 0);
  body.cubicTo(-140, -60, -120, -170, 0, -160);
  QRadialGradient burst(QPointF(-10, 60), 230);
  burst.setColorAt(0, QColor(236, 196, 130));
  burst.setColorAt(0.6, QColor(214, 160, 90));
  burst.setColorAt(0.85, QColor(140, 70, 30));
  burst.setColorAt(1, QColor(60, 26, 12));
  Fill(p, body, burst);
  p.setPen(QPen(QColor(240, 232, 214), 4));
  p.setBrush(Qt::NoBrush);
  p.drawPath(body);
  p.setPen(QPen(QColor(40, 24, 16), 6));
  p.drawEllipse(QPointF(0, -20), 54, 54);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(22, 14, 10));
  p.drawEllipse(QPointF(0, -20), 46, 46);
  Fill(p, Box(QRectF(-60, 170, 120, 26), 8), rosewood);
  p.setPen(QPen(QColor(230, 226, 210), 1.5));
  for (int s = 0; s < 6; ++s) {
    const double x = -15 + s * 6;
    p.drawLine(QPointF(x * 1.6, 180), QPointF(x, -560));
  }
  p.restore();
}

void DrawBicycle(QPainter& p) {
  Outdoors(p, kCanvas, 420, QColor(120, 170, 226), QColor(214, 230, 240), QColor(176, 170, 160), 71);
  Tree(p, QPointF(120, 430), 300, QColor(70, 120, 60), 72);
  Tree(p, QPointF(900, 430), 260, QColor(80, 126, 64), 73);
  for (double x = 0; x < kCanvas.width(); x += 70) Shrub(p, QPointF(x, 432), 130, QColor(64, 110, 56), 74 + int(x));
  p.fillRect(QRectF(0, 420, kCanvas.width(), 12), QColor(150, 146, 140));
  GroundShadow(p, QRectF(120, 650, 800, 40), 130);
  const QPointF rear(290, 520), front(738, 520), crank(500, 540), seat(466, 330), head(692, 334), headLow(708, 392);
  for (const QPointF& hub : {rear, front}) {
    p.setPen(QPen(QColor(24, 24, 26), 16));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(hub, 142, 142);
    p.setPen(QPen(QColor(170, 172, 176), 6));
    p.drawEllipse(hub, 130, 130);
    Spokes(p, hub, 128);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(140, 140, 144));
    p.drawEllipse(hub, 12, 12);
  }
  // Drive: chain, rear cog, chainring and crank.
  p.setPen(QPen(QColor(70, 70, 74), 4));
  p.drawLine(rear + QPointF(0, -22), crank + QPointF(0, -48));
  p.drawLine(rear + QPointF(0, 22), crank + QPointF(0, 48));
  p.setPen(QPen(QColor(110, 110, 116), 6));
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(rear, 20, 20);
  p.drawEllipse(crank, 46, 46);
  const QColor paint(28, 74, 160);
  const auto tube = [&p, &paint](QPointF a, QPointF b, double w) {
    p.setPen(QPen(Tone(paint, 0.7), w, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(a, b);
    p.setPen(QPen(Tone(paint, 1.4), w * 0.35, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(a + QPointF(0, -w * 0.2), b + QPointF(0, -w * 0.2));
  };
  tube(crank, rear, 12);
  tube(seat, rear, 11);
  tube(crank, seat, 16);
  tube(seat, head, 16);
  tube(crank, headLow, 20);
  tube(head, headLow, 20);
  tube(headLow, front, 12);
  p.setPen(QPen(QColor(40, 40, 44), 10, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(crank, crank + QPointF(40, 60));
  p.drawLine(QPointF(crank.x() + 28, 606), QPointF(crank.x() + 58, 606));
  // Seat post and saddle; stem and drop bars.
  p.setPen(QPen(QColor(170, 172, 176), 10));
  p.drawLine(seat, seat + QPointF(-8, -44));
  Fill(p, Rounded({{398, 276, 10}, {520, 282, 14}, {500, 300, 8}, {410, 296, 8}}), QColor(30, 30, 32));
  p.setPen(QPen(QColor(40, 40, 44), 12, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(head, head + QPointF(30, -30));
  QPainterPath bars;
  bars.moveTo(head + QPointF(30, -30));
  bars.cubicTo(head + QPointF(90, -36), head + QPointF(96, 10), head + QPointF(60, 30));
  p.setBrush(Qt::NoBrush);
  p.drawPath(bars);
}

}  // namespace cb::assets
