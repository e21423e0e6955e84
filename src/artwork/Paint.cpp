// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Paint.h"

#include <QImageWriter>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QtConcurrent/QtConcurrentMap>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numeric>

namespace cb::assets {
namespace {

quint32 Hash(int x, int y, quint32 seed) {
  quint32 h = seed * 0x9E3779B9u;
  h ^= static_cast<quint32>(x) * 0x85EBCA6Bu;
  h = (h << 13) | (h >> 19);
  h ^= static_cast<quint32>(y) * 0xC2B2AE35u;
  h *= 0x27D4EB2Fu;
  h ^= h >> 15;
  h *= 0x165667B1u;
  h ^= h >> 13;
  return h;
}

double Lattice(int x, int y, quint32 seed) { return (Hash(x, y, seed) & 0xFFFFFFu) / double(0xFFFFFF); }

int Clamp255(int v) { return std::clamp(v, 0, 255); }

}  // namespace

quint32 SeedOf(const QString& name) {
  quint32 h = 2166136261u;
  for (QChar c : name) h = (h ^ c.unicode()) * 16777619u;
  return h;
}

double ValueNoise(double x, double y, quint32 seed) {
  const double fx = std::floor(x), fy = std::floor(y);
  const int ix = static_cast<int>(fx), iy = static_cast<int>(fy);
  double tx = x - fx, ty = y - fy;
  tx = tx * tx * (3 - 2 * tx);
  ty = ty * ty * (3 - 2 * ty);
  const double a = Lattice(ix, iy, seed), b = Lattice(ix + 1, iy, seed);
  const double c = Lattice(ix, iy + 1, seed), d = Lattice(ix + 1, iy + 1, seed);
  return (a + (b - a) * tx) + ((c + (d - c) * tx) - (a + (b - a) * tx)) * ty;
}

double Fbm(double x, double y, int octaves, quint32 seed) {
  double sum = 0, norm = 0, amp = 0.5, freq = 1;
  for (int o = 0; o < octaves; ++o) {
    sum += amp * ValueNoise(x * freq, y * freq, seed + static_cast<quint32>(o) * 1013u);
    norm += amp;
    amp *= 0.5;
    freq *= 2;
  }
  return sum / norm;
}

QColor Tone(const QColor& c, double f) {
  return QColor(Clamp255(static_cast<int>(c.red() * f)), Clamp255(static_cast<int>(c.green() * f)),
                Clamp255(static_cast<int>(c.blue() * f)), c.alpha());
}

QColor Mix(const QColor& a, const QColor& b, double t) {
  const auto m = [t](int u, int v) { return Clamp255(static_cast<int>(std::lround(u + (v - u) * t))); };
  return QColor(m(a.red(), b.red()), m(a.green(), b.green()), m(a.blue(), b.blue()), m(a.alpha(), b.alpha()));
}

QColor WithAlpha(QColor c, int alpha) {
  c.setAlpha(alpha);
  return c;
}

QImage Texture(QSize size, const std::function<QRgb(int x, int y)>& shade) {
  QImage img(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
    for (int x = 0; x < size.width(); ++x) line[x] = shade(x, y);
  }
  return img;
}

void AddGrain(QImage& image, int amplitude, quint32 seed) {
  if (image.format() != QImage::Format_RGB32 && image.format() != QImage::Format_ARGB32)
    image = image.convertToFormat(QImage::Format_RGB32);
  quint32 s = seed | 1u;
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      s ^= s << 13;
      s ^= s >> 17;
      s ^= s << 5;
      const int d = static_cast<int>(s % static_cast<quint32>(2 * amplitude + 1)) - amplitude;
      const QRgb c = line[x];
      line[x] = qRgba(Clamp255(qRed(c) + d), Clamp255(qGreen(c) + d), Clamp255(qBlue(c) + d), qAlpha(c));
    }
  }
}

void Fill(QPainter& p, const QPainterPath& path, const QBrush& brush) {
  p.setPen(Qt::NoPen);
  p.setBrush(brush);
  p.drawPath(path);
}

QPainterPath Box(const QRectF& r, double radius) {
  QPainterPath path;
  path.addRoundedRect(r, radius, radius);
  return path;
}

QLinearGradient Vertical(const QRectF& r, const QColor& top, const QColor& bottom) {
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, top);
  g.setColorAt(1, bottom);
  return g;
}

QLinearGradient Horizontal(const QRectF& r, const QColor& left, const QColor& right) {
  QLinearGradient g(r.topLeft(), r.topRight());
  g.setColorAt(0, left);
  g.setColorAt(1, right);
  return g;
}

