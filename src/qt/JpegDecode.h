// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// JPEG decoding straight to a reduced scale through libjpeg-turbo's own API:
// the decoder skips the detail a cell cannot show, which is most of the work.

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace cb {

// Decodes the JPEG in `data` at the smallest of the decoder's scales (1/8 to
// 1) that still covers `bound` in both directions, turned upright by its EXIF
// orientation. A null image when `data` is not a JPEG the decoder reads.
QImage DecodeJpegCovering(const QByteArray& data, QSize bound);

// The embedded EXIF thumbnail of the JPEG whose head is `head`, turned
// upright, when it stands for the picture in a cell of `cell` (ThumbnailServes);
// null otherwise.
QImage DecodeEmbeddedThumbnail(const QByteArray& head, QSize cell);

// `image` turned upright by a picture's orientation: mirror and flip first,
// then the quarter turn, as the toolkit's readers do.
QImage TurnedUpright(QImage image, bool mirror, bool flip, bool rotate90);

// True when `data` starts like a JPEG file.
bool LooksLikeJpeg(const QByteArray& data);

}  // namespace cb
