// SPDX-License-Identifier: GPL-3.0-or-later
// Cars on the yard, in side view with the front to the left. Each body is a
// row of the table: its outline, its glass, its wheels and what it carries.

#include <QRadialGradient>

#include <cstring>
#include <vector>

#include "Assets.h"
#include "Drawings.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

constexpr double kGround = 600;

enum Extra : unsigned {
  kNone = 0,
  kRoofRails = 1,
  kSportsBar = 2,
  kBullBar = 4,
  kSpare = 8,
  kSoftTop = 16,
  kSpoiler = 32,
  kStripes = 64,
  kTray = 128,
  kSlidingDoor = 256,
  kSeats = 512,
  kSnorkel = 1024,
};

struct Body {
  const char* file;
  QColor paint;
  std::vector<Corner> outline;  // front at the left, clockwise from the front bumper's foot
  std::vector<Corner> glass;    // the side windows as one shape
  std::vector<double> pillars;  // x of the pillars that split the glass
  std::vector<double> doors;    // x of the door shut lines
  double wheelFront, wheelRear, wheelRadius;
  double belt;                  // y of the shoulder line
  QRectF headlight, taillight;
  unsigned extras;
};

const std::vector<Body>& Bodies() {
  static const std::vector<Body> bodies = {
      {"sedan.jpg", QColor(178, 182, 188),
       {{118, 556, 20}, {112, 492, 24}, {150, 452, 40}, {372, 420, 40}, {490, 318, 60}, {650, 314, 60}, {800, 404, 40}, {904, 418, 24}, {912, 470, 20}, {906, 556, 20}},
       {{394, 418, 10}, {496, 332, 30}, {644, 330, 30}, {776, 410, 10}}, {582}, {386, 582, 742}, 250, 760, 64, 440,
       {114, 458, 80, 22}, {880, 428, 30, 34}, kNone},
      {"hatchback.jpg", QColor(176, 24, 36),
       {{176, 556, 20}, {170, 494, 24}, {210, 456, 40}, {400, 420, 40}, {510, 322, 60}, {700, 318, 60}, {820, 376, 50}, {852, 450, 20}, {860, 556, 20}},
       {{420, 418, 10}, {516, 334, 30}, {690, 332, 30}, {800, 392, 10}, {804, 414, 6}}, {612}, {412, 612, 790}, 292, 752, 62, 440,
       {172, 460, 74, 22}, {830, 398, 26, 40}, kNone},
      {"ute.jpg", QColor(242, 242, 240),
       {{120, 550, 20}, {112, 470, 30}, {150, 424, 50}, {330, 396, 40}, {420, 300, 40}, {620, 296, 30}, {640, 392, 4}, {900, 392, 6}, {908, 550, 14}},
       {{350, 392, 8}, {426, 312, 24}, {608, 310, 16}, {622, 388, 8}}, {522}, {342, 522, 634}, 255, 760, 70, 420,
       {114, 432, 70, 24}, {886, 404, 22, 60}, kSportsBar | kTray},
      {"suv.jpg", QColor(36, 70, 130),
       {{128, 546, 20}, {120, 470, 30}, {160, 420, 50}, {380, 392, 40}, {480, 290, 50}, {760, 282, 40}, {860, 300, 40}, {884, 400, 20}, {888, 546, 20}},
       {{400, 388, 10}, {486, 304, 30}, {740, 298, 20}, {836, 314, 20}, {850, 384, 10}}, {600, 742}, {392, 600, 760}, 265, 760, 72, 410,
       {122, 428, 80, 26}, {860, 320, 24, 56}, kRoofRails},
      {"van.jpg", QColor(240, 240, 238),
       {{120, 552, 20}, {116, 470, 30}, {150, 404, 40}, {200, 330, 60}, {250, 222, 50}, {880, 214, 30}, {900, 250, 20}, {904, 552, 20}},
       {{214, 330, 10}, {260, 238, 30}, {404, 236, 10}, {404, 342, 10}}, {}, {206, 410, 440, 640}, 250, 770, 64, 360,
       {118, 420, 44, 30}, {888, 300, 16, 70}, kSlidingDoor},
      {"sportscar.jpg", QColor(200, 20, 30),
       {{140, 562, 20}, {132, 510, 30}, {190, 468, 60}, {450, 446, 20}, {880, 452, 30}, {894, 500, 20}, {886, 562, 20}},
       {{520, 442, 4}, {575, 394, 20}, {660, 392, 10}, {660, 442, 4}}, {}, {452, 690}, 262, 760, 60, 470,
       {150, 472, 86, 18}, {872, 462, 22, 26}, kSoftTop},
      {"wagon.jpg", QColor(40, 92, 64),
       {{118, 552, 20}, {112, 486, 24}, {150, 446, 40}, {370, 412, 40}, {480, 312, 60}, {800, 306, 40}, {880, 330, 30}, {904, 420, 20}, {908, 552, 20}},
       {{390, 410, 10}, {486, 326, 30}, {790, 320, 20}, {860, 342, 10}, {868, 404, 10}}, {592, 762}, {382, 592, 770}, 255, 765, 66, 430,
       {114, 452, 80, 22}, {882, 350, 22, 56}, kRoofRails},
      {"coupe.jpg", QColor(30, 32, 36),
       {{130, 556, 20}, {124, 496, 24}, {160, 458, 40}, {390, 428, 40}, {500, 334, 70}, {630, 330, 60}, {780, 400, 50}, {880, 420, 20}, {896, 470, 20}, {890, 556, 20}},
       {{410, 426, 10}, {504, 346, 30}, {624, 344, 20}, {740, 410, 10}}, {652}, {402, 660}, 258, 756, 64, 446,
       {126, 462, 80, 20}, {868, 430, 28, 30}, kNone},
      {"citycar.jpg", QColor(244, 200, 40),
       {{246, 556, 20}, {240, 490, 24}, {270, 450, 40}, {410, 420, 40}, {500, 320, 50}, {700, 314, 50}, {770, 350, 30}, {786, 450, 20}, {790, 556, 20}},
       {{428, 418, 10}, {504, 334, 24}, {690, 330, 24}, {752, 362, 10}, {760, 420, 8}}, {600}, {420, 600, 770}, 335, 700, 56, 440,
       {242, 456, 60, 24}, {766, 366, 22, 44}, kNone},
      {"fourwd.jpg", QColor(140, 108, 70),
       {{120, 536, 10}, {116, 440, 20}, {150, 400, 30}, {360, 380, 20}, {450, 270, 20}, {840, 262, 16}, {880, 280, 16}, {888, 536, 10}},
       {{376, 376, 6}, {456, 282, 10}, {830, 276, 10}, {860, 292, 6}, {866, 372, 6}}, {600, 745}, {370, 600, 760}, 262, 765, 76, 400,
       {118, 408, 60, 28}, {868, 300, 18, 60}, kRoofRails | kBullBar | kSpare | kSnorkel},
      {"peoplemover.jpg", QColor(120, 124, 130),
       {{110, 550, 20}, {104, 480, 30}, {140, 430, 50}, {330, 392, 50}, {440, 290, 60}, {850, 280, 40}, {900, 310, 30}, {912, 550, 20}},
       {{350, 388, 8}, {446, 302, 30}, {840, 294, 20}, {884, 320, 10}, {890, 390, 8}}, {560, 722}, {342, 560, 760}, 240, 770, 66, 410,
       {106, 440, 80, 24}, {890, 330, 20, 60}, kSlidingDoor},
      {"classic.jpg", QColor(232, 110, 20),
       {{118, 552, 20}, {112, 494, 24}, {150, 456, 30}, {380, 424, 40}, {500, 324, 60}, {650, 320, 60}, {790, 408, 30}, {900, 414, 10}, {912, 470, 20}, {906, 552, 20}},
       {{400, 422, 10}, {504, 338, 30}, {644, 336, 30}, {770, 412, 10}}, {586}, {392, 586, 742}, 250, 760, 66, 444,
       {114, 462, 84, 20}, {884, 424, 26, 30}, kSpoiler | kStripes},
      {"tray.jpg", QColor(244, 244, 242),
       {{120, 550, 20}, {112, 470, 30}, {150, 424, 50}, {330, 396, 40}, {420, 300, 40}, {540, 296, 20}, {556, 400, 6}, {562, 550, 10}},
       {{350, 392, 8}, {426, 312, 24}, {530, 310, 10}, {540, 388, 8}}, {}, {342, 548}, 255, 760, 68, 420,
       {114, 432, 70, 24}, {0, 0, 0, 0}, kTray},
      {"convertible.jpg", QColor(196, 200, 206),
       {{120, 556, 20}, {114, 496, 24}, {150, 456, 40}, {400, 432, 30}, {860, 436, 30}, {900, 470, 20}, {896, 556, 20}},
       {}, {}, {404, 660}, 252, 762, 64, 460,
       {116, 462, 80, 20}, {874, 446, 26, 28}, kSeats},
  };
  return bodies;
}