QPainterPath Rounded(const std::vector<Corner>& corners) {
  QPainterPath path;
  const std::size_t n = corners.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Corner& c = corners[i];
    const Corner& a = corners[(i + n - 1) % n];
    const Corner& b = corners[(i + 1) % n];
    const QPointF p(c.x, c.y), toA(a.x - c.x, a.y - c.y), toB(b.x - c.x, b.y - c.y);
    const double la = std::hypot(toA.x(), toA.y()), lb = std::hypot(toB.x(), toB.y());
    const double r = std::min({c.r, la / 2, lb / 2});
    const QPointF start = r > 0 ? p + toA * (r / la) : p;
    const QPointF end = r > 0 ? p + toB * (r / lb) : p;
    if (i == 0)
      path.moveTo(start);
    else
      path.lineTo(start);
    if (r > 0) path.quadTo(p, end);
  }
  path.closeSubpath();
  return path;
}

QLinearGradient Cylinder(QPointF a, QPointF b, const QColor& base) {
  QLinearGradient g(a, b);
  g.setColorAt(0, Tone(base, 0.55));
  g.setColorAt(0.3, Tone(base, 1.25));
  g.setColorAt(0.45, Tone(base, 1.05));
  g.setColorAt(0.85, Tone(base, 0.75));
  g.setColorAt(1, Tone(base, 0.5));
  return g;
}

void GroundShadow(QPainter& p, const QRectF& ellipse, int alpha) {
  p.save();
  p.translate(ellipse.center());
  p.scale(1, ellipse.height() / ellipse.width());
  QRadialGradient g(QPointF(0, 0), ellipse.width() / 2);
  g.setColorAt(0, QColor(0, 0, 0, alpha));
  g.setColorAt(0.6, QColor(0, 0, 0, alpha * 2 / 3));
  g.setColorAt(1, QColor(0, 0, 0, 0));
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawEllipse(QPointF(0, 0), ellipse.width() / 2, ellipse.width() / 2);
  p.restore();
}

void StudioBackdrop(QPainter& p, const QRectF& r, const QColor& centre, const QColor& edge) {
  QLinearGradient sweep(r.topLeft(), r.bottomLeft());
  sweep.setColorAt(0, Mix(edge, centre, 0.55));
  sweep.setColorAt(0.62, centre);
  sweep.setColorAt(1, Mix(edge, centre, 0.3));
  p.fillRect(r, sweep);
  QRadialGradient vignette(r.center(), r.width() * 0.75);
  vignette.setColorAt(0.45, QColor(0, 0, 0, 0));
  vignette.setColorAt(1, WithAlpha(Tone(edge, 0.6), 150));
  p.fillRect(r, vignette);
}

void RoomBackdrop(QPainter& p, const QRectF& r, double floorY, const QColor& wall, const QColor& floor,
                  Floor kind) {
  QLinearGradient w(r.topLeft(), QPointF(r.right(), floorY));
  w.setColorAt(0, Tone(wall, 1.08));
  w.setColorAt(1, Tone(wall, 0.82));
  p.fillRect(QRectF(r.left(), r.top(), r.width(), floorY - r.top()), w);

  const QRectF fl(r.left(), floorY, r.width(), r.bottom() - floorY);
  QLinearGradient f(fl.topLeft(), fl.bottomLeft());
  f.setColorAt(0, Tone(floor, 0.8));
  f.setColorAt(1, Tone(floor, 1.1));
  p.fillRect(fl, f);
  p.save();
  p.setClipRect(fl);
  const QPointF vanish(r.center().x(), floorY - 900);
  if (kind == Floor::Boards || kind == Floor::Tiles) {
    p.setPen(QPen(WithAlpha(Tone(floor, 0.55), 110), 1.5));
    const double step = kind == Floor::Boards ? 70 : 130;
    for (double x = r.left() - 2000; x < r.right() + 2000; x += step) {
      const QPointF bottom(x, r.bottom());
      const double t = (floorY - vanish.y()) / (bottom.y() - vanish.y());
      p.drawLine(vanish + (bottom - vanish) * t, bottom);
    }
  }
  if (kind == Floor::Tiles) {
    for (double k = 1; k < 12; ++k) {
      const double y = floorY + (r.bottom() - floorY) * std::pow(k / 11.0, 1.6);
      p.drawLine(QPointF(r.left(), y), QPointF(r.right(), y));
    }
  }
  p.restore();
  // Skirting board and the shadow it throws onto the floor.
  p.fillRect(QRectF(r.left(), floorY - 22, r.width(), 22), Tone(wall, 1.15).lighter(115));
  p.fillRect(QRectF(r.left(), floorY - 2, r.width(), 2), WithAlpha(Tone(wall, 0.5), 120));
  p.fillRect(QRectF(r.left(), floorY, r.width(), 6), QColor(0, 0, 0, 40));
}

