#include "qt/JpegDecode.h"

#include <QBuffer>
#include <QImageReader>
#include <memory>
#include <turbojpeg.h>

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

// The EXIF orientation, read from the headers alone.
QImageIOHandler::Transformations Orientation(const QByteArray& data) {
  QBuffer buffer;
  buffer.setData(data);
  QImageReader reader(&buffer, "jpeg");
  return reader.transformation();
}

}  // namespace

bool LooksLikeJpeg(const QByteArray& data) {
  return data.size() > 3 && uchar(data[0]) == 0xFF && uchar(data[1]) == 0xD8 && uchar(data[2]) == 0xFF;
}

QImage DecodeJpegCovering(const QByteArray& data, QSize bound) {
  if (!LooksLikeJpeg(data)) return {};
  const Decompressor tj(tjInitDecompress(), tjDestroy);
  if (!tj) return {};
  const auto* bytes = reinterpret_cast<const unsigned char*>(data.constData());
  const auto size = static_cast<unsigned long>(data.size());
  int width = 0, height = 0, subsampling = 0, colourspace = 0;
  if (tjDecompressHeader3(tj.get(), bytes, size, &width, &height, &subsampling, &colourspace) != 0) return {};
  // CMYK pictures take the toolkit's own path, which converts their colours.
  if (colourspace == TJCS_CMYK || colourspace == TJCS_YCCK) return {};
  const QImageIOHandler::Transformations turn = Orientation(data);
  // A picture turned on its side covers the cell with its other side.
  const QSize need = turn & QImageIOHandler::TransformationRotate90 ? bound.transposed() : bound;
  const tjscalingfactor scale = CoveringScale(width, height, need);
  QImage out(TJSCALED(width, scale), TJSCALED(height, scale), QImage::Format_RGB32);
  if (out.isNull()) return {};
  if (tjDecompress2(tj.get(), bytes, size, out.bits(), out.width(), int(out.bytesPerLine()), out.height(), TJPF_BGRX,
                    0) != 0 &&
      tjGetErrorCode(tj.get()) == TJERR_FATAL)
    return {};
  // Mirror and flip first, then the quarter turn, as the toolkit's readers do.
  if (turn & (QImageIOHandler::TransformationMirror | QImageIOHandler::TransformationFlip))
    out = std::move(out).mirrored(turn & QImageIOHandler::TransformationMirror,
                                  turn & QImageIOHandler::TransformationFlip);
  if (turn & QImageIOHandler::TransformationRotate90) out = out.transformed(QTransform().rotate(90));
  return out;
}

}  // namespace cb
