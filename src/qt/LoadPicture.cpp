// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/LoadPicture.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include "qt/JpegDecode.h"

namespace cb {
namespace {

// The EXIF segment holds at most 64 KiB and comes first: a head of twice
// that reaches the frame header of nearly every camera's file.
constexpr qint64 kHeadBytes = 128 << 10;

}  // namespace

RtError PictureFileError(const QString& path) {
  const QFileInfo info(path);
  if (path.isEmpty() || path.endsWith('/')) return info.isDir() ? RtError::PathFileAccess : RtError::PathNotFound;
  if (!info.exists()) return info.dir().exists() ? RtError::FileNotFound : RtError::PathNotFound;
  if (info.isDir() || !info.isReadable()) return RtError::PathFileAccess;
  return RtError::None;
}

QImage LoadEmbeddedThumbnail(const QString& path, QSize cell) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return DecodeEmbeddedThumbnail(file.read(kHeadBytes), cell);
}

RtError LoadPicture(const QString& path, QImage& out, QSize bound) {
  if (const RtError e = PictureFileError(path); e != RtError::None) return e;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return RtError::PathFileAccess;
  const QByteArray data = file.readAll();
  if (bound.isValid()) {
    if (QImage fast = DecodeJpegCovering(data, bound); !fast.isNull()) {
      out = std::move(fast);
      return RtError::None;
    }
  }
  QBuffer buffer;
  buffer.setData(data);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  if (bound.isValid() && reader.size().isValid()) {
    const QSize scaled = reader.size().scaled(bound, Qt::KeepAspectRatioByExpanding);
    if (scaled.width() < reader.size().width()) reader.setScaledSize(scaled);
  }
  QImage image = reader.read();
  if (image.isNull()) return RtError::InvalidPicture;
  out = std::move(image);
  return RtError::None;
}

}  // namespace cb
