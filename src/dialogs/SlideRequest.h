// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the gallery asks of the slide window, by way of the frame: open it on
// a picture, or bring the open one to it.

#include <QString>
#include <memory>

namespace cb {

class PictureSource;

struct SlideRequest {
  std::shared_ptr<const PictureSource> picture;  // null: an open window keeps the picture it shows
  QString toolTip;
  QString accessibleName;  // set once the window is in place; empty leaves the window's own
  bool fromReport = false; // a report's link: no caption and no focus for an open window
};

}  // namespace cb
