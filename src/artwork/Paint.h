// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Drawing helpers shared by the installation's pictures: seeded noise and
// textures, shading, rounded outlines and the backdrops things stand on.
// Everything is seeded, so each build draws the same pixels.

#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QString>

#include <functional>
#include <random>
#include <vector>

namespace cb::assets {

class Rng {
 public:
  explicit Rng(quint32 seed) : gen_(seed) {}
  double Uniform(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(gen_); }
  // Inclusive at both ends.
  int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen_); }

 private:
  std::mt19937 gen_;
};

// A stable seed from a name (FNV-1a), the same on every run.
quint32 SeedOf(const QString& name);

// Smooth value noise in [0,1]; one lattice cell per unit.
double ValueNoise(double x, double y, quint32 seed);
// `octaves` of value noise, each twice the frequency and half the weight; in [0,1].
double Fbm(double x, double y, int octaves, quint32 seed);

// `c` with its lightness scaled by `f` (below 1 darker), hue kept.
QColor Tone(const QColor& c, double f);
// Linear blend: t = 0 gives `a`, 1 gives `b`.
QColor Mix(const QColor& a, const QColor& b, double t);
QColor WithAlpha(QColor c, int alpha);

// An image whose every pixel is `shade(x, y)`.
QImage Texture(QSize size, const std::function<QRgb(int x, int y)>& shade);
// Adds grey grain of at most +-`amplitude` to every pixel, as film or paper would.
void AddGrain(QImage& image, int amplitude, quint32 seed);

// Paints `path` with `brush` and no outline.
void Fill(QPainter& p, const QPainterPath& path, const QBrush& brush);
// A rectangle with rounded corners, as a path.
QPainterPath Box(const QRectF& r, double radius);
// Gradients across `r`: top to bottom, left to right.
QLinearGradient Vertical(const QRectF& r, const QColor& top, const QColor& bottom);
QLinearGradient Horizontal(const QRectF& r, const QColor& left, const QColor& right);

// A closed outline through the points, each corner rounded by its own radius
// (capped at half of either neighbouring edge).
struct Corner {
  double x, y, r = 0;
};
QPainterPath Rounded(const std::vector<Corner>& corners);

// A cylinder's shading across the segment a..b: dark rim, highlight, dark rim.
QLinearGradient Cylinder(QPointF a, QPointF b, const QColor& base);
// A soft shadow filling `ellipse`, darkest at its centre.
void GroundShadow(QPainter& p, const QRectF& ellipse, int alpha);

// Seamless paper of a product photograph: lit centre, darker edges.
void StudioBackdrop(QPainter& p, const QRectF& r, const QColor& centre, const QColor& edge);

enum class Floor { Boards, Carpet, Tiles };
// A wall above `floorY` with skirting, and a floor below it in perspective.
void RoomBackdrop(QPainter& p, const QRectF& r, double floorY, const QColor& wall, const QColor& floor,
                  Floor kind);

// Sky above `horizonY` with a few clouds, and plain ground below.
void Outdoors(QPainter& p, const QRectF& r, double horizonY, const QColor& skyTop, const QColor& skyLow,
              const QColor& ground, quint32 seed);
// A round-headed tree standing on `base`, `height` tall.
void Tree(QPainter& p, QPointF base, double height, const QColor& leaf, quint32 seed);
// A low bush centred on `base`.
void Shrub(QPainter& p, QPointF base, double width, const QColor& leaf, quint32 seed);

// Runs job(0) to job(count - 1) on all cores; true when every one returned true.
bool EveryInParallel(std::size_t count, const std::function<bool(std::size_t)>& job);

// Writes a JPEG; false when the file could not be written.
bool SaveJpeg(const QImage& image, const QString& path, int quality);

}  // namespace cb::assets
