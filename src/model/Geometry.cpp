// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Geometry.h"

#include <array>

namespace cb {
namespace {

constexpr std::array<CellNumber, kGalleryElements + 1> kCellNumbers{{
    {1, 1},
    {1, 1}, {1, 2}, {1, 3}, {2, 1}, {2, 2}, {2, 3}, {3, 1}, {3, 2}, {3, 3},
    {4, 1}, {4, 2}, {4, 3}, {5, 1}, {5, 2}, {5, 3},
    {1, 1}, {1, 2}, {1, 3}, {2, 1}, {2, 2}, {2, 3}, {3, 1}, {3, 2}, {3, 3},
    {4, 1}, {4, 2}, {4, 3}, {5, 1}, {5, 2}, {5, 3},
}};

LongResult Scaled(std::int32_t value, int factor) {
  const std::int64_t product = static_cast<std::int64_t>(value) * factor;
  if (product < INT32_MIN || product > INT32_MAX) return {0, RtError::Overflow};
  return {static_cast<std::int32_t>(product), RtError::None};
}

}  // namespace

CellNumber CellOf(int index) { return kCellNumbers[index >= 0 && index <= kGalleryElements ? index : 0]; }

LongResult GetXCoord(std::int32_t value, std::int16_t index) { return Scaled(value, CellOf(index).column); }
LongResult GetYCoord(std::int32_t value, std::int16_t index) { return Scaled(value, CellOf(index).row); }

}  // namespace cb
