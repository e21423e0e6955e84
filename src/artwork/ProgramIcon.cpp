// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ProgramIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <array>
#include <vector>

namespace cb {
namespace {

constexpr int kUnits = 256;  // the table's coordinate space

enum class Kind { Rect, Circle, Polygon };

struct Shape {
  Kind kind;
  const char* fill;
  std::vector<double> v;  // Rect: x, y, w, h, corner radius; Circle: cx, cy, r; Polygon: x, y pairs
};

const std::array<Shape, 11> kShapes{{
    {Kind::Rect, "#2f4a6d", {16, 16, 224, 224, 40}},        // the tile
    {Kind::Rect, "#c9a043", {44, 56, 168, 132, 6}},         // gilt frame
    {Kind::Rect, "#8a6a1f", {56, 68, 144, 108, 0}},         // its inner edge
    {Kind::Rect, "#9fd3f2", {60, 72, 136, 100, 0}},         // sky
    {Kind::Circle, "#ffd75a", {164, 100, 14}},              // sun
    {Kind::Polygon, "#6fae5a", {60, 172, 60, 138, 100, 112, 140, 140, 140, 172}},
    {Kind::Polygon, "#3f8a45", {60, 172, 60, 160, 120, 130, 160, 146, 196, 128, 196, 172}},
    {Kind::Polygon, "#f4f1e8", {138, 176, 188, 176, 210, 198, 188, 220, 138, 220}},  // price tag
    {Kind::Circle, "#2f4a6d", {194, 198, 5}},
    {Kind::Rect, "#8c97a3", {148, 188, 34, 7, 2}},
    {Kind::Rect, "#8c97a3", {148, 202, 24, 7, 2}},
}};

std::string Num(double x) {
  std::string s = std::to_string(x);
  s.erase(s.find_last_not_of('0') + 1);
  if (s.back() == '.') s.pop_back();
  return s;
}

}  // namespace

QImage PaintProgramIcon(int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(static_cast<double>(size) / kUnits, static_cast<double>(size) / kUnits);
  p.setPen(Qt::NoPen);
  for (const auto& s : kShapes) {
    p.setBrush(QColor(QString::fromLatin1(s.fill)));
    switch (s.kind) {
      case Kind::Rect:
        p.drawRoundedRect(QRectF(s.v[0], s.v[1], s.v[2], s.v[3]), s.v[4], s.v[4]);
        break;
      case Kind::Circle:
        p.drawEllipse(QPointF(s.v[0], s.v[1]), s.v[2], s.v[2]);
        break;
      case Kind::Polygon: {
        QPolygonF poly;
        for (std::size_t i = 0; i + 1 < s.v.size(); i += 2) poly << QPointF(s.v[i], s.v[i + 1]);
        p.drawPolygon(poly);
        break;
      }
    }
  }
  return image;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) icon.addPixmap(QPixmap::fromImage(PaintProgramIcon(size)));
  return icon;
}

std::string ProgramIconSvg() {
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"256\" height=\"256\" viewBox=\"0 0 256 256\">\n";
  for (const auto& s : kShapes) {
    const std::string fill = std::string(" fill=\"") + s.fill + "\"/>\n";
    switch (s.kind) {
      case Kind::Rect:
        svg += "  <rect x=\"" + Num(s.v[0]) + "\" y=\"" + Num(s.v[1]) + "\" width=\"" + Num(s.v[2]) + "\" height=\"" +
               Num(s.v[3]) + "\" rx=\"" + Num(s.v[4]) + "\"" + fill;
        break;
      case Kind::Circle:
        svg += "  <circle cx=\"" + Num(s.v[0]) + "\" cy=\"" + Num(s.v[1]) + "\" r=\"" + Num(s.v[2]) + "\"" + fill;
        break;
      case Kind::Polygon: {
        std::string points;
        for (std::size_t i = 0; i + 1 < s.v.size(); i += 2)
          points += (points.empty() ? "" : " ") + Num(s.v[i]) + "," + Num(s.v[i + 1]);
        svg += "  <polygon points=\"" + points + "\"" + fill;
        break;
      }
    }
  }
  return svg + "</svg>\n";
}

}  // namespace cb
