#pragma once
// Decoding a page of pictures at the size a gallery cell can reach, on all cores.

#include <QImage>
#include <QSize>
#include <QStringList>
#include <vector>

#include "base/RuntimeError.h"

namespace cb {

struct DecodedPicture {
  RtError error = RtError::None;
  QImage image;
};

// Decodes each path at about `bound` (JPEG decodes at 1/2 to 1/8 scale),
// in parallel; the results come back in the order of `paths`.
std::vector<DecodedPicture> DecodePictures(const QStringList& paths, QSize bound);

// The largest a gallery cell can be on this screen: a fifth of its width and
// a third of its height, in device pixels.
QSize GalleryCellBound();

}  // namespace cb
