// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ToolbarIcons.h"

#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <array>
#include <cmath>

namespace cb {
namespace {

// Every picture is laid out on a square of this many units, whatever its pixel size.
constexpr double kGrid = 24.0;

// The small shared palette; each fill has a darker partner for its outline.
enum Tone {
  Ink, Paper, PaperShade, Blue, BlueDark, BlueLight, Gold, GoldDark, GoldLine, Green, GreenDark,
  Red, Wood, WoodDark, Sand, Steel, White, ToneCount
};
using Palette = std::array<QRgb, ToneCount>;

constexpr Palette kColours = {
    0xff44515f,  // Ink
    0xffffffff,  // Paper
    0xffd5dee8,  // PaperShade
    0xff3d8fe0,  // Blue
    0xff1e67b3,  // BlueDark
    0xffc4e3fc,  // BlueLight
    0xffffc845,  // Gold
    0xffeaa51c,  // GoldDark
    0xffa8730a,  // GoldLine
    0xff4cb46e,  // Green
    0xff2e8a4f,  // GreenDark
    0xffec6a5c,  // Red
    0xffc98a4b,  // Wood
    0xff7f5127,  // WoodDark
    0xfff5d9ae,  // Sand
    0xff9aa7b4,  // Steel
    0xffffffff,  // White
};

// The disabled look: the same drawing in light greys, each tone keeping its relative lightness.
Palette Greyed(const Palette& colours) {
  Palette grey{};
  std::transform(colours.begin(), colours.end(), grey.begin(), [](QRgb c) {
    const int v = 118 + qGray(c) / 2;
    return qRgba(v, v, v, qAlpha(c));
  });
  return grey;
}

// A painter scaled to the grid that knows where whole device pixels fall, so that
// straight edges stay sharp at 16 px as well as at 96.
class Canvas {
 public:
  Canvas(QPainter& p, int side, const Palette& tones)
      : p_(p), scale_(side / kGrid), line_px_(std::max(1L, std::lround(side / 22.0))), tones_(tones) {
    p_.setRenderHint(QPainter::Antialiasing);
    p_.scale(scale_, scale_);
  }

  QPainter& Painter() { return p_; }
  QColor operator()(Tone t) const { return QColor::fromRgba(tones_[t]); }
  // True below 20 device pixels, where fine detail only muddies the picture.
  bool Small() const { return scale_ * kGrid < 20; }
  // Width of an outline in grid units: always a whole number of device pixels.
  double Line() const { return line_px_ / scale_; }
  // `n` device pixels in grid units.
  double Px(double n) const { return n / scale_; }
  // `u` moved to the nearest pixel edge.
  double Edge(double u) const { return std::round(u * scale_) / scale_; }
  // `u` moved to where an outline's centre must run for the outline to cover whole pixels.
  double On(double u) const {
    return line_px_ % 2 == 0 ? Edge(u) : (std::floor(u * scale_) + 0.5) / scale_;
  }

  // A flat shape outlined along its edge. The outline is filled as an area: a pen of one
  // device pixel would go to the thin-line rasteriser, which leaves corners half covered.
  void Shape(const QPainterPath& path, Tone fill, Tone line) {
    QPainterPathStroker stroker;
    stroker.setWidth(Line());
    stroker.setCapStyle(Qt::SquareCap);
    stroker.setJoinStyle(Qt::MiterJoin);
    p_.fillPath(path, (*this)(fill));
    p_.fillPath(stroker.createStroke(path), (*this)(line));
  }

  // An open run of outline, ends cut square at its points.
  void Strokes(const QPainterPath& path, Tone line) {
    QPainterPathStroker stroker;
    stroker.setWidth(Line());
    stroker.setCapStyle(Qt::FlatCap);
    stroker.setJoinStyle(Qt::MiterJoin);
    p_.fillPath(stroker.createStroke(path), (*this)(line));
  }

