// SPDX-License-Identifier: GPL-3.0-or-later
// Kitchen and laundry appliances, and the tools of the garage.

#include <QRadialGradient>

#include <algorithm>
#include <cmath>

#include "Assets.h"
#include "Drawings.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

const QRectF kCanvas(0, 0, kPictureWidth, kPictureHeight);

// Tiled splashback above a stone bench at `benchY`, cupboard doors below it.
void Kitchen(QPainter& p, double benchY, const QColor& tile, const QColor& cupboard) {
  p.fillRect(kCanvas, Vertical(kCanvas, Tone(tile, 1.02), Tone(tile, 0.9)));
  p.setPen(QPen(Tone(tile, 0.8), 2));
  // Subway tiles: each course offset by half a tile.
  for (int row = 0; row * 40 - 10 < benchY; ++row) {
    const double y = row * 40 - 10;
    p.drawLine(QPointF(0, y), QPointF(kCanvas.width(), y));
    for (double x = (row % 2) * 40; x < kCanvas.width(); x += 80) p.drawLine(QPointF(x, y), QPointF(x, std::min(y + 40, benchY)));
  }
  const QRectF bench(0, benchY, kCanvas.width(), 26);
  p.fillRect(bench, Vertical(bench, QColor(226, 224, 220), QColor(176, 174, 170)));
  const QRectF below(0, benchY + 26, kCanvas.width(), kCanvas.height() - benchY - 26);
  p.fillRect(below, Vertical(below, Tone(cupboard, 0.85), Tone(cupboard, 1.0)));
  p.setPen(QPen(Tone(cupboard, 0.7), 3));
  for (double x = 0; x < kCanvas.width(); x += 256) p.drawLine(QPointF(x, benchY + 30), QPointF(x, kCanvas.height()));
  for (double x = 100; x < kCanvas.width(); x += 256) p.fillRect(QRectF(x, benchY + 60, 56, 8), QColor(190, 190, 190));
  p.fillRect(QRectF(0, benchY + 26, kCanvas.width(), 8), QColor(0, 0, 0, 50));
}

// Brushed stainless steel over `r`: a broad sheen and fine vertical streaks.
void Stainless(QPainter& p, const QPainterPath& shape, const QRectF& r, quint32 seed) {
  QLinearGradient g(r.topLeft(), r.topRight());
  g.setColorAt(0, QColor(150, 154, 158));
  g.setColorAt(0.3, QColor(222, 224, 226));
  g.setColorAt(0.55, QColor(188, 191, 194));
  g.setColorAt(1, QColor(130, 134, 138));
  Fill(p, shape, g);
  p.save();
  p.setClipPath(shape);
  Rng rng(seed);
  for (int k = 0; k < 260; ++k) {
    const double x = rng.Uniform(r.left(), r.right());
    p.setPen(QPen(rng.Int(0, 1) ? QColor(255, 255, 255, 22) : QColor(0, 0, 0, 16), 1));
    p.drawLine(QPointF(x, r.top()), QPointF(x + rng.Uniform(-2, 2), r.bottom()));
  }
  p.restore();
}

// A seven-segment figure of height `h` with its top left at `at`.
void Digit(QPainter& p, QPointF at, double h, int digit, const QColor& lit) {
  static const int kSegments[10] = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};
  const double w = h * 0.5, t = h * 0.12;
  const QRectF bars[7] = {{at.x() + t, at.y(), w - 2 * t, t},         {at.x() + w - t, at.y() + t, t, h / 2 - t},
                          {at.x() + w - t, at.y() + h / 2, t, h / 2 - t}, {at.x() + t, at.y() + h - t, w - 2 * t, t},
                          {at.x(), at.y() + h / 2, t, h / 2 - t},     {at.x(), at.y() + t, t, h / 2 - t},
                          {at.x() + t, at.y() + h / 2 - t / 2, w - 2 * t, t}};
  for (int s = 0; s < 7; ++s)
    if (kSegments[digit] & (1 << s)) p.fillRect(bars[s], lit);
}

// A chrome bar handle, shaded across its thickness.
void Chrome(QPainter& p, const QRectF& r, bool upright) {
  const QPointF across = upright ? r.topRight() : r.bottomLeft();
  Fill(p, Box(r, std::min(r.width(), r.height()) / 2), Cylinder(r.topLeft(), across, QColor(200, 204, 208)));
}

}  // namespace

