// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's frames: mitred mouldings around a mat. The slide picture
// covers the middle, so only the rails and a few pixels of mat show around
// a slide; an empty cell shows the whole frame. The pixel size keeps the
// proportions of a gallery cell (1326 by 1565 twips).

#include <QDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "Assets.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 472;

// Where a pixel lies on a rail: `along` in pixels, `across` from 0 at the
// outer edge to 1 at the inner edge; sides 0 top, 1 right, 2 bottom, 3 left.
struct RailPoint {
  double along, across;
  int side;
  double x, y;
};

struct Frame {
  const char* file;
  double railX, railY;                     // rail widths, left and right / top and bottom
  double (*height)(const RailPoint&);      // the moulding's profile, in rail widths
  QColor (*surface)(const RailPoint&);     // the material at a point of the rail
  QColor (*mat)(double x, double y);       // what lies inside the rails
  double gloss;                            // strength of the highlights
};

constexpr double kPi = 3.14159265358979;

// Light comes from the upper left: a slope rising towards the inside faces
// the light on the top and left rails and away from it on the others.
constexpr double kFacing[4] = {1.0, -0.8, -1.0, 0.8};

QColor Wood(const RailPoint& p, const QColor& light, const QColor& dark, quint32 seed) {
  const double u = p.along / 40, v = p.across;
  const double warp = Fbm(u * 0.2 + p.side * 17, v * 1.5, 3, seed) * 3.5;
  const double rings = std::pow(0.5 + 0.5 * std::sin((v * 5 + warp) * 2 * kPi), 4);
  const double pores = ValueNoise(u * 2.5, v * 70 + p.side * 9, seed + 7);
  const double cloud = Fbm(u * 0.6, v * 2 + p.side * 3, 2, seed + 3);
  return Mix(light, dark, std::clamp(0.45 * rings + 0.3 * pores + 0.35 * cloud - 0.1, 0.0, 1.0));
}

QColor Linen(double x, double y, const QColor& base, quint32 seed) {
  const double t = 0.5 * ValueNoise(x * 0.9, y * 0.07, seed) + 0.5 * ValueNoise(x * 0.07, y * 0.9, seed + 1);
  return Tone(base, 0.93 + 0.14 * t);
}

QColor Marble(double x, double y, quint32 seed) {
  const double n = Fbm(x * 0.008, y * 0.008, 5, seed);
  const double vein = std::abs(std::sin((x * 0.004 + y * 0.009 + n * 4.5) * kPi));
  const double dark = 1 - std::pow(vein, 0.12);
  const QColor stone = Mix(QColor(238, 236, 231), QColor(214, 212, 210), Fbm(x * 0.02, y * 0.02, 3, seed + 5));
  return Mix(stone, QColor(112, 116, 124), std::clamp(dark * 1.4, 0.0, 0.85));
}

double Ramp(double a, double from, double to) { return std::clamp((a - from) / (to - from), 0.0, 1.0); }

