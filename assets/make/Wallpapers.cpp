// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's wallpapers: quiet, even patterns that sit behind the
// gallery without competing with its pictures. The main window repeats a
// wallpaper from its top left to fill a large screen, so each one tiles
// seamlessly: its noise wraps round at the picture's edges and every stripe
// fits a whole number of times.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "Assets.h"
#include "artwork/Paint.h"

namespace cb::assets {
namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;

// One lattice cell of the noise, in pixels: it divides both sides.
constexpr int kCell = 200;
static_assert(kWidth % kCell == 0 && kHeight % kCell == 0);

struct Wallpaper {
  const char* file;
  QRgb (*pixel)(int x, int y);
};

int Wrap(int i, int period) { return ((i % period) + period) % period; }

// Value noise that repeats every `px` cells across and `py` down.
double PeriodicNoise(double x, double y, int px, int py, quint32 seed) {
  const double fx = std::floor(x), fy = std::floor(y);
  const int ix = static_cast<int>(fx), iy = static_cast<int>(fy);
  double tx = x - fx, ty = y - fy;
  tx = tx * tx * (3 - 2 * tx);
  ty = ty * ty * (3 - 2 * ty);
  // Noise at a lattice point is that point's own value.
  const auto at = [&](int i, int j) { return ValueNoise(Wrap(i, px), Wrap(j, py), seed); };
  const double top = at(ix, iy) + (at(ix + 1, iy) - at(ix, iy)) * tx;
  const double bottom = at(ix, iy + 1) + (at(ix + 1, iy + 1) - at(ix, iy + 1)) * tx;
  return top + (bottom - top) * ty;
}

// Octaves of periodic noise over a picture of the wallpapers' size; `cell` divides both sides.
double PeriodicFbm(int x, int y, int cell, int octaves, quint32 seed) {
  double sum = 0, norm = 0, amp = 0.5;
  for (int o = 0, f = 1; o < octaves; ++o, f *= 2) {
    sum += amp * PeriodicNoise(double(x) * f / cell, double(y) * f / cell, kWidth / cell * f, kHeight / cell * f,
                               seed + static_cast<quint32>(o) * 1013u);
    norm += amp;
    amp *= 0.5;
  }
  return sum / norm;
}

// Soft clouds, light and dark, across the whole picture.
double Clouds(int x, int y, quint32 seed) { return PeriodicFbm(x, y, kCell, 4, seed); }

// A whole number of waves down the picture.
double Waves(int y, int count) { return 2 * M_PI * count * y / kHeight; }

const Wallpaper kWallpapers[] = {
    {"sandstone.jpg",
     [](int x, int y) {
       const double bands = 0.5 + 0.5 * std::sin(Waves(y, 2) + PeriodicFbm(x, y, 100, 3, 5) * 3.0);
       const double t = 0.65 * Clouds(x, y, 4) + 0.35 * bands;
       return Mix(QColor(226, 208, 178), QColor(196, 170, 132), t).rgb();
     }},
    {"sage.jpg",
     [](int x, int y) {
       // A faint diamond trellis over a clouded ground.
       // A lattice of 100 pixels, which both sides hold a whole number of times.
       const double u = (x + y) * M_PI / 100, v = (x - y) * M_PI / 100;
       const double trellis = std::pow(std::max(std::abs(std::cos(u)), std::abs(std::cos(v))), 60);
       const double t = 0.8 * Clouds(x, y, 7) + 0.22 * trellis;
       return Mix(QColor(176, 192, 166), QColor(132, 152, 124), t).rgb();
     }},
    {"bluegrey.jpg",
     [](int x, int y) {
       // Long horizontal brush strokes: wide cells across, narrow down.
       const double brush = PeriodicNoise(x / 400.0, y / 4.0, kWidth / 400, kHeight / 4, 9);
       const double t = 0.25 + 0.55 * Clouds(x, y, 8) + 0.2 * brush;
       return Mix(QColor(150, 168, 188), QColor(84, 102, 126), t).rgb();
     }},
};

}  // namespace

QStringList WallpaperNames() {
  QStringList names;
  for (const Wallpaper& w : kWallpapers) names << w.file;
  return names;
}

bool WriteWallpapers(const QString& dir) {
  return EveryInParallel(std::size(kWallpapers), [&dir](std::size_t i) {
    const Wallpaper& w = kWallpapers[i];
    QImage img = Texture({kWidth, kHeight}, w.pixel);
    AddGrain(img, 2, SeedOf(w.file));
    if (SaveJpeg(img, dir + "/" + w.file, kJpegQuality)) return true;
    std::fprintf(stderr, "chattelbook-assets: cannot write %s/%s\n", qPrintable(dir), w.file);
    return false;
  });
}

}  // namespace cb::assets
