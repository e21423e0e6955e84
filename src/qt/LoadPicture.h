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

// The failure that loading `path` meets before any decoding: None when the
// file is there to be read.
RtError PictureFileError(const QString& path);

}  // namespace cb
