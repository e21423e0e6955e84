// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/PictureSource.h"

#include <QFile>
#include <QImageReader>
#include <QRect>
#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio>
// clang-format off
#include <jpeglib.h>
// clang-format on

#include "qt/JpegDecode.h"
#include "qt/LoadPicture.h"

namespace cb {
namespace {

// libjpeg reports a fatal error by jumping back to the caller's setjmp.
struct JpegError {
  jpeg_error_mgr mgr;
  std::jmp_buf jump;
};

[[noreturn]] void JumpBack(j_common_ptr c) { std::longjmp(reinterpret_cast<JpegError*>(c->err)->jump, 1); }
void Quiet(j_common_ptr) {}  // damaged data is drawn as it comes, without a word on stderr

// One decompressor reading one file, released on every path.
struct JpegFile {
  explicit JpegFile(const QString& path) : file(std::fopen(QFile::encodeName(path).constData(), "rb")) {
    d.err = jpeg_std_error(&error.mgr);
    error.mgr.error_exit = JumpBack;
    error.mgr.output_message = Quiet;
    jpeg_create_decompress(&d);
    if (file) jpeg_stdio_src(&d, file);
  }
  ~JpegFile() {
    jpeg_destroy_decompress(&d);
    if (file) std::fclose(file);
  }
  JpegFile(const JpegFile&) = delete;
  JpegFile& operator=(const JpegFile&) = delete;

  std::FILE* file;
  JpegError error;
  jpeg_decompress_struct d{};
};

// Nothing with a destructor lives in the frames that set the jumps below.
bool ReadHeader(JpegFile& j) {
  if (!j.file) return false;
  if (setjmp(j.error.jump)) return false;
  jpeg_read_header(&j.d, TRUE);
  return true;
}

// Decodes, at `eighths`/8, the output columns and rows that cover `box`
// (stored full-scale pixels) into `out`; `got` is the box really decoded.
bool ReadRegion(JpegFile& j, int eighths, const PixelBox& box, QImage& out, PixelBox& got) {
  jpeg_decompress_struct& d = j.d;
  if (setjmp(j.error.jump)) return false;
  d.scale_num = static_cast<unsigned>(eighths);
  d.scale_denom = 8;
  d.out_color_space = JCS_EXT_BGRX;  // the bytes of QImage::Format_RGB32
  jpeg_start_decompress(&d);
  const double fw = d.image_width, fh = d.image_height, ow = d.output_width, oh = d.output_height;
  JDIMENSION x0 = static_cast<JDIMENSION>(std::floor(box.x * ow / fw));
  JDIMENSION width = static_cast<JDIMENSION>(std::min(ow, std::ceil((box.x + box.w) * ow / fw))) - x0;
  const auto y0 = static_cast<JDIMENSION>(std::floor(box.y * oh / fh));
  const auto y1 = static_cast<JDIMENSION>(std::min(oh, std::ceil((box.y + box.h) * oh / fh)));
  if (width == 0 || y1 <= y0) return false;
  if (width < d.output_width) jpeg_crop_scanline(&d, &x0, &width);  // widens to whole blocks
  if (y0 > 0) jpeg_skip_scanlines(&d, y0);
  out = QImage(static_cast<int>(width), static_cast<int>(y1 - y0), QImage::Format_RGB32);
  if (out.isNull()) return false;
  while (d.output_scanline < y1) {
    JSAMPROW row = out.scanLine(static_cast<int>(d.output_scanline - y0));
    jpeg_read_scanlines(&d, &row, 1);
  }
  jpeg_abort_decompress(&d);  // the rows below are not wanted
  got = {x0 * fw / ow, y0 * fh / oh, std::min(fw, (x0 + width) * fw / ow) - x0 * fw / ow,
         std::min(fh, y1 * fh / oh) - y0 * fh / oh};
  return true;
}

bool StartsLikeJpeg(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) && LooksLikeJpeg(f.read(4));
}

Orientation OrientationOf(QImageIOHandler::Transformations t) {
  return {bool(t & QImageIOHandler::TransformationMirror), bool(t & QImageIOHandler::TransformationFlip),
          bool(t & QImageIOHandler::TransformationRotate90)};
}

QRect WholePixels(const PixelBox& b) {
  return QRect(QPoint(int(std::floor(b.x)), int(std::floor(b.y))),
               QPoint(int(std::ceil(b.x + b.w)) - 1, int(std::ceil(b.y + b.h)) - 1));
}

}  // namespace

RtError PictureSource::Open(const QString& path, std::shared_ptr<const PictureSource>& out) {
  if (const RtError e = PictureFileError(path); e != RtError::None) return e;
  auto source = std::make_shared<PictureSource>();
  source->path_ = path;
  if (StartsLikeJpeg(path)) {
    JpegFile j(path);
    if (!ReadHeader(j)) return RtError::InvalidPicture;
    // CMYK pictures take the toolkit's reader, which converts their colours.
    source->jpeg_ = j.d.jpeg_color_space != JCS_CMYK && j.d.jpeg_color_space != JCS_YCCK;
    source->stored_ = QSize(int(j.d.image_width), int(j.d.image_height));
  }
  QImageReader reader(path);
  if (!source->jpeg_) {
    if (!reader.canRead() || !reader.size().isValid()) return RtError::InvalidPicture;
    source->stored_ = reader.size();
  }
  source->turn_ = OrientationOf(reader.transformation());
  source->upright_ = source->turn_.rotate90 ? source->stored_.transposed() : source->stored_;
  out = std::move(source);
  return RtError::None;
}

QImage PictureSource::DecodeStored(int eighths, const PixelBox& box, PixelBox& got) const {
  if (jpeg_) {
    JpegFile j(path_);
    QImage image;
    if (!ReadHeader(j) || !ReadRegion(j, eighths, box, image, got)) return {};
    return image;
  }
  const QRect clip = WholePixels(box);
  QImageReader reader(path_);
  reader.setAutoTransform(false);
  if (clip != QRect(QPoint(0, 0), stored_)) reader.setClipRect(clip);
  if (eighths < 8)
    reader.setScaledSize(QSize(int(ScaledLength(clip.width(), eighths)), int(ScaledLength(clip.height(), eighths))));
  got = {double(clip.x()), double(clip.y()), double(clip.width()), double(clip.height())};
  return reader.read();
}

PictureSource::Decoded PictureSource::Decode(const DecodePlan& plan) const {
  if (plan.region.Empty()) return {};
  const PixelBox box = StoredBox(plan.region, upright_.width(), upright_.height(), turn_);
  PixelBox got;
  QImage image = DecodeStored(plan.eighths, box, got);
  if (image.isNull()) return {};
  image = TurnedUpright(std::move(image), turn_.mirror, turn_.flip, turn_.rotate90);
  return {std::move(image), {plan.eighths, UprightBox(got, stored_.width(), stored_.height(), turn_)}};
}

}  // namespace cb