const Body* Find(const char* file) {
  for (const Body& b : Bodies())
    if (std::strcmp(b.file, file) == 0) return &b;
  return nullptr;
}

void Yard(QPainter& p, quint32 seed) {
  const QRectF canvas(0, 0, kPictureWidth, kPictureHeight);
  Outdoors(p, canvas, 440, QColor(90, 146, 214), QColor(220, 232, 242), QColor(86, 88, 92), seed);
  // The showroom behind, and bunting strung across the yard.
  const QRectF showroom(40, 250, 944, 190);
  p.fillRect(showroom, QColor(236, 236, 232));
  const QColor signs[] = {QColor(30, 80, 150), QColor(190, 30, 40), QColor(20, 120, 80), QColor(60, 60, 66)};
  p.fillRect(QRectF(40, 236, 944, 24), signs[seed % 4]);
  for (double x = 60; x < 970; x += 120) p.fillRect(QRectF(x, 290, 100, 150), Vertical(QRectF(0, 290, 1, 150), QColor(150, 180, 200), QColor(70, 90, 110)));
  const QColor flags[] = {QColor(220, 40, 40), QColor(250, 200, 30), QColor(40, 100, 200), QColor(60, 170, 80)};
  QPainterPath string;
  string.moveTo(-10, 60);
  string.quadTo(512, 200, 1034, 60);
  p.setPen(QPen(QColor(60, 60, 60), 2));
  p.setBrush(Qt::NoBrush);
  p.drawPath(string);
  p.setPen(Qt::NoPen);
  for (int k = 0; k < 26; ++k) {
    const QPointF a = string.pointAtPercent(k / 26.0 + 0.01), b = string.pointAtPercent(k / 26.0 + 0.03);
    QPolygonF flag;
    flag << a << b << (a + b) / 2 + QPointF(0, 34);
    p.setBrush(flags[k % 4]);
    p.drawPolygon(flag);
  }
  // Asphalt with its grit and the bay lines.
  Rng rng(seed + 1);
  for (int k = 0; k < 3000; ++k) {
    p.setBrush(rng.Int(0, 1) ? QColor(255, 255, 255, 30) : QColor(0, 0, 0, 40));
    p.drawEllipse(QPointF(rng.Uniform(0, canvas.width()), rng.Uniform(440, canvas.height())), 1.5, 1.5);
  }
  p.setPen(QPen(QColor(236, 236, 230), 8));
  p.drawLine(QPointF(60, 460), QPointF(-60, 768));
  p.drawLine(QPointF(964, 460), QPointF(1084, 768));
}

