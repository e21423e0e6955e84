// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/JpegDecode.h"

#include <QImageIOHandler>
#include <QTransform>
#include <memory>
#include <span>
#include <turbojpeg.h>

#include "qt/ExifThumbnail.h"

namespace cb {
namespace {

using Decompressor = std::unique_ptr<void, int (*)(tjhandle)>;

// The scale whose result is the smallest that still covers `bound`.
tjscalingfactor CoveringScale(int width, int height, QSize bound) {
  int count = 0;
  const tjscalingfactor* factors = tjGetScalingFactors(&count);
  tjscalingfactor best{1, 1};
  long bestArea = long(width) * height;
  for (int i = 0; i < count; ++i) {
    const int w = TJSCALED(width, factors[i]);
    const int h = TJSCALED(height, factors[i]);
    if (w < bound.width() || h < bound.height()) continue;
    if (long(w) * h < bestArea) {
      best = factors[i];
      bestArea = long(w) * h;
    }
  }
  return best;
}

// EXIF orientations 1 to 8 as the toolkit's turns.
constexpr QImageIOHandler::Transformations kTurns[] = {
    QImageIOHandler::TransformationNone,          QImageIOHandler::TransformationNone,
    QImageIOHandler::TransformationMirror,        QImageIOHandler::TransformationRotate180,
    QImageIOHandler::TransformationFlip,          QImageIOHandler::TransformationFlipAndRotate90,
    QImageIOHandler::TransformationRotate90,      QImageIOHandler::TransformationMirrorAndRotate90,
    QImageIOHandler::TransformationRotate270};

std::span<const std::uint8_t> Span(const QByteArray& data) {
  return {reinterpret_cast<const std::uint8_t*>(data.constData()), static_cast<std::size_t>(data.size())};
}

// Decodes `jpeg` at the scale that covers `bound` once turned by `orientation`.
QImage Decode(std::span<const std::uint8_t> jpeg, QSize bound, int orientation) {
  const Decompressor tj(tjInitDecompress(), tjDestroy);
  if (!tj) return {};
  const auto size = static_cast<unsigned long>(jpeg.size());
  int width = 0, height = 0, subsampling = 0, colourspace = 0;
  if (tjDecompressHeader3(tj.get(), jpeg.data(), size, &width, &height, &subsampling, &colourspace) != 0) return {};
  // CMYK pictures take the toolkit's own path, which converts their colours.
  if (colourspace == TJCS_CMYK || colourspace == TJCS_YCCK) return {};
  const QImageIOHandler::Transformations turn = kTurns[orientation];
  // A picture turned on its side covers the cell with its other side.
  const QSize need = TurnsOnSide(orientation) ? bound.transposed() : bound;
  const tjscalingfactor scale = CoveringScale(width, height, need);
  QImage out(TJSCALED(width, scale), TJSCALED(height, scale), QImage::Format_RGB32);
  if (out.isNull()) return {};
  if (tjDecompress2(tj.get(), jpeg.data(), size, out.bits(), out.width(), int(out.bytesPerLine()), out.height(),
                    TJPF_BGRX, 0) != 0 &&
      tjGetErrorCode(tj.get()) == TJERR_FATAL)
    return {};
  return TurnedUpright(std::move(out), turn & QImageIOHandler::TransformationMirror,
                      turn & QImageIOHandler::TransformationFlip, turn & QImageIOHandler::TransformationRotate90);
}

}  // namespace

QImage TurnedUpright(QImage image, bool mirror, bool flip, bool rotate90) {
  if (mirror || flip) image = std::move(image).mirrored(mirror, flip);
  if (rotate90) image = image.transformed(QTransform().rotate(90));
  return image;
}

bool LooksLikeJpeg(const QByteArray& data) {
  return data.size() > 3 && uchar(data[0]) == 0xFF && uchar(data[1]) == 0xD8 && uchar(data[2]) == 0xFF;
}

QImage DecodeJpegCovering(const QByteArray& data, QSize bound) {
  if (!LooksLikeJpeg(data)) return {};
  return Decode(Span(data), bound, ReadJpegHead(Span(data)).orientation);
}

QImage DecodeEmbeddedThumbnail(const QByteArray& head, QSize cell) {
  const JpegHead picture = ReadJpegHead(Span(head));
  if (picture.thumbnailLength == 0) return {};
  const auto thumbnail = Span(head).subspan(picture.thumbnailAt, picture.thumbnailLength);
  const PixelSize cellSize{cell.width(), cell.height()};
  if (!ThumbnailServes(ReadJpegHead(thumbnail).size, picture.size, picture.orientation, cellSize)) return {};
  return Decode(thumbnail, cell, picture.orientation);
}

}  // namespace cb