const Frame kFrames[] = {
    {"oak.jpg", 38, 32,
     [](const RailPoint& p) { return 0.55 * std::pow(std::sin(kPi * p.across), 0.6) + 0.1 * Ramp(p.across, 0, 0.08); },
     [](const RailPoint& p) { return Wood(p, QColor(214, 172, 116), QColor(150, 102, 58), 11); },
     [](double x, double y) { return Linen(x, y, QColor(236, 228, 210), 12); }, 0.15},
    {"walnut.jpg", 38, 32,
     [](const RailPoint& p) { return 0.9 - 0.7 * p.across + 0.12 * std::sin(p.across * 3 * kPi); },
     [](const RailPoint& p) { return Wood(p, QColor(120, 80, 52), QColor(52, 32, 22), 21); },
     [](double x, double y) { return Linen(x, y, QColor(232, 226, 214), 22); }, 0.25},
    {"gilt.jpg", 40, 34,
     [](const RailPoint& p) {
       const double bead = p.across > 0.6 && p.across < 0.74 ? 0.06 * std::max(0.0, std::cos(p.along * 0.55)) : 0;
       return 0.45 * std::sin(kPi * p.across) + 0.1 * std::sin(p.across * 6 * kPi) + bead;
     },
     [](const RailPoint& p) {
       const double patina = Fbm(p.along * 0.05, p.across * 3 + p.side, 3, 31);
       return Mix(QColor(226, 186, 92), QColor(150, 108, 44), std::clamp(patina * 1.2 - 0.25, 0.0, 1.0));
     },
     [](double x, double y) { return Linen(x, y, QColor(118, 30, 38), 32); }, 0.6},
    {"brushedmetal.jpg", 36, 30,
     [](const RailPoint& p) { return 0.2 * Ramp(p.across, 0, 0.14) - 0.2 * Ramp(p.across, 0.84, 1); },
     [](const RailPoint& p) {
       const double streak = 0.6 * ValueNoise(p.along * 0.01, p.across * 36 + p.side * 100, 41) +
                             0.4 * ValueNoise(p.along * 0.06, p.across * 90 + p.side * 50, 42);
       return Tone(QColor(176, 181, 188), 0.85 + 0.28 * streak);
     },
     [](double x, double y) { return Linen(x, y, QColor(58, 60, 64), 43); }, 0.5},
    {"marble.jpg", 38, 32,
     [](const RailPoint& p) { return 0.15 * Ramp(p.across, 0, 0.1) - 0.18 * Ramp(p.across, 0.82, 1); },
     [](const RailPoint& p) { return Marble(p.x, p.y, 51); },
     [](double x, double y) { return Linen(x, y, QColor(196, 196, 192), 52); }, 0.3},
    {"linen.jpg", 38, 32,
     [](const RailPoint& p) { return 0.3 * std::sin(kPi * Ramp(p.across, 0, 0.18)) - 0.06 * Ramp(p.across, 0.86, 1); },
     [](const RailPoint& p) {
       if (p.across < 0.18) return Wood(p, QColor(70, 62, 56), QColor(34, 30, 28), 61);
       if (p.across > 0.86) return QColor(248, 246, 240);
       return Linen(p.x, p.y, QColor(222, 208, 180), 62);
     },
     [](double x, double y) { return Linen(x, y, QColor(222, 208, 180), 62); }, 0.1},
    {"ebony.jpg", 36, 30,
     [](const RailPoint& p) { return 0.5 * std::sin(kPi * std::min(p.across / 0.85, 1.0)) + 0.15 * Ramp(p.across, 0.86, 0.92); },
     [](const RailPoint& p) {
       if (p.across > 0.86) return Tone(QColor(196, 198, 204), 0.9 + 0.2 * ValueNoise(p.along * 0.05, 1, 71));
       return Wood(p, QColor(48, 40, 36), QColor(20, 17, 16), 72);
     },
     [](double x, double y) { return Linen(x, y, QColor(244, 242, 236), 73); }, 0.7},
    {"slate.jpg", 38, 32,
     [](const RailPoint& p) { return 0.12 * Fbm(p.x * 0.05, p.y * 0.05, 3, 81) + 0.2 * Ramp(p.across, 0, 0.1); },
     [](const RailPoint& p) {
       const double n = Fbm(p.x * 0.015, p.y * 0.04, 5, 82);
       return Mix(QColor(92, 100, 112), QColor(46, 52, 60), n);
     },
     [](double x, double y) { return Linen(x, y, QColor(214, 216, 218), 83); }, 0.2},
    {"redgum.jpg", 38, 32,
     [](const RailPoint& p) { return 0.35 * Ramp(p.across, 0, 0.35) + 0.25 * std::sin(kPi * Ramp(p.across, 0.5, 1)); },
     [](const RailPoint& p) { return Wood(p, QColor(170, 84, 60), QColor(98, 40, 30), 91); },
     [](double x, double y) { return Linen(x, y, QColor(240, 234, 220), 92); }, 0.3},
};

QRgb FramePixel(const Frame& f, int x, int y) {
  const double d[4] = {y / f.railY, (kWidth - 1 - x) / f.railX, (kHeight - 1 - y) / f.railY, x / f.railX};
  const int side = static_cast<int>(std::min_element(d, d + 4) - d);
  const double across = d[side];
  if (across >= 1) {
    // The mat, shaded where the rail throws its shadow onto it.
    const double gap = std::min({(d[0] - 1) * f.railY, (d[1] - 1) * f.railX, (d[2] - 1) * f.railY,
                                 (d[3] - 1) * f.railX});
    const double shadow = 1 - 0.5 * std::exp(-gap / 4);
    return Tone(f.mat(x, y), shadow).rgb();
  }
  const RailPoint p{side % 2 == 0 ? double(x) : double(y), across, side, double(x), double(y)};
  const double eps = 0.02;
  RailPoint q = p;
  q.across = std::min(across + eps, 0.999);
  const double slope = (f.height(q) - f.height(p)) / (q.across - p.across);
  const double lit = slope * kFacing[side];
  double factor = std::clamp(1 + 0.3 * lit, 0.45, 1.5);
  std::array<double, 4> sorted{d[0], d[1], d[2], d[3]};
  std::sort(sorted.begin(), sorted.end());
  const double railPx = side % 2 == 0 ? f.railY : f.railX;
  if ((sorted[1] - sorted[0]) * railPx < 0.9) factor *= 0.8;  // the mitre joint
  if (across * railPx < 1.2) factor *= 0.55;                  // the outer edge
  QColor c = Tone(f.surface(p), factor);
  const double shine = f.gloss * std::pow(std::clamp(lit / 1.6, 0.0, 1.0), 3);
  return Mix(c, QColor(255, 250, 235), std::min(shine, 0.8)).rgb();
}

}  // namespace

QStringList FrameNames() {
  QStringList names;
  for (const Frame& f : kFrames) names << f.file;
  return names;
}

bool WriteFrames(const QString& dir) {
  return EveryInParallel(std::size(kFrames), [&dir](std::size_t i) {
    const Frame& f = kFrames[i];
    QImage img = Texture({kWidth, kHeight}, [&f](int x, int y) { return FramePixel(f, x, y); });
    AddGrain(img, 3, SeedOf(f.file));
    if (SaveJpeg(img, dir + "/" + f.file, 90)) return true;
    std::fprintf(stderr, "chattelbook-assets: cannot write %s/%s\n", qPrintable(dir), f.file);
    return false;
  });
}

}  // namespace cb::assets
