// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic behind the slide window: scaling a what's-this position. The
// window asks with index 0, which leaves the position as it is.

#include <cstdint>

#include "model/Geometry.h"

namespace cb {

class UISlideController {
 public:
  LongResult GetXCoord(std::int32_t value, std::int16_t index) const { return cb::GetXCoord(value, index); }
  LongResult GetYCoord(std::int32_t value, std::int16_t index) const { return cb::GetYCoord(value, index); }
};

}  // namespace cb
