#pragma once
// Operations shared by the windows that work on the collection.
// The directory scan of the collection editor and slide deletion join this
// class as the gallery lands.

#include <cstdint>

#include "app/Text.h"
#include "gallery/GalleryLayout.h"

namespace cb {

class UIGlobalController {
 public:
  // A mouse position on Image1(index), relative to that element, turned into
  // a rough position in the grid for a what's-this note: multiplied by the
  // cell's one-based column (x) or row (y). Index 0 returns the value as is.
  // Overflow when the product leaves the 32-bit range.
  LongResult GetXCoord(std::int32_t value, std::int16_t index) const {
    return Scaled(value, XCoordFactor(index));
  }
  LongResult GetYCoord(std::int32_t value, std::int16_t index) const {
    return Scaled(value, YCoordFactor(index));
  }

 private:
  static LongResult Scaled(std::int32_t value, int factor) {
    const std::int64_t product = static_cast<std::int64_t>(value) * factor;
    if (product < INT32_MIN || product > INT32_MAX) return {0, RtError::Overflow};
    return {static_cast<std::int32_t>(product), RtError::None};
  }
};

}  // namespace cb
