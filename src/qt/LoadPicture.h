// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Loading a picture file with the failures the program tells apart.

#include <QImage>
#include <QSize>
#include <QString>

#include "base/RuntimeError.h"

namespace cb {

// Loads `path` into `out`. FileNotFound, PathNotFound, PathFileAccess for a
// directory or an unreadable file, InvalidPicture when it does not decode.
// With a valid `bound` the decoder may reduce the picture to about that size.
RtError LoadPicture(const QString& path, QImage& out, QSize bound = {});

// The embedded EXIF thumbnail of the JPEG at `path`, turned upright, when it
// stands for the picture in a cell of `cell`; null otherwise. Reads only the
// head of the file, where cameras write it.
QImage LoadEmbeddedThumbnail(const QString& path, QSize cell);

// The failure that loading `path` meets before any decoding: None when the
// file is there to be read.
RtError PictureFileError(const QString& path);

}  // namespace cb