  // An outlined box on the pixel grid; returns the area inside its outline.
  QRectF Box(double l, double t, double r, double b, Tone fill, Tone line, double radius = 0) {
    const QRectF box(QPointF(On(l), On(t)), QPointF(On(r), On(b)));
    QPainterPath path;
    if (radius > 0)
      path.addRoundedRect(box, radius, radius);
    else
      path.addRect(box);  // a zero-radius rounded rect still softens its corners
    Shape(path, fill, line);
    const double half = Line() / 2;
    return box.adjusted(half, half, -half, -half);
  }

  // A filled bar, no outline, its edges on the pixel grid.
  void Bar(double l, double t, double r, double b, Tone fill) {
    p_.fillRect(QRectF(QPointF(Edge(l), Edge(t)), QPointF(Edge(r), Edge(b))), (*this)(fill));
  }

  // A disc, outlined unless `line` is ToneCount.
  void Disc(QPointF centre, double radius, Tone fill, Tone line = ToneCount) {
    QPainterPath disc;
    disc.addEllipse(centre, radius, radius);
    if (line == ToneCount)
      p_.fillPath(disc, (*this)(fill));
    else
      Shape(disc, fill, line);
  }

  // `c` moved so that a bar `thick` units across, centred on it, has its edges on the pixel grid.
  QPointF Centre(QPointF c, double thick) const {
    const auto snap = [&](double u) {
      return Thick(thick) % 2 ? (std::floor(u * scale_) + 0.5) / scale_ : std::round(u * scale_) / scale_;
    };
    return {snap(c.x()), snap(c.y())};
  }

  // A plus or minus sign centred on `c` (take it from Centre), arms `arm` units long.
  void Sign(QPointF c, double arm, double thick, bool plus, Tone tone) {
    const int t = Thick(thick);
    int len = std::max(t, static_cast<int>(std::lround(2 * arm * scale_)));
    if ((len - t) % 2) ++len;  // equal arms on both sides of the crossing
    const double hl = Px(len / 2.0), ht = Px(t / 2.0);
    p_.fillRect(QRectF(c.x() - hl, c.y() - ht, 2 * hl, 2 * ht), (*this)(tone));
    if (plus) p_.fillRect(QRectF(c.x() - ht, c.y() - hl, 2 * ht, 2 * hl), (*this)(tone));
  }