void DrawFridge(QPainter& p) {
  Kitchen(p, 430, QColor(236, 238, 236), QColor(64, 88, 102));
  p.fillRect(QRectF(0, 0, kCanvas.width(), 50), QColor(64, 88, 102));
  const QRectF body(322, 56, 380, 680);
  p.fillRect(QRectF(300, 40, 424, 728), QColor(40, 44, 48));
  Stainless(p, Box(body, 10), body, 5);
  p.setPen(QPen(QColor(60, 62, 66), 3));
  p.drawLine(QPointF(512, 62), QPointF(512, 470));
  p.drawLine(QPointF(326, 474), QPointF(698, 474));
  Chrome(p, QRectF(488, 170, 14, 230), true);
  Chrome(p, QRectF(522, 170, 14, 230), true);
  Chrome(p, QRectF(420, 500, 184, 14), false);
  // Ice and water dispenser on the left door.
  const QRectF dispenser(376, 200, 96, 130);
  Fill(p, Box(dispenser, 8), Vertical(dispenser, QColor(40, 42, 46), QColor(70, 74, 78)));
  p.fillRect(QRectF(386, 210, 76, 16), QColor(110, 190, 230));
  Fill(p, Box(QRectF(404, 250, 40, 50), 4), QColor(30, 30, 32));
  p.fillRect(QRectF(0, 736, kCanvas.width(), 32), QColor(0, 0, 0, 60));
}

void DrawMicrowave(QPainter& p) {
  Kitchen(p, 560, QColor(214, 226, 220), QColor(240, 238, 232));
  GroundShadow(p, QRectF(210, 540, 620, 40), 130);
  const QRectF body(232, 250, 560, 310);
  Fill(p, Box(body, 10), Vertical(body, QColor(58, 58, 62), QColor(26, 26, 28)));
  Fill(p, Box(QRectF(240, 238, 544, 20), 6), QColor(90, 90, 94));
  // Door glass, dark with the mesh behind it and a reflection across.
  const QRectF glass(256, 272, 380, 266);
  Fill(p, Box(glass, 6), Vertical(glass, QColor(30, 34, 40), QColor(12, 14, 16)));
  p.save();
  p.setClipRect(glass.adjusted(16, 16, -16, -16));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(70, 74, 80, 110));
  for (double y = glass.top(); y < glass.bottom(); y += 9)
    for (double x = glass.left(); x < glass.right(); x += 9) p.drawEllipse(QPointF(x, y), 2, 2);
  p.restore();
  QLinearGradient shine(glass.topLeft(), glass.bottomRight());
  shine.setColorAt(0.2, QColor(255, 255, 255, 0));
  shine.setColorAt(0.35, QColor(255, 255, 255, 50));
  shine.setColorAt(0.5, QColor(255, 255, 255, 0));
  p.fillRect(glass, shine);
  Chrome(p, QRectF(620, 300, 12, 210), true);
  // Control panel: clock, keypad and dial.
  const QRectF display(662, 276, 110, 44);
  Fill(p, Box(display, 4), QColor(10, 14, 12));
  const int digits[4] = {1, 2, 3, 0};
  for (int i = 0; i < 4; ++i) Digit(p, QPointF(670 + i * 24 + (i > 1 ? 6 : 0), 286), 24, digits[i], QColor(90, 230, 140));
  p.fillRect(QRectF(717, 292, 3, 3), QColor(90, 230, 140));
  p.fillRect(QRectF(717, 302, 3, 3), QColor(90, 230, 140));
  for (int row = 0; row < 4; ++row)
    for (int col = 0; col < 3; ++col)
      Fill(p, Box(QRectF(668 + col * 34, 336 + row * 30, 28, 22), 4), QColor(80, 80, 86));
  QRadialGradient dial(QPointF(706, 496), 34);
  dial.setColorAt(0, QColor(190, 192, 196));
  dial.setColorAt(1, QColor(90, 92, 96));
  p.setBrush(dial);
  p.setPen(QPen(QColor(30, 30, 32), 2));
  p.drawEllipse(QPointF(717, 496), 32, 32);
  // Canisters beside it.
  for (int i = 0; i < 2; ++i) {
    const QRectF jar(840 + i * 80, 420 + i * 40, 66, 140 - i * 40);
    Fill(p, Box(jar, 8), Cylinder(jar.topLeft(), jar.topRight(), QColor(200, 110, 70)));
    Fill(p, Box(QRectF(jar.left() - 3, jar.top() - 10, jar.width() + 6, 16), 5), QColor(120, 90, 60));
  }
}

