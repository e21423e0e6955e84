// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The arithmetic of showing a large picture stretched over an element that
// may be far larger than its window: which of the JPEG decoder's scales
// (eighths, 1/8 to 8/8) covers the element, which part of the picture the
// window exposes, how a region of the upright picture lies in the file's
// stored orientation, and which part of a decoded region lands where.
// All measures are pixels, in double precision: elements reach 2^24 pixels
// and pictures hundreds of megapixels.

namespace cb {

struct PixelBox {
  double x = 0, y = 0, w = 0, h = 0;
  bool Empty() const { return w <= 0 || h <= 0; }
  friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

// The overlap of two boxes; empty when they do not meet.
PixelBox Intersect(const PixelBox& a, const PixelBox& b);

// A length decoded at `eighths`/8, rounded up as the decoder rounds it.
long ScaledLength(long length, int eighths);

// The smallest scale in eighths (1..8) at which a picture of `pictureW` x
// `pictureH` still covers `needW` x `needH`; 8 when none smaller does.
int CoveringEighths(long pictureW, long pictureH, double needW, double needH);

// An EXIF orientation as it turns the stored picture upright: mirror (left
// to right) and flip (top to bottom) first, then a quarter turn clockwise.
struct Orientation {
  bool mirror = false, flip = false, rotate90 = false;
};

// The box of the upright picture that box `stored` of a stored picture of
// `storedW` x `storedH` becomes, and back from the upright picture of
// `uprightW` x `uprightH` to the stored one.
PixelBox UprightBox(const PixelBox& stored, double storedW, double storedH, Orientation o);
PixelBox StoredBox(const PixelBox& upright, double uprightW, double uprightH, Orientation o);

// What a decode holds: a region of the upright picture in full-scale pixels,
// decoded at `eighths`/8.
struct DecodePlan {
  int eighths = 0;
  PixelBox region;
  friend bool operator==(const DecodePlan&, const DecodePlan&) = default;
};

// What to decode for an element of `elementW` x `elementH` device pixels,
// stretched over a picture of `pictureW` x `pictureH`, of which `exposed`
// (element pixels) shows: the covering scale and the whole picture when it
// fits in `budget` pixels, else the picture's part under `exposed` (in whole
// pixels, a pixel of margin around); a coarser scale when even that does not
// fit. An empty region when nothing is exposed.
DecodePlan PlanDecode(long pictureW, long pictureH, double elementW, double elementH, const PixelBox& exposed,
                      double budget);

// True when what `held` decoded shows all `wanted` asks for, as fine or finer.
bool Covers(const DecodePlan& held, const DecodePlan& wanted);

// Where a decoded image meets a painted box: `target` in element pixels and
// `source` in the image's pixels. The element (`elementW` x `elementH`)
// shows a picture of `pictureW` x `pictureH`; the image (`imageW` x
// `imageH`) holds the picture's `region`; `paint` is the box to draw.
struct DrawnPart {
  PixelBox target, source;
};
DrawnPart PartToDraw(const PixelBox& paint, double elementW, double elementH, double pictureW, double pictureH,
                     const PixelBox& region, double imageW, double imageH);

}  // namespace cb
