// SPDX-License-Identifier: GPL-3.0-or-later
// Detached houses, each a row of a style table, drawn in front elevation on
// its block; and the lookup from a picture's name to its drawing.

#include <cstring>

#include "Assets.h"
#include "Drawings.h"
#include "Dwelling.h"

namespace cb::assets {

void DrawTerrace(QPainter& p);
void DrawApartments(QPainter& p);
void DrawDuplex(QPainter& p);
void DrawTownhouses(QPainter& p);
void DrawUnitBlock(QPainter& p);

namespace {

enum class Setting { Suburb, Farm, Beach };

struct Detached {
  const char* file;
  double width;
  int storeys;
  double raised;       // height of the floor above the ground, on stumps
  RoofShape roof;
  Cladding cladding;
  QColor wall, trim, door;
  int windows;         // on each side of the front door
  bool wide;           // large modern panes instead of sashes
  bool arched, garage, veranda, chimney, fence;
  Setting setting;
  QColor skyTop;
};

constexpr double kBase = 610;
constexpr double kStorey = 150;

const Detached kHouses[] = {
    {"suburban.jpg", 500, 2, 0, {RoofKind::Hip, Covering::Tiles, QColor(84, 88, 96), 110}, Cladding::Render,
     QColor(232, 222, 200), QColor(246, 244, 238), QColor(110, 70, 40), 1, false, false, true, false, false, false,
     Setting::Suburb, QColor(96, 150, 214)},
    {"brickveneer.jpg", 620, 1, 0, {RoofKind::Hip, Covering::Tiles, QColor(176, 84, 56), 120}, Cladding::Brick,
     QColor(150, 82, 62), QColor(236, 226, 200), QColor(90, 60, 40), 2, false, false, false, false, false, false,
     Setting::Suburb, QColor(120, 170, 224)},
    {"weatherboard.jpg", 540, 1, 0, {RoofKind::Gable, Covering::Iron, QColor(150, 156, 162), 170}, Cladding::Weatherboard,
     QColor(186, 204, 216), QColor(250, 250, 248), QColor(40, 60, 100), 1, false, false, false, true, false, true,
     Setting::Suburb, QColor(90, 146, 210)},
    {"cottage.jpg", 440, 1, 0, {RoofKind::Gable, Covering::Iron, QColor(164, 52, 42), 160}, Cladding::Weatherboard,
     QColor(238, 228, 198), QColor(246, 246, 240), QColor(40, 92, 62), 1, false, false, false, true, true, true,
     Setting::Suburb, QColor(130, 176, 226)},
    {"villa.jpg", 600, 2, 0, {RoofKind::Hip, Covering::Tiles, QColor(192, 98, 58), 100}, Cladding::Render,
     QColor(228, 194, 146), QColor(250, 246, 236), QColor(120, 70, 40), 1, false, true, false, false, false, false,
     Setting::Suburb, QColor(60, 120, 210)},
    {"modern.jpg", 640, 2, 0, {RoofKind::Flat, Covering::Iron, QColor(60, 62, 66), 0}, Cladding::Panels,
     QColor(238, 238, 234), QColor(40, 42, 46), QColor(150, 104, 64), 1, true, false, true, false, false, false,
     Setting::Suburb, QColor(100, 150, 200)},
    {"farmhouse.jpg", 600, 1, 0, {RoofKind::Hip, Covering::Iron, QColor(168, 60, 46), 130}, Cladding::Weatherboard,
     QColor(240, 238, 230), QColor(250, 250, 248), QColor(120, 40, 40), 2, false, false, false, true, true, false,
     Setting::Farm, QColor(110, 160, 220)},
    {"queenslander.jpg", 580, 1, 110, {RoofKind::Hip, Covering::Iron, QColor(176, 180, 186), 120}, Cladding::Weatherboard,
     QColor(240, 228, 178), QColor(250, 250, 248), QColor(60, 100, 80), 1, false, false, false, true, false, false,
     Setting::Suburb, QColor(80, 150, 220)},
    {"beachhouse.jpg", 520, 2, 0, {RoofKind::Skillion, Covering::Iron, QColor(200, 204, 208), 70}, Cladding::Weatherboard,
     QColor(150, 178, 192), QColor(250, 250, 248), QColor(60, 80, 100), 1, true, false, false, true, false, false,
     Setting::Beach, QColor(70, 140, 220)},
};

void Surroundings(QPainter& p, const Detached& h) {
  const quint32 seed = SeedOf(h.file);
  switch (h.setting) {
    case Setting::Suburb:
      Suburb(p, 470, h.skyTop, QColor(220, 232, 240), QColor(96, 150, 70), seed);
      break;
    case Setting::Farm:
      Outdoors(p, QRectF(0, 0, kPictureWidth, kPictureHeight), 450, h.skyTop, QColor(230, 232, 226), QColor(200, 176, 104), seed);
      Fill(p, Box(QRectF(-200, 400, 1500, 120), 60), QColor(150, 160, 120));
      p.fillRect(QRectF(0, 450, kPictureWidth, 320), Vertical(QRectF(0, 450, 1, 320), QColor(196, 170, 100), QColor(214, 190, 120)));
      Tree(p, QPointF(110, 640), 420, QColor(120, 136, 90), seed + 1);
      Tree(p, QPointF(930, 600), 360, QColor(110, 130, 84), seed + 2);
      break;
    case Setting::Beach:
      Outdoors(p, QRectF(0, 0, kPictureWidth, kPictureHeight), 460, h.skyTop, QColor(214, 232, 244), QColor(226, 208, 164), seed);
      p.fillRect(QRectF(0, 410, kPictureWidth, 50), Vertical(QRectF(0, 410, 1, 50), QColor(40, 110, 170), QColor(70, 150, 190)));
      p.fillRect(QRectF(0, 456, kPictureWidth, 4), QColor(250, 250, 250, 160));
      break;
  }
}

void DrawDetached(QPainter& p, const Detached& h) {
  Surroundings(p, h);
  const double left = 512 - h.width / 2 - (h.garage ? 120 : 0), right = left + h.width;
  const double floor = kBase - h.raised, top = floor - h.storeys * kStorey;
  GroundShadow(p, QRectF(left - 80, kBase - 20, h.width + (h.garage ? 400 : 160), 60), 90);
  if (h.chimney) {
    const double x = left + h.width * 0.72;
    WallFace(p, Box(QRectF(x, top - h.roof.height - 30, 44, h.roof.height + 30), 0), QRectF(x, top - h.roof.height - 30, 44, h.roof.height + 30), Cladding::Brick, QColor(150, 80, 60), 3);
    p.fillRect(QRectF(x - 4, top - h.roof.height - 38, 52, 10), QColor(120, 110, 100));
  }
  if (h.raised > 0) {
    p.fillRect(QRectF(left + 10, floor, h.width - 20, h.raised), QColor(60, 50, 40));
    p.setPen(QPen(h.trim, 3));
    p.save();
    p.setClipRect(QRectF(left + 10, floor, h.width - 20, h.raised));
    for (double x = left - h.raised; x < right; x += 22) {
      p.drawLine(QPointF(x, floor), QPointF(x + h.raised, kBase));
      p.drawLine(QPointF(x + h.raised, floor), QPointF(x, kBase));
    }
    p.restore();
  }
  const QRectF walls(left, top, h.width, floor - top);
  WallFace(p, Box(walls, 0), walls, h.cladding, h.wall, SeedOf(h.file));
  if (h.wide) {
    // A timber-clad wing and floor-to-ceiling glass.
    const QRectF wing(left, top, h.width * 0.35, floor - top);
    WallFace(p, Box(wing, 0), wing, Cladding::Weatherboard, QColor(168, 118, 76), 7);
  }
  Roof(p, h.roof, left, right, top, h.cladding, h.wall, h.trim);
  EaveShadow(p, left, right, top + 8, 24);

  const int places = 2 * h.windows + 1;
  const double spacing = h.width / places;
  for (int s = 0; s < h.storeys; ++s) {
    const double storeyTop = floor - (s + 1) * kStorey;
    for (int i = 0; i < places; ++i) {
      const double cx = left + spacing * (i + 0.5);
      if (s == 0 && i == h.windows) continue;
      const double w = h.wide ? spacing * 0.8 : std::min(spacing * 0.55, 110.0);
      const double wh = h.wide ? 110 : (h.arched ? 96 : 86);
      Window(p, QRectF(cx - w / 2, storeyTop + 26, w, wh), h.trim, h.wide ? 3 : 2, h.wide ? 1 : 2, h.arched);
    }
    if (s > 0) p.fillRect(QRectF(left, floor - s * kStorey - 6, h.width, 8), Tone(h.wall, 0.85));
  }
  const double doorX = left + spacing * (h.windows + 0.5);
  Door(p, QRectF(doorX - 34, floor - 120, 68, 120), h.door, h.trim);

  if (h.veranda) {
    const double band = floor - kStorey + 10;
    for (double x = left - 10; x <= right + 12; x += (h.width + 20) / 4)
      p.fillRect(QRectF(x - 5, band + 24, 10, floor - band - 24), h.trim);
    p.fillRect(QRectF(left - 30, band, h.width + 60, 26), Vertical(QRectF(0, band, 1, 26), Tone(h.roof.colour, 1.2), Tone(h.roof.colour, 0.8)));
    p.fillRect(QRectF(left - 30, band + 24, h.width + 60, 5), h.trim);
    EaveShadow(p, left, right, band + 29, 30);
    if (h.raised > 0 || h.setting == Setting::Beach) {
      p.fillRect(QRectF(left - 30, floor - 48, h.width + 60, 7), h.trim);
      p.setPen(QPen(h.trim, 3));
      for (double x = left - 26; x < right + 30; x += 12)
        if (std::abs(x - doorX) > 40) p.drawLine(QPointF(x, floor - 42), QPointF(x, floor));
    }
  }
  if (h.raised > 0) {
    QPainterPath stairs;
    stairs.moveTo(doorX - 40, floor);
    stairs.lineTo(doorX + 40, floor);
    stairs.lineTo(doorX + 60, kBase + 10);
    stairs.lineTo(doorX - 60, kBase + 10);
    stairs.closeSubpath();
    Fill(p, stairs, Tone(h.trim, 0.85));
    p.setPen(QPen(Tone(h.trim, 0.6), 2));
    for (double y = floor + 14; y < kBase + 10; y += 16) p.drawLine(QPointF(doorX - 48, y), QPointF(doorX + 48, y));
  }
  if (h.garage) {
    const QRectF g(right, kBase - 140, 250, 140);
    WallFace(p, Box(g, 0), g, h.cladding, Tone(h.wall, 0.96), 9);
    Roof(p, {RoofKind::Hip, h.roof.covering, h.roof.colour, 50, 16}, g.left(), g.right(), g.top(), h.cladding, h.wall, h.trim);
    GarageDoor(p, QRectF(g.left() + 25, g.top() + 34, 200, 106), Tone(h.trim, 0.92));
    Paving(p, g.left() + 20, g.right() - 20, kBase, g.left() - 20, g.right() + 120, QColor(184, 180, 172));
  }
  Paving(p, doorX - 30, doorX + 30, kBase + 10, doorX - 70, doorX + 70, QColor(200, 190, 170));
  const double shrubEnd = h.garage ? right : right + 30;
  for (double x = left + 10; x < shrubEnd; x += 60)
    if (std::abs(x - doorX) > 70) Shrub(p, QPointF(x, kBase + 14), 80, QColor(70, 120, 56), SeedOf(h.file) + int(x));
  if (h.arched) {
    Cypress(p, QPointF(left - 60, kBase + 20), 420);
    Cypress(p, QPointF(right + 60, kBase + 20), 400);
  }
  if (h.setting == Setting::Beach) {
    Palm(p, QPointF(120, 720), 420, 60);
    Palm(p, QPointF(920, 700), 360, -50);
  }
  if (h.fence) {
    PicketFence(p, -10, doorX - 70, 720, 80, QColor(248, 248, 244));
    PicketFence(p, doorX + 70, kPictureWidth + 10, 720, 80, QColor(248, 248, 244));
  }
}

}  // namespace

bool DrawHouse(QPainter& p, const char* file) {
  // Drawn a little larger than laid out, so the house fills a gallery cell.
  p.translate(512, 560);
  p.scale(1.15, 1.15);
  p.translate(-512, -560);
  for (const Detached& h : kHouses) {
    if (std::strcmp(h.file, file) == 0) {
      DrawDetached(p, h);
      return true;
    }
  }
  const struct {
    const char* file;
    void (*draw)(QPainter&);
  } others[] = {{"terrace.jpg", DrawTerrace},     {"apartments.jpg", DrawApartments}, {"duplex.jpg", DrawDuplex},
                {"townhouse.jpg", DrawTownhouses}, {"unitblock.jpg", DrawUnitBlock}};
  for (const auto& other : others) {
    if (std::strcmp(other.file, file) == 0) {
      other.draw(p);
      return true;
    }
  }
  return false;
}

}  // namespace cb::assets