void DrawCoffeeMachine(QPainter& p) {
  Kitchen(p, 600, QColor(60, 66, 72), QColor(196, 170, 136));
  GroundShadow(p, QRectF(280, 586, 460, 34), 140);
  const QRectF body(312, 190, 400, 410);
  Stainless(p, Box(body, 14), body, 9);
  // Bean hopper: a smoky cone with beans showing.
  QPainterPath hopper = Rounded({{350, 190, 2}, {470, 190, 2}, {500, 60, 8}, {320, 60, 8}});
  Fill(p, hopper, Horizontal(QRectF(320, 0, 180, 1), QColor(70, 60, 50, 230), QColor(40, 34, 30, 230)));
  Rng rng(3);
  p.setPen(Qt::NoPen);
  for (int k = 0; k < 60; ++k) {
    const QPointF at(rng.Uniform(348, 472), rng.Uniform(120, 186));
    p.setBrush(Tone(QColor(110, 64, 34), rng.Uniform(0.7, 1.2)));
    p.drawEllipse(at, 7, 5);
  }
  Fill(p, Box(QRectF(312, 48, 196, 18), 6), QColor(30, 30, 30));
  // Gauge, group head with its portafilter, steam wand.
  QRadialGradient face(QPointF(600, 270), 44);
  face.setColorAt(0, QColor(250, 250, 246));
  face.setColorAt(1, QColor(210, 210, 204));
  p.setBrush(face);
  p.setPen(QPen(QColor(60, 60, 64), 6));
  p.drawEllipse(QPointF(600, 270), 44, 44);
  p.setPen(QPen(QColor(200, 40, 30), 3));
  p.drawLine(QPointF(600, 270), QPointF(626, 248));
  Fill(p, Box(QRectF(424, 340, 120, 40), 10), QColor(70, 72, 76));
  Fill(p, Box(QRectF(432, 378, 104, 30), 8), Cylinder(QPointF(432, 0), QPointF(536, 0), QColor(180, 182, 186)));
  Fill(p, Rounded({{500, 384, 6}, {660, 372, 10}, {664, 400, 10}, {500, 404, 6}}), QColor(24, 24, 26));
  p.setPen(QPen(QColor(190, 192, 196), 9, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(690, 330), QPointF(740, 480));
  // Drip tray, and two cups on it.
  Fill(p, Box(QRectF(330, 540, 364, 40), 6), QColor(50, 52, 56));
  p.setPen(QPen(QColor(90, 92, 96), 3));
  for (double x = 340; x < 690; x += 14) p.drawLine(QPointF(x, 546), QPointF(x, 560));
  for (double x : {440.0, 528.0}) {
    Fill(p, Rounded({{x - 30, 480, 4}, {x + 30, 480, 4}, {x + 24, 540, 10}, {x - 24, 540, 10}}),
         Cylinder(QPointF(x - 30, 0), QPointF(x + 30, 0), QColor(245, 244, 240)));
    p.setPen(QPen(QColor(225, 224, 220), 6));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(x + 36, 504), 12, 14);
  }
}

