// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Rectangles in twips and the cells of the gallery's grid: what the gallery,
// the slide window and the what's-this notes share.

#include <cstdint>

#include "base/Text.h"

namespace cb {

inline constexpr int kGalleryColumns = 5;
inline constexpr int kGalleryRows = 3;
inline constexpr int kGalleryCells = 15;     // slide images Image1(1..15)
inline constexpr int kGalleryElements = 30;  // and their frames Image1(16..30)

// A rectangle of one element, in twips, single precision as elements hold it.
struct ElementRect {
  float Left = 0;
  float Top = 0;
  float Width = 0;
  float Height = 0;
  friend bool operator==(const ElementRect&, const ElementRect&) = default;
};

// Where a length `inner` starts when centred in `outer`: (outer - inner) / 2.
constexpr double CentredStart(double outer, double inner) { return (outer - inner) / 2; }

// The one-based column and row of Image1(index); cells run column by column,
// frames 16..30 share their slide image's cell, and any index outside 1..30
// counts as the first cell.
struct CellNumber {
  std::int8_t column;
  std::int8_t row;
};
CellNumber CellOf(int index);

// A mouse position on Image1(index), relative to that element, turned into
// a rough position in the grid for a what's-this note: multiplied by the
// cell's column (x) or row (y). Index 0 leaves the value as it is. Overflow
// when the product leaves the 32-bit range.
LongResult GetXCoord(std::int32_t value, std::int16_t index);
LongResult GetYCoord(std::int32_t value, std::int16_t index);

}  // namespace cb
