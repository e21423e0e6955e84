#include "qt/LoadPicture.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

namespace cb {

RtError LoadPicture(const QString& path, QImage& out, QSize bound) {
  const QFileInfo info(path);
  if (path.isEmpty() || path.endsWith('/')) return info.isDir() ? RtError::PathFileAccess : RtError::PathNotFound;
  if (!info.exists()) return info.dir().exists() ? RtError::FileNotFound : RtError::PathNotFound;
  if (info.isDir() || !info.isReadable()) return RtError::PathFileAccess;
  QImageReader reader(path);
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
