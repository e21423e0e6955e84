// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The slide window's picture element: where it stands and how large it is,
// in twips, held in single precision as the element holds them. A click
// zooms by a fixed step about the window's centre: the clicked point is first
// brought to the centre at the old scale, and the element then grows from
// its top left corner. So after a step in, the clicked point lies 0.2 of its
// distance from the corner beyond the centre. That drift is the program's
// behaviour; no step corrects it, nothing clamps the scale or the offset.

#include <limits>

#include "model/Geometry.h"

namespace cb {

inline constexpr double kZoomStep = 1.2;

// The toolbar's "Zoom" and "Unzoom" buttons, 1 pressed and 0 not.
struct ZoomButtons {
  int zoom = 1;
  int unzoom = 0;
  friend bool operator==(const ZoomButtons&, const ZoomButtons&) = default;
};
// A click with neither button pressed presses "Zoom" first.
ZoomButtons ButtonsForClick(ZoomButtons buttons);
// The sense of the click: in when "Zoom" is pressed.
constexpr bool ZoomingIn(ZoomButtons buttons) { return buttons.zoom == 1; }

// One click on the picture. `scaleWidth`, `scaleHeight` are the window's
// client size; `clickX`, `clickY` the mouse-down point relative to the
// element's own corner, at its current scale. `limit` is the largest length
// the element takes: a write beyond it is refused and leaves that one
// property as it was, and the writes after it read what stands.
ElementRect ZoomStep(const ElementRect& image, double scaleWidth, double scaleHeight,
                     double clickX, double clickY, bool zoomingIn,
                     double limit = std::numeric_limits<double>::infinity());

// A resize of the window: the element takes the client size and keeps its
// offset, so a resize cancels the zoom but not the panning.
ElementRect FitImage(const ElementRect& image, double scaleWidth, double scaleHeight);

// The popup's "Reset": the element fills the client area from its corner.
ElementRect ResetImage(double scaleWidth, double scaleHeight);

}  // namespace cb
