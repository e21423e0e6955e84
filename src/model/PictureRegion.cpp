// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PictureRegion.h"

#include <algorithm>
#include <cmath>

namespace cb {
namespace {

// Pixels of a w x h box decoded at `eighths`/8.
double DecodedArea(double w, double h, int eighths) {
  return double(ScaledLength(long(std::ceil(w)), eighths)) * double(ScaledLength(long(std::ceil(h)), eighths));
}

// The whole pixels under [from, to), a pixel of margin each side for the
// smoothing at the edge, within [0, length].
void WholePixels(double from, double to, double length, double& start, double& size) {
  start = std::max(0.0, std::floor(from) - 1);
  size = std::min(length, std::ceil(to) + 1) - start;
}

}  // namespace

PixelBox Intersect(const PixelBox& a, const PixelBox& b) {
  const double x0 = std::max(a.x, b.x), y0 = std::max(a.y, b.y);
  const double x1 = std::min(a.x + a.w, b.x + b.w), y1 = std::min(a.y + a.h, b.y + b.h);
  if (x1 <= x0 || y1 <= y0) return {};
  return {x0, y0, x1 - x0, y1 - y0};
}

long ScaledLength(long length, int eighths) { return (length * eighths + 7) / 8; }

int CoveringEighths(long pictureW, long pictureH, double needW, double needH) {
  for (int m = 1; m < 8; ++m)
    if (double(ScaledLength(pictureW, m)) >= needW && double(ScaledLength(pictureH, m)) >= needH) return m;
  return 8;
}

PixelBox UprightBox(const PixelBox& stored, double storedW, double storedH, Orientation o) {
  PixelBox b = stored;
  if (o.mirror) b.x = storedW - b.x - b.w;
  if (o.flip) b.y = storedH - b.y - b.h;
  // A quarter turn clockwise: the stored left edge becomes the top.
  if (o.rotate90) return {storedH - b.y - b.h, b.x, b.h, b.w};
  return b;
}

PixelBox StoredBox(const PixelBox& upright, double uprightW, double uprightH, Orientation o) {
  PixelBox b = o.rotate90 ? PixelBox{upright.y, uprightW - upright.x - upright.w, upright.h, upright.w} : upright;
  const double storedW = o.rotate90 ? uprightH : uprightW;
  const double storedH = o.rotate90 ? uprightW : uprightH;
  if (o.mirror) b.x = storedW - b.x - b.w;
  if (o.flip) b.y = storedH - b.y - b.h;
  return b;
}

DecodePlan PlanDecode(long pictureW, long pictureH, double elementW, double elementH, const PixelBox& exposed,
                      double budget) {
  int eighths = CoveringEighths(pictureW, pictureH, elementW, elementH);
  const PixelBox shown = Intersect(exposed, {0, 0, elementW, elementH});
  if (shown.Empty() || pictureW <= 0 || pictureH <= 0) return {eighths, {}};
  if (DecodedArea(double(pictureW), double(pictureH), eighths) <= budget)
    return {eighths, {0, 0, double(pictureW), double(pictureH)}};
  const double sx = double(pictureW) / elementW, sy = double(pictureH) / elementH;
  PixelBox region;
  WholePixels(shown.x * sx, (shown.x + shown.w) * sx, double(pictureW), region.x, region.w);
  WholePixels(shown.y * sy, (shown.y + shown.h) * sy, double(pictureH), region.y, region.h);
  while (eighths > 1 && DecodedArea(region.w, region.h, eighths) > budget) --eighths;
  return {eighths, region};
}

bool Covers(const DecodePlan& held, const DecodePlan& wanted) {
  if (wanted.region.Empty()) return true;
  if (held.eighths < wanted.eighths) return false;
  const PixelBox& h = held.region;
  const PixelBox& w = wanted.region;
  return w.x >= h.x && w.y >= h.y && w.x + w.w <= h.x + h.w && w.y + w.h <= h.y + h.h;
}

DrawnPart PartToDraw(const PixelBox& paint, double elementW, double elementH, double pictureW, double pictureH,
                     const PixelBox& region, double imageW, double imageH) {
  if (pictureW <= 0 || pictureH <= 0 || region.Empty()) return {};
  const double ex = elementW / pictureW, ey = elementH / pictureH;
  const PixelBox target = Intersect(paint, {region.x * ex, region.y * ey, region.w * ex, region.h * ey});
  if (target.Empty()) return {};
  const double ix = imageW / region.w, iy = imageH / region.h;
  return {target,
          {(target.x / ex - region.x) * ix, (target.y / ey - region.y) * iy, target.w / ex * ix, target.h / ey * iy}};
}

}  // namespace cb
