// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The gallery's grid: five columns by three rows of cells, each a slide image
// over a frame image. Image1(1..15) are the slide images, Image1(16..30)
// their frames; cells run column by column. Lengths are twips, held as
// single-precision numbers as the elements hold them.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/Geometry.h"

namespace cb {

// The client area of a gallery opened at FormWidth x FormHeight (6720 x 5310),
// and the bar's own height.
inline constexpr double kOpeningClientWidth = 6630;
inline constexpr double kOpeningClientHeight = 4950;
inline constexpr double kScrollBarHeight = 255;

// The slide image sits this far inside its frame, at every window size.
inline constexpr double kSlideInsetX = 142.5;
inline constexpr double kSlideInsetY = 120;

// One property write of the resize, in the order the handler makes them.
enum class ElementProperty { Width, Left, Height, Top };
struct ElementWrite {
  int index;  // Image1 index, 1 to 30
  ElementProperty property;
};

// Where every element of the gallery stands for one client size.
struct GalleryLayout {
  ElementRect Picture1;
  ElementRect FlatScrollBar1;
  std::array<ElementRect, kGalleryElements> elements;  // Image1(1) first

  // The rectangle of Image1(index), index 1 to 30.
  const ElementRect& Image1(int index) const { return elements[index - 1]; }
  // The first write that an element refuses (a negative width or height),
  // counted in WriteOrder(); WriteOrder().size() when all are taken. The
  // resize stops there: the writes before it stand, the rest keep old values.
  std::size_t refusedAt = 0;
};

// The sixty writes of the resize: frames 16..30 (width, left, height, top),
// then slide images 1..15 (width, left, top, height).
const std::array<ElementWrite, 2 * 4 * kGalleryCells>& WriteOrder();

// The layout a resize gives, from the client size and the bar's height.
// Pure arithmetic in floating point; nothing is rounded but to single precision.
GalleryLayout LayOutGallery(double clientWidth, double clientHeight, double scrollBarHeight);

// Where the elements stand after a resize to `layout`, from where they stood:
// the writes run in order until an element refuses one; the rest keep their values.
void ApplyWrites(const GalleryLayout& layout, std::array<ElementRect, kGalleryElements>& placed);

// The layout the window is drawn with until its first resize.
GalleryLayout DesignLayout();

// Column (0..4) and row (0..2) of slide image i (1..15), or of frame i (16..30).
int CellColumn(int index);
int CellRow(int index);
// The frame behind slide image i, and the slide image in front of frame f.
constexpr int FrameOf(int slideImage) { return slideImage + kGalleryCells; }
constexpr int SlideImageOf(int frame) { return frame - kGalleryCells; }

// The record shown in slide image i when `base` is the lowest record on show.
constexpr std::int32_t RecordInCell(std::int32_t base, int slideImage) {
  return base + slideImage - 1;
}
// A cell whose record lies above N shows nothing.
constexpr bool IsEmptyRecord(std::int32_t record, std::int32_t n) { return record > n; }

// Half the frame less half the picture, rounded half to even: the cell
// centring the application controller keeps. Nothing in the program uses it.
std::int16_t CellCentringOffset(std::int16_t frame, std::int16_t picture);

}  // namespace cb