void Outdoors(QPainter& p, const QRectF& r, double horizonY, const QColor& skyTop, const QColor& skyLow,
              const QColor& ground, quint32 seed) {
  QLinearGradient sky(r.topLeft(), QPointF(r.left(), horizonY));
  sky.setColorAt(0, skyTop);
  sky.setColorAt(1, skyLow);
  p.fillRect(QRectF(r.left(), r.top(), r.width(), horizonY - r.top()), sky);
  Rng rng(seed);
  p.setPen(Qt::NoPen);
  for (int cloud = 0; cloud < 3; ++cloud) {
    const QPointF c(rng.Uniform(r.left() + 80, r.right() - 80), rng.Uniform(r.top() + 50, horizonY * 0.45));
    const double size = rng.Uniform(50, 90);
    for (int puff = 0; puff < 9; ++puff) {
      const QPointF at = c + QPointF(rng.Uniform(-2.2, 2.2) * size, rng.Uniform(-0.35, 0.25) * size);
      const double rad = size * rng.Uniform(0.5, 0.9);
      QRadialGradient g(at, rad);
      g.setColorAt(0, QColor(255, 255, 255, 210));
      g.setColorAt(0.55, QColor(255, 255, 255, 150));
      g.setColorAt(1, QColor(255, 255, 255, 0));
      p.setBrush(g);
      p.drawEllipse(at, rad * 1.4, rad);
    }
  }
  QLinearGradient g(QPointF(r.left(), horizonY), r.bottomLeft());
  g.setColorAt(0, Tone(ground, 0.85));
  g.setColorAt(1, Tone(ground, 1.1));
  p.fillRect(QRectF(r.left(), horizonY, r.width(), r.bottom() - horizonY), g);
}

void Tree(QPainter& p, QPointF base, double height, const QColor& leaf, quint32 seed) {
  Rng rng(seed);
  p.save();
  p.setPen(Qt::NoPen);
  const double trunkW = height * 0.07;
  QPainterPath trunk;
  trunk.moveTo(base + QPointF(-trunkW, 0));
  trunk.lineTo(base + QPointF(-trunkW * 0.45, -height * 0.55));
  trunk.lineTo(base + QPointF(trunkW * 0.45, -height * 0.55));
  trunk.lineTo(base + QPointF(trunkW, 0));
  trunk.closeSubpath();
  p.setBrush(Cylinder(base + QPointF(-trunkW, 0), base + QPointF(trunkW, 0), QColor(104, 78, 56)));
  p.drawPath(trunk);
  const QPointF crown = base + QPointF(0, -height * 0.62);
  const double rx = height * 0.33, ry = height * 0.36;
  for (int i = 0; i < 26; ++i) {
    const double a = rng.Uniform(0, 2 * M_PI), d = std::sqrt(rng.Uniform(0, 1));
    const QPointF at = crown + QPointF(std::cos(a) * rx * d * 0.8, std::sin(a) * ry * d * 0.8);
    const double rad = height * rng.Uniform(0.1, 0.17);
    // Lit from the upper left: clumps there are lighter.
    const double lit = 1.15 - 0.35 * ((at.x() - crown.x()) / rx + (at.y() - crown.y()) / ry + 2) / 4;
    QRadialGradient g(at - QPointF(rad * 0.3, rad * 0.3), rad * 1.2);
    g.setColorAt(0, Tone(leaf, lit * 1.15));
    g.setColorAt(1, Tone(leaf, lit * 0.7));
    p.setBrush(g);
    p.drawEllipse(at, rad, rad * 0.9);
  }
  p.restore();
}

void Shrub(QPainter& p, QPointF base, double width, const QColor& leaf, quint32 seed) {
  Rng rng(seed);
  p.save();
  p.setPen(Qt::NoPen);
  for (int i = 0; i < 12; ++i) {
    const QPointF at = base + QPointF(rng.Uniform(-0.4, 0.4) * width, -rng.Uniform(0.1, 0.35) * width);
    const double rad = width * rng.Uniform(0.15, 0.25);
    QRadialGradient g(at - QPointF(rad * 0.3, rad * 0.4), rad * 1.2);
    g.setColorAt(0, Tone(leaf, 1.25));
    g.setColorAt(1, Tone(leaf, 0.7));
    p.setBrush(g);
    p.drawEllipse(at, rad, rad * 0.85);
  }
  p.restore();
}

bool EveryInParallel(std::size_t count, const std::function<bool(std::size_t)>& job) {
  std::vector<std::size_t> indexes(count);
  std::iota(indexes.begin(), indexes.end(), 0);
  std::atomic<bool> ok = true;
  QtConcurrent::blockingMap(indexes, [&](std::size_t i) {
    if (!job(i)) ok = false;
  });
  return ok;
}

bool SaveJpeg(const QImage& image, const QString& path, int quality) {
  QImageWriter writer(path, "jpeg");
  writer.setQuality(quality);
  writer.setOptimizedWrite(true);
  return writer.write(image.convertToFormat(QImage::Format_RGB32));
}

}  // namespace cb::assets