  // Clears a margin of `margin` units around `path`, so that what is drawn next stands apart.
  void CutOut(const QPainterPath& path, double margin) {
    p_.save();
    p_.setCompositionMode(QPainter::CompositionMode_Clear);
    p_.setPen(QPen(Qt::black, 2 * margin, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p_.setBrush(Qt::black);
    p_.drawPath(path);
    p_.restore();
  }

 private:
  int Thick(double units) const { return std::max(1, static_cast<int>(std::lround(units * scale_))); }

  QPainter& p_;
  double scale_;
  int line_px_;
  const Palette& tones_;
};

// A sheet of paper with its top right corner folded down by `fold`.
void Page(Canvas& c, double l, double t, double r, double b, double fold) {
  l = c.On(l), t = c.On(t), r = c.On(r), b = c.On(b);
  const double fx = c.On(r - fold), fy = c.On(t + fold);
  QPainterPath sheet;
  sheet.moveTo(l, t);
  sheet.lineTo(fx, t);
  sheet.lineTo(r, fy);
  sheet.lineTo(r, b);
  sheet.lineTo(l, b);
  sheet.closeSubpath();
  c.Shape(sheet, Paper, Ink);
  // Only the fold's two inner edges get a line; its diagonal is the sheet's own.
  QPainterPath flap;
  flap.moveTo(fx, t);
  flap.lineTo(fx, fy);
  flap.lineTo(r, fy);
  c.Painter().fillPath(flap, c(PaperShade));
  c.Strokes(flap, Ink);
}

// A little landscape filling `r`: sky, sun and a hill.
void Landscape(Canvas& c, const QRectF& r, bool sun) {
  QPainter& p = c.Painter();
  p.save();
  p.setClipRect(r);
  p.fillRect(r, c(BlueLight));
  if (sun) c.Disc({r.right() - r.width() * 0.27, r.top() + r.height() * 0.3}, r.height() * 0.15, Gold);
  QPainterPath hill;
  hill.moveTo(r.left(), r.bottom());
  hill.lineTo(r.left(), r.bottom() - r.height() * 0.3);
  hill.cubicTo(r.left() + r.width() * 0.3, r.top() + r.height() * 0.25, r.left() + r.width() * 0.55,
               r.top() + r.height() * 0.55, r.right(), r.bottom() - r.height() * 0.4);
  hill.lineTo(r.right(), r.bottom());
  hill.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(c(Green));
  p.drawPath(hill);
  p.restore();
}

void DrawNew(Canvas& c) {
  Page(c, 4, 2, 18, 22, 5);
  const double thick = 2;
  const QPointF centre = c.Centre({17.5, 17.5}, thick);
  QPainterPath badge;
  badge.addEllipse(centre, 5.5, 5.5);
  c.CutOut(badge, c.Px(1));
  c.Disc(centre, 5.5, Green, GreenDark);
  c.Sign(centre, 3.5, thick, true, White);
}

void DrawOpen(Canvas& c) {
  QPainterPath back;
  back.moveTo(c.On(2), c.On(4));
  back.lineTo(c.On(9), c.On(4));
  back.lineTo(c.On(11), c.On(6));
  back.lineTo(c.On(20), c.On(6));
  back.lineTo(c.On(20), c.On(20));
  back.lineTo(c.On(2), c.On(20));
  back.closeSubpath();
  c.Shape(back, GoldDark, GoldLine);
  if (!c.Small()) c.Box(5, 8.5, 17, 18, Paper, Ink);  // a sheet inside, where there is room
  QPainterPath front;
  front.moveTo(c.On(6), c.On(10));
  front.lineTo(c.On(23), c.On(10));
  front.lineTo(c.On(19.5), c.On(20));
  front.lineTo(c.On(2), c.On(20));
  front.closeSubpath();
  c.Shape(front, Gold, GoldLine);
}

void DrawEdit(Canvas& c) {
  const QRectF mount = c.Box(1.5, 2.5, 17.5, 18.5, Paper, Ink, c.Px(1));
  // Small, the picture window loses its own outline and the mount shows as a white rim.
  const double inset = c.Small() ? c.Px(2) : c.Edge(2.5);
  QRectF window = mount.adjusted(inset, inset, -inset, -inset);
  if (!c.Small()) window = c.Box(window.left(), window.top(), window.right(), window.bottom(), BlueLight, Ink);
  Landscape(c, window, !c.Small());

  // The pencil lies along the x axis from its point at the origin to its eraser.
  QPainter& p = c.Painter();
  p.save();
  p.translate(8.5, 21.5);
  p.rotate(-45);
  const double w = c.Small() ? 2.5 : 2.1, body = 4.2, ferrule = 13.5, eraser = 15.2, end = 17.5;
  QPainterPath outline;
  outline.moveTo(0, 0);
  outline.lineTo(body, -w);
  outline.lineTo(end - 1, -w);
  outline.quadTo(end, -w, end, 0);
  outline.quadTo(end, w, end - 1, w);
  outline.lineTo(body, w);
  outline.closeSubpath();
  c.CutOut(outline, c.Px(1.2));
  QPainterPath cone;
  cone.moveTo(0, 0);
  cone.lineTo(body, -w);
  cone.lineTo(body, w);
  cone.closeSubpath();
  c.Shape(cone, Sand, Ink);
  QPainterPath point;
  point.moveTo(0, 0);
  point.lineTo(1.6, -0.8);
  point.lineTo(1.6, 0.8);
  point.closeSubpath();
  c.Shape(point, Ink, Ink);
  QPainterPath rubber;
  rubber.moveTo(eraser, -w);
  rubber.lineTo(end - 1, -w);
  rubber.quadTo(end, -w, end, 0);
  rubber.quadTo(end, w, end - 1, w);
  rubber.lineTo(eraser, w);
  rubber.closeSubpath();
  c.Shape(rubber, Red, Ink);
  QPainterPath shaft;
  shaft.addRect(QRectF(QPointF(body, -w), QPointF(ferrule, w)));
  c.Shape(shaft, Gold, Ink);
  if (!c.Small()) {
    p.setPen(QPen(c(GoldDark), c.Px(1)));
    p.drawLine(QPointF(body + c.Line(), w / 3), QPointF(ferrule - c.Line(), w / 3));
  }
  QPainterPath band;
  band.addRect(QRectF(QPointF(ferrule, -w), QPointF(eraser, w)));
  c.Shape(band, Steel, Ink);
  p.restore();
}

void DrawReport(Canvas& c) {
  Page(c, 3.5, 1.5, 20.5, 22.5, 5);
  if (!c.Small()) {
    c.Bar(6.5, 5, 13, 6, PaperShade);
    c.Bar(6.5, 7.5, 11, 8.5, PaperShade);
  }
  const double base = 19;
  c.Bar(6.5, 14, 9.5, base, Blue);
  c.Bar(10.5, 9.5, 13.5, base, Green);
  c.Bar(14.5, 12, 17.5, base, Gold);
  c.Bar(5.5, base, 18.5, c.Edge(base) + c.Line(), Ink);
}

// A magnifying glass with a plus or a minus on its lens.
void Magnifier(Canvas& c, bool plus) {
  QPainter& p = c.Painter();
  p.setPen(QPen(c(Ink), 3.6, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(15.5, 15.5), QPointF(21, 21));
  const double thick = 2.2;
  const QPointF centre = c.Centre({10, 10}, thick);
  p.setPen(QPen(c(BlueDark), 2.2));
  p.setBrush(c(BlueLight));
  p.drawEllipse(centre, 7, 7);
  if (!c.Small()) {
    p.setPen(QPen(c(White), 1.3, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(centre.x() - 4.6, centre.y() - 4.6, 9.2, 9.2), 100 * 16, 60 * 16);
  }
  c.Sign(centre, 3.6, thick, plus, BlueDark);
}

void DrawZoom(Canvas& c) { Magnifier(c, true); }
void DrawUnzoom(Canvas& c) { Magnifier(c, false); }

// A window with a title bar, as the main window holds them.
void Child(Canvas& c, double l, double t, double r, double b) {
  const QRectF inside = c.Box(l, t, r, b, Paper, Ink);
  c.Bar(inside.left(), inside.top(), inside.right(), inside.top() + c.Edge(3), Blue);
}

void DrawWindow(Canvas& c) {
  Child(c, 1.5, 2, 15.5, 13);
  Child(c, 5, 6, 19, 17);
  Child(c, 8.5, 10, 22.5, 21.5);
}

void DrawBackground(Canvas& c) {
  const QRectF frame = c.Box(1.5, 3, 22.5, 21, Wood, WoodDark);
  const double rim = c.Edge(3);
  const QRectF picture(frame.adjusted(rim, rim, -rim, -rim));
  if (!c.Small()) {
    QPainter& p = c.Painter();
    p.setPen(QPen(c(WoodDark), c.Px(1)));
    p.drawLine(frame.topLeft(), picture.topLeft());
    p.drawLine(frame.topRight(), picture.topRight());
    p.drawLine(frame.bottomLeft(), picture.bottomLeft());
    p.drawLine(frame.bottomRight(), picture.bottomRight());
  }
  const QRectF view = c.Box(picture.left(), picture.top(), picture.right(), picture.bottom(), BlueLight, WoodDark);
  Landscape(c, view, !c.Small());
}

void DrawHelp(Canvas& c) {
  c.Disc({12, 12}, 10, Blue, BlueDark);
  QPainter& p = c.Painter();
  QPainterPath hook;
  hook.moveTo(8.7, 9.3);
  hook.cubicTo(8.7, 5.4, 15.3, 5.4, 15.3, 9.1);
  hook.cubicTo(15.3, 11.6, 12, 11.7, 12, 14.3);
  p.setPen(QPen(c(White), 2.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(Qt::NoBrush);
  p.drawPath(hook);
  c.Disc({12, 17.9}, 1.6, White);
}

// A printer with a sheet going in at the back and the printed page coming out in front.
void DrawPrint(Canvas& c) {
  Page(c, 6, 1.5, 18, 10, 3);
  c.Box(1.5, 9, 22.5, 18, Steel, Ink, 1.5);
  c.Bar(17, 11.5, 20, 13, Green);
  const QRectF out = c.Box(5, 14.5, 19, 22.5, Paper, Ink);
  for (double y : {17.0, 19.5}) c.Bar(out.left() + 2, y, out.right() - 2, y + c.Px(1), Steel);
}

// A round button with an arrow pointing `left` or right, for going through a history.
void Arrow(Canvas& c, bool left) {
  c.Disc({12, 12}, 10, Green, GreenDark);
  QPainterPath arrow;
  const double s = left ? -1 : 1;
  arrow.moveTo(12 + s * 6.5, 12);
  arrow.lineTo(12 + s * 0.5, 5.5);
  arrow.lineTo(12 + s * 0.5, 9.5);
  arrow.lineTo(12 - s * 6, 9.5);
  arrow.lineTo(12 - s * 6, 14.5);
  arrow.lineTo(12 + s * 0.5, 14.5);
  arrow.lineTo(12 + s * 0.5, 18.5);
  arrow.closeSubpath();
  c.Painter().fillPath(arrow, c(White));
}

void DrawPrevious(Canvas& c) { Arrow(c, true); }
void DrawNext(Canvas& c) { Arrow(c, false); }

using DrawFn = void (*)(Canvas&);

struct Drawing {
  const char* key;
  DrawFn draw;
};

// The image keys of the main window's toolbar and the viewers' toolbars, and their pictures.
constexpr Drawing kDrawings[] = {
    {"New", DrawNew},       {"Open", DrawOpen},     {"Edit", DrawEdit},
    {"Report", DrawReport}, {"Zoom", DrawZoom},     {"Unzoom", DrawUnzoom},
    {"Window", DrawWindow}, {"Background", DrawBackground}, {"Help", DrawHelp},
    {"Print", DrawPrint},   {"Previous", DrawPrevious},     {"Next", DrawNext},
};

QImage Render(DrawFn draw, QSize size, bool greyed) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  const int side = std::min(size.width(), size.height());
  if (side <= 0) return image;
  static const Palette grey = Greyed(kColours);
  QPainter p(&image);
  p.translate((size.width() - side) / 2, (size.height() - side) / 2);
  Canvas canvas(p, side, greyed ? grey : kColours);
  draw(canvas);
  return image;
}

// Paints the vectors afresh at each pixel size asked for, so no size is a blurred copy of another.
class ToolbarIconEngine final : public QIconEngine {
 public:
  explicit ToolbarIconEngine(const Drawing& drawing) : drawing_(drawing) {}

  QIconEngine* clone() const override { return new ToolbarIconEngine(drawing_); }
  QString key() const override { return QStringLiteral("chattelbook-toolbar"); }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const bool greyed = mode == QIcon::Disabled;
    const QString cacheKey = QStringLiteral("cb-toolbar-%1-%2x%3-%4")
                                 .arg(QLatin1String(drawing_.key))
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(greyed);
    QPixmap pm;
    if (!QPixmapCache::find(cacheKey, &pm)) {
      pm = QPixmap::fromImage(Render(drawing_.draw, size, greyed));
      QPixmapCache::insert(cacheKey, pm);
    }
    return pm;
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal dpr = painter->device() ? painter->device()->devicePixelRatio() : 1.0;
    QPixmap pm = pixmap((QSizeF(rect.size()) * dpr).toSize(), mode, state);
    pm.setDevicePixelRatio(dpr);
    painter->drawPixmap(rect.topLeft(), pm);
  }

 private:
  const Drawing& drawing_;
};

}  // namespace

QIcon ToolbarIcon(const QString& key) {
  for (const Drawing& d : kDrawings)
    if (key == QLatin1String(d.key)) return QIcon(new ToolbarIconEngine(d));
  return QIcon();
}

}  // namespace cb
