// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A picture file known by its name and headers, decoded a region at a time
// at one of the decoder's scales, so that a picture far larger than memory
// takes whole can be shown at any zoom. JPEG goes through libjpeg, which
// decodes only the rows and columns a region needs, reading the file in
// small pieces; other formats go through the toolkit's reader.

#include <QImage>
#include <QSize>
#include <QString>
#include <memory>

#include "base/RuntimeError.h"
#include "model/PictureRegion.h"

namespace cb {

// Bytes of decoded pixels that one picture element holds at most, counting
// the picture it shows and a finer one being decoded to replace it.
inline constexpr double kPictureBudget = 96.0 * 1024 * 1024;
// Pixels of one decode, four bytes each, so that two fit the budget.
inline constexpr double kDecodePixels = kPictureBudget / 2 / 4;

class PictureSource {
 public:
  // Reads the headers of `path` into `out`: the failures of LoadPicture,
  // InvalidPicture when no decoder knows the file.
  static RtError Open(const QString& path, std::shared_ptr<const PictureSource>& out);

  // The picture's size once turned upright by its EXIF orientation.
  QSize Size() const { return upright_; }

  struct Decoded {
    QImage image;      // upright; null when the file no longer decodes
    DecodePlan held;   // what the image holds: the decoder widens a region to its blocks
  };
  // Decodes `plan` (a region of the upright picture at a scale).
  Decoded Decode(const DecodePlan& plan) const;

 private:
  QImage DecodeStored(int eighths, const PixelBox& box, PixelBox& got) const;

  QString path_;
  bool jpeg_ = false;  // through libjpeg; else the toolkit's reader
  QSize stored_, upright_;
  Orientation turn_;
};

}  // namespace cb
