// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic behind the gallery window: removing the slide of a cell and
// scaling a what's-this position, through a UIGlobalController of its own.
// The window makes a fresh one at the start of every load.

#include <cstdint>

#include "model/Geometry.h"
#include "state/UIGlobalController.h"

namespace cb {

class UIGalleryController {
 public:
  // Removes the slide in cell `index` of the page on show; see UIGlobalController::DeleteSlide.
  bool DeleteSlide(std::int32_t index, UIMainController& mc, SlideArray& slides) const {
    return global_.DeleteSlide(index, mc, slides);
  }
  // A mouse position on Image1(index) scaled for a what's-this note.
  LongResult GetXCoord(std::int32_t value, std::int16_t index) const { return cb::GetXCoord(value, index); }
  LongResult GetYCoord(std::int32_t value, std::int16_t index) const { return cb::GetYCoord(value, index); }

 private:
  UIGlobalController global_;
};

}  // namespace cb
