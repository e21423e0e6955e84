// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic behind the gallery window: removing the slide of a cell and
// scaling a what's-this position, through a UIGlobalController of its own.
// The window makes a fresh one at the start of every load.

#include <algorithm>
#include <cstdint>

#include "gallery/ShownSlides.h"
#include "model/Geometry.h"
#include "state/UIGlobalController.h"
#include "state/UIMainController.h"

namespace cb {

class UIGalleryController {
 public:
  // Removes the slide in cell `index` of the page on show; see
  // UIGlobalController::DeleteSlide. The cell's position goes through the
  // slides shown, which then forget the record.
  bool DeleteSlide(std::int32_t index, ShownSlides& shown, UIMainController& mc, SlideArray& slides) const {
    const auto n = static_cast<std::int32_t>(slides.size()) - 1;
    const std::int32_t record = shown.Record(mc.CurrentlyActiveBase() + index - 1, n);
    if (!global_.RemoveRecord(record, mc, slides)) return false;
    shown.Removed(std::min(record, n));  // a number past the end took the last slide
    return true;
  }
  // A mouse position on Image1(index) scaled for a what's-this note.
  LongResult GetXCoord(std::int32_t value, std::int16_t index) const { return cb::GetXCoord(value, index); }
  LongResult GetYCoord(std::int32_t value, std::int16_t index) const { return cb::GetYCoord(value, index); }

 private:
  UIGlobalController global_;
};

}  // namespace cb
