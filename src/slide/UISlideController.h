#pragma once
// The logic behind the slide window: scaling a what's-this position through
// a UIGlobalController of its own. The window asks with index 0, which leaves
// the position as it is.

#include <cstdint>

#include "gallery/UIGlobalController.h"

namespace cb {

class UISlideController {
 public:
  LongResult GetXCoord(std::int32_t value, std::int16_t index) const { return global_.GetXCoord(value, index); }
  LongResult GetYCoord(std::int32_t value, std::int16_t index) const { return global_.GetYCoord(value, index); }

 private:
  UIGlobalController global_;
};

}  // namespace cb
