// The main window's wallpapers: quiet, even patterns that sit behind the
// gallery without competing with its pictures.

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

struct Wallpaper {
  const char* file;
  QRgb (*pixel)(int x, int y);
};

// Soft clouds, light and dark, across the whole picture.
double Clouds(int x, int y, quint32 seed) { return Fbm(x / 260.0, y / 260.0, 4, seed); }

const Wallpaper kWallpapers[] = {
    {"sandstone.jpg",
     [](int x, int y) {
       const double bands = 0.5 + 0.5 * std::sin((y * 0.012 + Fbm(x / 400.0, y / 120.0, 3, 5) * 3.0));
       const double t = 0.65 * Clouds(x, y, 4) + 0.35 * bands;
       return Mix(QColor(226, 208, 178), QColor(196, 170, 132), t).rgb();
     }},
    {"sage.jpg",
     [](int x, int y) {
       // A faint diamond trellis over a clouded ground.
       const double u = (x + y) * M_PI / 90, v = (x - y) * M_PI / 90;
       const double trellis = std::pow(std::max(std::abs(std::cos(u)), std::abs(std::cos(v))), 60);
       const double t = 0.8 * Clouds(x, y, 7) + 0.22 * trellis;
       return Mix(QColor(176, 192, 166), QColor(132, 152, 124), t).rgb();
     }},
    {"bluegrey.jpg",
     [](int x, int y) {
       const double brush = ValueNoise(x * 0.004 + y * 0.004, (y - x) * 0.35, 9);
       const double t = 0.45 * double(y) / kHeight + 0.4 * Clouds(x, y, 8) + 0.15 * brush;
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