void Wheel(QPainter& p, QPointF c, double r) {
  p.setPen(Qt::NoPen);
  QRadialGradient tyre(c, r);
  tyre.setColorAt(0.7, QColor(50, 50, 54));
  tyre.setColorAt(0.85, QColor(34, 34, 36));
  tyre.setColorAt(1, QColor(18, 18, 20));
  p.setBrush(tyre);
  p.drawEllipse(c, r, r);
  p.setBrush(QColor(40, 40, 44));
  p.drawEllipse(c, r * 0.64, r * 0.64);
  QRadialGradient alloy(c - QPointF(r * 0.2, r * 0.2), r * 0.7);
  alloy.setColorAt(0, QColor(236, 238, 240));
  alloy.setColorAt(1, QColor(140, 144, 150));
  p.setBrush(alloy);
  for (int k = 0; k < 5; ++k) {
    p.save();
    p.translate(c);
    p.rotate(k * 72 + 10);
    p.drawPolygon(QPolygonF({QPointF(-r * 0.07, 0), QPointF(r * 0.07, 0), QPointF(r * 0.15, -r * 0.6), QPointF(-r * 0.15, -r * 0.6)}));
    p.restore();
  }
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(200, 204, 208), r * 0.05));
  p.drawEllipse(c, r * 0.62, r * 0.62);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(90, 94, 100));
  p.drawEllipse(c, r * 0.14, r * 0.14);
}