void DrawWashingMachine(QPainter& p) {
  RoomBackdrop(p, kCanvas, 690, QColor(222, 232, 236), QColor(190, 192, 196), Floor::Tiles);
  GroundShadow(p, QRectF(290, 670, 450, 40), 130);
  const QRectF body(312, 170, 400, 520);
  Fill(p, Box(body, 12), Horizontal(body, QColor(228, 230, 232), QColor(250, 250, 250)));
  p.fillRect(QRectF(312, 290, 400, 3), QColor(180, 184, 188));
  Fill(p, Box(QRectF(330, 190, 110, 70), 6), QColor(238, 240, 242));
  p.setPen(QPen(QColor(170, 174, 178), 2));
  p.drawLine(QPointF(334, 212), QPointF(436, 212));
  Fill(p, Box(QRectF(470, 204, 120, 40), 4), QColor(30, 40, 50));
  Digit(p, QPointF(482, 212), 24, 1, QColor(120, 200, 255));
  Digit(p, QPointF(500, 212), 24, 4, QColor(120, 200, 255));
  Digit(p, QPointF(524, 212), 24, 0, QColor(120, 200, 255));
  QRadialGradient knob(QPointF(640, 220), 34);
  knob.setColorAt(0, QColor(250, 250, 250));
  knob.setColorAt(1, QColor(170, 174, 178));
  p.setBrush(knob);
  p.setPen(QPen(QColor(150, 154, 158), 2));
  p.drawEllipse(QPointF(650, 226), 32, 32);
  // The door: chrome ring, then the glass with washing tumbling behind it.
  const QPointF c(512, 480);
  QRadialGradient ring(c, 160);
  ring.setColorAt(0.8, QColor(160, 164, 170));
  ring.setColorAt(0.9, QColor(236, 238, 240));
  ring.setColorAt(1, QColor(120, 124, 130));
  p.setBrush(ring);
  p.setPen(Qt::NoPen);
  p.drawEllipse(c, 160, 160);
  QRadialGradient glass(c + QPointF(-30, -30), 150);
  glass.setColorAt(0, QColor(120, 150, 176));
  glass.setColorAt(1, QColor(40, 56, 72));
  p.setBrush(glass);
  p.drawEllipse(c, 124, 124);
  p.save();
  QPainterPath door;
  door.addEllipse(c, 120, 120);
  p.setClipPath(door);
  const QColor clothes[] = {QColor(200, 60, 70), QColor(60, 110, 190), QColor(240, 200, 80), QColor(230, 230, 224)};
  Rng rng(11);
  for (int k = 0; k < 14; ++k) {
    const QPointF at = c + QPointF(rng.Uniform(-110, 110), rng.Uniform(10, 120));
    p.setBrush(Tone(clothes[k % 4], 0.75));
    p.drawEllipse(at, rng.Uniform(30, 60), rng.Uniform(20, 40));
  }
  p.restore();
  QLinearGradient shine(c + QPointF(-120, -120), c + QPointF(120, 120));
  shine.setColorAt(0.25, QColor(255, 255, 255, 90));
  shine.setColorAt(0.45, QColor(255, 255, 255, 0));
  p.setBrush(shine);
  p.drawEllipse(c, 124, 124);
}

void DrawDrill(QPainter& p) {
  StudioBackdrop(p, kCanvas, QColor(236, 234, 228), QColor(170, 166, 158));
  GroundShadow(p, QRectF(260, 640, 460, 50), 140);
  const QColor teal(0, 138, 150), black(34, 36, 38);
  // Battery pack at the foot of the handle.
  const QRectF battery(300, 568, 260, 92);
  Fill(p, Box(battery, 14), Vertical(battery, QColor(60, 62, 66), QColor(22, 22, 24)));
  p.fillRect(QRectF(316, 584, 228, 10), teal);
  // Handle, with a rubber grip and the trigger.
  QPainterPath handle = Rounded({{380, 380, 20}, {500, 380, 20}, {480, 580, 10}, {370, 580, 10}});
  Fill(p, handle, Horizontal(QRectF(370, 0, 130, 1), Tone(teal, 0.8), Tone(teal, 1.1)));
  Fill(p, Rounded({{386, 420, 16}, {436, 420, 10}, {426, 570, 8}, {376, 570, 8}}), black);
  Fill(p, Rounded({{500, 400, 8}, {530, 404, 8}, {520, 470, 8}, {494, 466, 8}}), black);
  // Motor housing with vents, then chuck and bit.
  QPainterPath housing = Rounded({{250, 250, 60}, {610, 262, 30}, {620, 400, 30}, {250, 410, 60}});
  Fill(p, housing, Vertical(QRectF(0, 250, 1, 160), Tone(teal, 1.3), Tone(teal, 0.7)));
  Fill(p, Rounded({{250, 250, 60}, {330, 252, 20}, {330, 408, 20}, {250, 410, 60}}), black);
  p.setPen(QPen(Tone(teal, 0.5), 5, Qt::SolidLine, Qt::RoundCap));
  for (double x = 360; x < 440; x += 18) p.drawLine(QPointF(x, 290), QPointF(x, 330));
  const QRectF collar(610, 286, 40, 100);
  Fill(p, Box(collar, 8), Vertical(collar, QColor(80, 80, 84), QColor(20, 20, 22)));
  const QRectF chuck(650, 300, 110, 72);
  Fill(p, Box(chuck, 10), Vertical(chuck, QColor(70, 70, 74), QColor(16, 16, 18)));
  p.setPen(QPen(QColor(90, 90, 96), 2));
  for (double x = 660; x < 752; x += 8) p.drawLine(QPointF(x, 304), QPointF(x, 368));
  Fill(p, Rounded({{760, 316, 4}, {790, 322, 4}, {790, 350, 4}, {760, 356, 4}}), Vertical(QRectF(0, 316, 1, 40), QColor(220, 220, 224), QColor(120, 122, 126)));
  Fill(p, Rounded({{790, 328, 2}, {900, 330, 2}, {918, 336, 0}, {900, 342, 2}, {790, 344, 2}}), Vertical(QRectF(0, 328, 1, 16), QColor(230, 230, 234), QColor(110, 112, 116)));
  p.setPen(QPen(QColor(90, 92, 96), 2));
  for (double x = 800; x < 896; x += 12) p.drawLine(QPointF(x, 330), QPointF(x + 8, 342));
}

