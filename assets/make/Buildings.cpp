// SPDX-License-Identifier: GPL-3.0-or-later
// Dwellings that share walls: a row of terraces, townhouses, a duplex, a
// block of units and an apartment building.

#include <cmath>

#include "Assets.h"
#include "Dwelling.h"

namespace cb::assets {
namespace {

constexpr double kBase = 620;

// Footpath and kerb across the foot of the picture.
void Footpath(QPainter& p, double top) {
  p.fillRect(QRectF(0, top, kPictureWidth, kPictureHeight - top), Vertical(QRectF(0, top, 1, 100), QColor(196, 192, 184), QColor(214, 210, 202)));
  p.setPen(QPen(QColor(160, 156, 150), 2));
  for (double x = -200; x < kPictureWidth + 200; x += 110) p.drawLine(QPointF(x, top), QPointF(x - 60, kPictureHeight));
  p.fillRect(QRectF(0, kPictureHeight - 26, kPictureWidth, 26), QColor(90, 92, 96));
}

// Cast-iron lace under a veranda roof: a row of small rings and arches.
void IronLace(QPainter& p, double left, double right, double y) {
  p.setPen(QPen(QColor(40, 40, 44), 2));
  p.setBrush(Qt::NoBrush);
  for (double x = left + 10; x < right - 8; x += 20) {
    p.drawEllipse(QPointF(x, y + 10), 7, 7);
    p.drawArc(QRectF(x - 10, y + 16, 20, 22), 0, 180 * 16);
  }
  p.drawLine(QPointF(left, y), QPointF(right, y));
  p.drawLine(QPointF(left, y + 38), QPointF(right, y + 38));
}

void Balustrade(QPainter& p, double left, double right, double top, double bottom, const QColor& colour) {
  p.fillRect(QRectF(left, top, right - left, 5), colour);
  p.setPen(QPen(colour, 2));
  for (double x = left + 4; x < right; x += 10) p.drawLine(QPointF(x, top), QPointF(x, bottom));
}

}  // namespace

void DrawTerrace(QPainter& p) {
  Outdoors(p, QRectF(0, 0, kPictureWidth, kPictureHeight), 560, QColor(100, 150, 210), QColor(220, 230, 238), QColor(150, 146, 140), 301);
  const struct { QColor wall, door, lace; Cladding cladding; } units[] = {
      {QColor(232, 220, 190), QColor(40, 70, 60), QColor(40, 40, 44), Cladding::Render},
      {QColor(148, 168, 180), QColor(120, 40, 40), QColor(40, 40, 44), Cladding::Render},
      {QColor(160, 90, 66), QColor(30, 50, 90), QColor(40, 40, 44), Cladding::Brick}};
  const double width = 280, left0 = 512 - 1.5 * width;
  for (int u = 0; u < 3; ++u) {
    const double l = left0 + u * width, r = l + width, top = kBase - 230;
    const QRectF face(l, top, width, 230);
    WallFace(p, Box(face, 0), face, units[u].cladding, units[u].wall, 310 + u);
    // Parapet with a small pediment and its mouldings.
    const QRectF parapet(l, top - 70, width, 70);
    WallFace(p, Box(parapet, 0), parapet, Cladding::Render, Tone(units[u].wall, 1.05), 320 + u);
    QPainterPath pediment;
    pediment.moveTo(l + width / 2 - 50, top - 70);
    pediment.arcTo(QRectF(l + width / 2 - 50, top - 120, 100, 100), 180, -180);
    pediment.closeSubpath();
    Fill(p, pediment, Tone(units[u].wall, 1.05));
    p.fillRect(QRectF(l - 4, top - 76, width + 8, 10), Tone(units[u].wall, 0.8));
    p.fillRect(QRectF(l - 4, top - 20, width + 8, 8), Tone(units[u].wall, 0.8));
    Door(p, QRectF(l + 44, kBase - 130, 64, 130), units[u].door, QColor(240, 236, 226));
    Window(p, QRectF(l + 44, kBase - 168, 64, 24), QColor(240, 236, 226), 1, 1);
    Window(p, QRectF(l + 160, kBase - 176, 76, 140), QColor(240, 236, 226), 1, 2);
    // Bull-nosed veranda in striped iron, lace below it.
    const double band = kBase - 200;
    for (double x = l + 6; x < r - 6; x += 14)
      p.fillRect(QRectF(x, band, 7, 28), Vertical(QRectF(0, band, 1, 28), (int(x / 14) % 2) ? QColor(200, 60, 50) : QColor(236, 232, 220), QColor(120, 110, 100)));
    IronLace(p, l + 8, r - 8, band + 28);
    EaveShadow(p, l, r, band + 28, 40);
    for (double x : {l + 12, r - 12}) p.fillRect(QRectF(x - 3, band + 28, 6, kBase - band - 28), QColor(40, 40, 44));
    // Wing wall between neighbours.
    p.fillRect(QRectF(l - 8, band - 30, 16, kBase - band + 30), Tone(units[u].wall, 0.9));
  }
  p.fillRect(QRectF(left0 + 3 * width - 8, kBase - 230, 16, 230), Tone(units[2].wall, 0.9));
  Footpath(p, 680);
  p.setPen(QPen(QColor(30, 30, 34), 3));
  p.drawLine(QPointF(0, 640), QPointF(kPictureWidth, 640));
  p.drawLine(QPointF(0, 676), QPointF(kPictureWidth, 676));
  for (double x = 6; x < kPictureWidth; x += 16) {
    p.drawLine(QPointF(x, 630), QPointF(x, 680));
    p.drawLine(QPointF(x - 3, 634), QPointF(x, 626));
    p.drawLine(QPointF(x + 3, 634), QPointF(x, 626));
  }
}

void DrawApartments(QPainter& p) {
  Outdoors(p, QRectF(0, 0, kPictureWidth, kPictureHeight), 620, QColor(70, 130, 210), QColor(210, 226, 240), QColor(150, 146, 140), 401);
  // Neighbours, then the block: six floors of glass between white slab edges.
  WallFace(p, Box(QRectF(0, 290, 250, 330), 0), QRectF(0, 290, 250, 330), Cladding::Render, QColor(170, 172, 176), 402);
  for (double y = 310; y < 600; y += 60)
    for (double x = 20; x < 240; x += 56) Window(p, QRectF(x, y, 32, 34), QColor(200, 200, 200), 1, 1);
  WallFace(p, Box(QRectF(790, 340, 240, 280), 0), QRectF(790, 340, 240, 280), Cladding::Brick, QColor(150, 90, 70), 403);
  for (double y = 370; y < 600; y += 70)
    for (double x = 810; x < 1020; x += 60) Window(p, QRectF(x, y, 34, 40), QColor(236, 230, 220), 1, 2);
  const double left = 262, right = 772, floorH = 78;
  const QRectF block(left, kBase - 6 * floorH - 30, right - left, 6 * floorH + 30);
  WallFace(p, Box(block, 0), block, Cladding::Render, QColor(236, 236, 232), 404);
  const QRectF timber(right - 130, block.top(), 130, block.height());
  WallFace(p, Box(timber, 0), timber, Cladding::Panels, QColor(170, 122, 80), 405);
  for (int f = 0; f < 6; ++f) {
    const double y = kBase - (f + 1) * floorH;
    const QRectF glass(left + 20, y + 10, right - left - 170, floorH - 18);
    p.fillRect(glass, Vertical(glass, QColor(150, 190, 220), QColor(50, 80, 110)));
    p.setPen(QPen(QColor(60, 64, 70), 3));
    for (double x = glass.left(); x <= glass.right(); x += glass.width() / 6) p.drawLine(QPointF(x, glass.top()), QPointF(x, glass.bottom()));
    if (f > 0) {
      p.fillRect(QRectF(left + 10, y + floorH - 34, right - left - 150, 30), QColor(230, 240, 246, 110));
      p.fillRect(QRectF(left + 10, y + floorH - 36, right - left - 150, 4), QColor(90, 94, 100));
    }
    p.fillRect(QRectF(left - 6, y + floorH - 6, right - left + 12, 10), QColor(250, 250, 250));
    EaveShadow(p, left, right - 130, y + floorH + 4, 12);
  }
  p.fillRect(QRectF(left - 10, block.top() - 8, right - left + 20, 14), QColor(70, 72, 76));
  Fill(p, Box(QRectF(470, kBase - 70, 90, 70), 0), QColor(40, 44, 50));
  Footpath(p, kBase);
  Tree(p, QPointF(150, 720), 360, QColor(80, 130, 70), 406);
  Tree(p, QPointF(900, 730), 320, QColor(90, 136, 72), 407);
}

void DrawDuplex(QPainter& p) {
  Suburb(p, 470, QColor(90, 146, 214), QColor(222, 232, 240), QColor(100, 150, 72), 501);
  const double left = 132, right = 892, top = kBase - 150;
  GroundShadow(p, QRectF(100, kBase - 20, 820, 60), 90);
  const QRectF walls(left, top, right - left, 150);
  WallFace(p, Box(walls, 0), walls, Cladding::Render, QColor(200, 200, 196), 502);
  const QRectF plinth(left, kBase - 40, right - left, 40);
  WallFace(p, Box(plinth, 0), plinth, Cladding::Brick, QColor(120, 110, 104), 503);
  Roof(p, {RoofKind::Hip, Covering::Tiles, QColor(64, 66, 72), 120}, left, right, top, Cladding::Render, QColor(200, 200, 196), QColor(240, 240, 236));
  EaveShadow(p, left, right, top + 8, 22);
  p.fillRect(QRectF(509, top, 6, 150), QColor(170, 170, 166));
  for (int s : {-1, 1}) {
    const double outer = s < 0 ? left : right;
    const double garageL = s < 0 ? outer + 20 : outer - 220;
    GarageDoor(p, QRectF(garageL, kBase - 116, 200, 116), QColor(230, 228, 222));
    Paving(p, garageL, garageL + 200, kBase, garageL - 40 * -s - 30, garageL + 200 + 40 * -s + 30, QColor(190, 186, 178));
    const double doorX = 512 + s * 110;
    Door(p, QRectF(doorX - 30, kBase - 120, 60, 120), QColor(60, 64, 70), QColor(240, 240, 236));
    Window(p, QRectF(512 + s * 200 - 50, top + 30, 100, 80), QColor(240, 240, 236), 2, 1);
    Shrub(p, QPointF(512 + s * 40, kBase + 10), 70, QColor(70, 120, 56), 504 + s);
  }
}

void DrawTownhouses(QPainter& p) {
  Suburb(p, 480, QColor(100, 156, 216), QColor(224, 234, 242), QColor(96, 146, 70), 601);
  const double width = 250, left0 = 512 - 1.5 * width;
  const QColor cladding[] = {QColor(70, 74, 80), QColor(236, 234, 228), QColor(70, 74, 80)};
  for (int u = 0; u < 3; ++u) {
    const double l = left0 + u * width, r = l + width, top = kBase - 290;
    const QRectF face(l, top, width, 290);
    WallFace(p, Box(face, 0), face, u == 1 ? Cladding::Render : Cladding::Panels, cladding[u], 610 + u);
    Roof(p, {RoofKind::Skillion, Covering::Iron, QColor(50, 52, 56), 50, 12}, l, r, top, u == 1 ? Cladding::Render : Cladding::Panels, cladding[u], QColor(40, 40, 44));
    const QRectF screen(l + 150, top + 30, 80, 120);
    for (double x = screen.left(); x < screen.right(); x += 12) p.fillRect(QRectF(x, screen.top(), 7, screen.height()), QColor(176, 126, 80));
    Window(p, QRectF(l + 24, top + 40, 110, 90), QColor(40, 42, 46), 2, 1);
    p.fillRect(QRectF(l, kBase - 150, width, 6), QColor(40, 42, 46));
    GarageDoor(p, QRectF(l + 16, kBase - 118, 150, 118), QColor(176, 128, 84));
    Door(p, QRectF(l + 182, kBase - 118, 50, 118), QColor(40, 42, 46), QColor(60, 62, 66));
    Paving(p, l + 16, l + 166, kBase, l - 10, l + 200, QColor(196, 192, 184));
  }
}

void DrawUnitBlock(QPainter& p) {
  Suburb(p, 470, QColor(110, 160, 220), QColor(226, 234, 240), QColor(100, 146, 70), 701);
  const double left = 152, right = 872, storey = 140, top = kBase - 2 * storey;
  GroundShadow(p, QRectF(120, kBase - 20, 800, 60), 90);
  const QRectF walls(left, top, right - left, 2 * storey);
  WallFace(p, Box(walls, 0), walls, Cladding::Brick, QColor(222, 196, 150), 702);
  Roof(p, {RoofKind::Hip, Covering::Tiles, QColor(132, 82, 62), 110}, left, right, top, Cladding::Brick, QColor(222, 196, 150), QColor(236, 232, 220));
  EaveShadow(p, left, right, top + 8, 22);
  const double unit = (right - left) / 3;
  for (int u = 0; u < 3; ++u) {
    const double l = left + u * unit;
    for (int f = 0; f < 2; ++f) {
      const double y = kBase - (f + 1) * storey;
      Window(p, QRectF(l + 30, y + 32, 120, 76), QColor(236, 232, 220), 3, 1);
      if (f == 0) {
        Door(p, QRectF(l + 176, kBase - 112, 52, 112), QColor(110, 70, 40), QColor(236, 232, 220));
      } else {
        Window(p, QRectF(l + 176, y + 32, 44, 76), QColor(236, 232, 220), 1, 2);
        p.fillRect(QRectF(l + 20, y + storey - 16, unit - 40, 10), QColor(200, 196, 190));
        Balustrade(p, l + 20, l + unit - 20, y + storey - 56, y + storey - 16, QColor(40, 40, 44));
      }
    }
  }
  p.fillRect(QRectF(left, kBase - storey - 4, right - left, 8), QColor(210, 204, 196));
  Paving(p, left - 120, left - 10, kBase, left - 220, left + 40, QColor(190, 186, 178));
  for (double x = left + 40; x < right; x += 90) Shrub(p, QPointF(x, kBase + 12), 70, QColor(70, 120, 56), 703 + int(x));
  Tree(p, QPointF(950, 640), 330, QColor(90, 130, 70), 704);
}

}  // namespace cb::assets