void Extras(QPainter& p, const Body& b, const QRectF& box, bool front) {
  const QColor black(30, 30, 32);
  if (front && (b.extras & kTray)) {
    const double from = b.outline[b.outline.size() - 3].x + 10;
    if (b.extras & kSportsBar) {
      p.setPen(QPen(black, 10, Qt::SolidLine, Qt::RoundCap));
      p.drawLine(QPointF(from + 20, 392), QPointF(from + 40, 320));
      p.drawLine(QPointF(from + 40, 320), QPointF(from + 120, 320));
      p.drawLine(QPointF(from + 120, 320), QPointF(from + 140, 392));
    } else {
      // Alloy tray with a headboard, on the chassis.
      p.fillRect(QRectF(b.outline.back().x, 470, 920 - b.outline.back().x, 40), black);
      Fill(p, Box(QRectF(568, 420, 352, 50), 3), Vertical(QRectF(0, 420, 1, 50), QColor(230, 232, 236), QColor(150, 154, 160)));
      p.setPen(QPen(QColor(120, 124, 130), 2));
      for (double y = 430; y < 470; y += 10) p.drawLine(QPointF(570, y), QPointF(918, y));
      p.setPen(QPen(QColor(190, 194, 200), 8));
      p.drawLine(QPointF(578, 420), QPointF(578, 300));
      p.drawLine(QPointF(578, 304), QPointF(600, 304));
      for (double y = 330; y < 420; y += 24) p.drawLine(QPointF(578, y), QPointF(596, y));
      p.fillRect(QRectF(904, 430, 14, 30), QColor(200, 30, 30));
    }
  }
  if (front) return;
  if (b.extras & kRoofRails) {
    p.fillRect(QRectF(b.glass[1].x + 10, box.top() - 12, b.glass[2].x - b.glass[1].x + 20, 7), black);
    for (double x : {b.glass[1].x + 20, b.glass[2].x + 10}) p.fillRect(QRectF(x, box.top() - 12, 8, 14), black);
  }
  if (b.extras & kSoftTop) {
    Fill(p, Rounded({{450, 447, 2}, {560, 380, 30}, {700, 376, 40}, {800, 452, 2}}), Vertical(QRectF(0, 376, 1, 76), QColor(60, 60, 64), QColor(20, 20, 22)));
    Fill(p, Rounded({{520, 442, 4}, {575, 396, 20}, {660, 392, 10}, {660, 442, 4}}), Vertical(QRectF(0, 392, 1, 50), QColor(110, 130, 150), QColor(30, 36, 44)));
  }
  if (b.extras & kSeats) {
    p.setPen(QPen(black, 8, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(404, 432), QPointF(486, 350));
    for (double x : {560.0, 720.0}) Fill(p, Box(QRectF(x, 384, 40, 56), 14), QColor(60, 40, 30));
  }
  if (b.extras & kSpoiler) {
    Fill(p, Rounded({{840, 392, 4}, {910, 388, 4}, {910, 398, 4}, {840, 402, 4}}), black);
    p.fillRect(QRectF(870, 398, 8, 18), black);
  }
  if (b.extras & kStripes) {
    p.save();
    p.setClipPath(Rounded(b.outline));
    p.fillRect(QRectF(100, 446, 280, 10), black);
    p.restore();
  }
  if (b.extras & kBullBar) {
    p.setPen(QPen(black, 14, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(100, 414), QPointF(100, 546));
    for (double y : {414.0, 470.0, 530.0}) p.drawLine(QPointF(100, y), QPointF(136, y - 4));
  }
  if (b.extras & kSpare) {
    Fill(p, Box(QRectF(884, 330, 34, 150), 12), Horizontal(QRectF(884, 0, 34, 1), QColor(50, 50, 54), QColor(20, 20, 22)));
  }
  if (b.extras & kSnorkel) {
    p.setPen(QPen(black, 12, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(330, 470), QPointF(350, 390));
    p.drawLine(QPointF(350, 390), QPointF(440, 280));
  }
  if (b.extras & kSlidingDoor) {
    p.setPen(QPen(WithAlpha(black, 140), 3));
    p.drawLine(QPointF(b.doors[1] + 20, b.belt - 6), QPointF(b.doors[2] + 160, b.belt - 6));
  }
}

void Car(QPainter& p, const Body& b) {
  const QPainterPath body = Rounded(b.outline);
  const QRectF box = body.boundingRect();
  GroundShadow(p, QRectF(box.left() - 40, kGround - 30, box.width() + 80, 60), 200);
  Extras(p, b, box, true);
  QLinearGradient paint(box.topLeft(), box.bottomLeft());
  const double beltAt = (b.belt - box.top()) / box.height();
  paint.setColorAt(0, Tone(b.paint, 1.3));
  paint.setColorAt(beltAt - 0.04, Tone(b.paint, 1.12));
  paint.setColorAt(beltAt, Tone(b.paint, 1.35));
  paint.setColorAt(beltAt + 0.03, Tone(b.paint, 0.95));
  paint.setColorAt(0.82, Tone(b.paint, 0.8));
  paint.setColorAt(1, Tone(b.paint, 0.45));
  Fill(p, body, paint);
  p.save();
  p.setClipPath(body);
  // Wheel arches, shut lines and handles, lights, the dark sill.
  for (double x : {b.wheelFront, b.wheelRear}) {
    p.setBrush(QColor(16, 16, 18));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(x, kGround - b.wheelRadius), b.wheelRadius + 12, b.wheelRadius + 12);
  }
  p.setPen(QPen(WithAlpha(Tone(b.paint, 0.35), 200), 2));
  for (double x : b.doors) p.drawLine(QPointF(x, b.belt - 24), QPointF(x + 4, box.bottom() - 20));
  for (std::size_t k = 0; k + 1 < b.doors.size(); ++k)
    Fill(p, Box(QRectF(b.doors[k + 1] - 52, b.belt + 14, 30, 8), 4), Tone(b.paint, 0.6));
  p.fillRect(QRectF(box.left(), box.bottom() - 22, box.width(), 22), QColor(0, 0, 0, 70));
  p.restore();
  if (!b.glass.empty()) {
    const QPainterPath glass = Rounded(b.glass);
    const QRectF gb = glass.boundingRect();
    Fill(p, glass, Vertical(gb, QColor(120, 146, 170), QColor(24, 30, 38)));
    p.save();
    p.setClipPath(glass);
    QLinearGradient glint(gb.topLeft(), gb.bottomRight());
    glint.setColorAt(0.25, QColor(255, 255, 255, 0));
    glint.setColorAt(0.32, QColor(255, 255, 255, 90));
    glint.setColorAt(0.42, QColor(255, 255, 255, 0));
    p.fillRect(gb, glint);
    for (double x : b.pillars) p.fillRect(QRectF(x - 10, gb.top(), 20, gb.height()), QColor(24, 24, 26));
    // A price card behind the front side window.
    const double cardX = b.pillars.empty() ? gb.center().x() : (b.glass[0].x + b.pillars[0]) / 2;
    p.fillRect(QRectF(cardX - 26, gb.bottom() - 40, 52, 32), QColor(250, 220, 40));
    p.fillRect(QRectF(cardX - 18, gb.bottom() - 32, 36, 6), QColor(200, 30, 30));
    p.fillRect(QRectF(cardX - 18, gb.bottom() - 20, 28, 4), QColor(40, 40, 40));
    p.restore();
    Fill(p, Rounded({{b.glass[0].x - 4, b.glass[0].y - 36, 6}, {b.glass[0].x + 30, b.glass[0].y - 30, 6}, {b.glass[0].x + 26, b.glass[0].y - 10, 6}, {b.glass[0].x - 8, b.glass[0].y - 14, 6}}), Tone(b.paint, 0.7));
  }
  Fill(p, Box(b.headlight, 8), Horizontal(b.headlight, QColor(255, 255, 250), QColor(190, 200, 210)));
  if (!b.taillight.isEmpty()) Fill(p, Box(b.taillight, 6), Vertical(b.taillight, QColor(240, 60, 50), QColor(140, 20, 20)));
  Extras(p, b, box, false);
  for (double x : {b.wheelFront, b.wheelRear}) Wheel(p, QPointF(x, kGround - b.wheelRadius), b.wheelRadius);
}

}  // namespace

bool DrawCar(QPainter& p, const char* file) {
  const Body* body = Find(file);
  if (!body) return false;
  Yard(p, SeedOf(file));
  p.save();
  p.translate(512, kGround);
  p.scale(1.1, 1.1);
  p.translate(-512, -kGround);
  Car(p, *body);
  p.restore();
  return true;
}

}  // namespace cb::assets