void DrawLawnMower(QPainter& p) {
  Outdoors(p, kCanvas, 330, QColor(110, 160, 220), QColor(200, 222, 240), QColor(90, 150, 60), 61);
  // Paling fence along the back, and mown stripes.
  p.fillRect(QRectF(0, 210, kCanvas.width(), 130), QColor(150, 120, 90));
  p.setPen(QPen(QColor(110, 84, 60), 2));
  for (double x = 0; x < kCanvas.width(); x += 24) p.drawLine(QPointF(x, 210), QPointF(x, 340));
  for (int k = 0; k < 6; ++k) {
    QPainterPath stripe;
    const double x0 = -400 + k * 320;
    stripe.moveTo(x0 + 140, 340);
    stripe.lineTo(x0 + 300, 340);
    stripe.lineTo(x0 + 480, 768);
    stripe.lineTo(x0 + 180, 768);
    stripe.closeSubpath();
    Fill(p, stripe, QColor(255, 255, 255, k % 2 ? 22 : 0));
  }
  GroundShadow(p, QRectF(200, 600, 560, 70), 140);
  const QColor red(196, 36, 36);
  // Handle first, the catcher bag between its arms, then the deck.
  p.setPen(QPen(QColor(40, 40, 44), 12, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(650, 470), QPointF(860, 170));
  p.setPen(QPen(QColor(40, 40, 44), 16, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(820, 150), QPointF(900, 192));
  Fill(p, Rounded({{620, 390, 20}, {760, 330, 30}, {800, 520, 20}, {650, 560, 20}}), Vertical(QRectF(0, 330, 1, 230), QColor(110, 116, 110), QColor(60, 64, 60)));
  p.setPen(QPen(QColor(80, 84, 80), 2));
  for (double k = 0; k < 6; ++k) p.drawLine(QPointF(640 + k * 24, 400 - k * 10), QPointF(668 + k * 24, 552 - k * 6));
  QPainterPath deck = Rounded({{210, 520, 40}, {280, 440, 50}, {660, 440, 40}, {700, 560, 20}, {220, 580, 20}});
  Fill(p, deck, Vertical(QRectF(0, 440, 1, 140), Tone(red, 1.3), Tone(red, 0.7)));
  // Engine, its pull-start and fuel cap.
  Fill(p, Box(QRectF(360, 350, 210, 110), 20), Vertical(QRectF(0, 350, 1, 110), QColor(70, 70, 74), QColor(24, 24, 26)));
  Fill(p, Box(QRectF(380, 320, 170, 40), 18), Vertical(QRectF(0, 320, 1, 40), QColor(100, 100, 104), QColor(50, 50, 54)));
  p.setBrush(QColor(230, 190, 40));
  p.setPen(Qt::NoPen);
  p.drawEllipse(QPointF(540, 338), 14, 10);
  for (const auto& [x, r] : {std::pair{270.0, 58.0}, std::pair{640.0, 70.0}}) {
    const QPointF c(x, 640 - r);
    p.setBrush(QColor(26, 26, 28));
    p.drawEllipse(c, r, r);
    QRadialGradient hub(c - QPointF(r * 0.2, r * 0.2), r * 0.6);
    hub.setColorAt(0, QColor(220, 220, 224));
    hub.setColorAt(1, QColor(120, 122, 126));
    p.setBrush(hub);
    p.drawEllipse(c, r * 0.5, r * 0.5);
  }
}

}  // namespace cb::assets
