// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/Zoom.h"

#include <cmath>

namespace cb {
namespace {

// One property write: the element stores single precision and refuses a
// length past its limit, keeping what it had.
void Write(float& property, double value, double limit) {
  if (std::fabs(value) > limit) return;
  property = static_cast<float>(value);
}

// Brings the clicked point to the centre of the window, in the element's
// statement order: centre the element, then move it by the click's offset
// from the element's middle.
void CentreOnClick(ElementRect& r, double sw, double sh, double cx, double cy, double limit) {
  Write(r.Top, CentredStart(sh, r.Height), limit);
  Write(r.Left, CentredStart(sw, r.Width), limit);
  Write(r.Top, r.Top - (cy - r.Height / 2.0), limit);
  Write(r.Left, r.Left - (cx - r.Width / 2.0), limit);
}

void Scale(ElementRect& r, double factor, double limit) {
  Write(r.Height, r.Height * factor, limit);
  Write(r.Width, r.Width * factor, limit);
}

}  // namespace

ZoomButtons ButtonsForClick(ZoomButtons buttons) {
  if (buttons.zoom == 0 && buttons.unzoom == 0) return {1, 0};
  return buttons;
}

ElementRect ZoomStep(const ElementRect& image, double scaleWidth, double scaleHeight,
                     double clickX, double clickY, bool zoomingIn, double limit) {
  ElementRect r = image;
  if (zoomingIn) {
    CentreOnClick(r, scaleWidth, scaleHeight, clickX, clickY, limit);
    Scale(r, kZoomStep, limit);
  } else {
    // Out: shrink first, then centre with the reduced size.
    Scale(r, 1.0 / kZoomStep, limit);
    CentreOnClick(r, scaleWidth, scaleHeight, clickX, clickY, limit);
  }
  return r;
}

ElementRect FitImage(const ElementRect& image, double scaleWidth, double scaleHeight) {
  return {image.Left, image.Top, static_cast<float>(scaleWidth), static_cast<float>(scaleHeight)};
}

ElementRect ResetImage(double scaleWidth, double scaleHeight) {
  return {0, 0, static_cast<float>(scaleWidth), static_cast<float>(scaleHeight)};
}

}  // namespace cb
