// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/Thumbnails.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>
#include <array>

namespace cb {
namespace {

struct SizeRow {
  const char* folder;
  int edge;
};
constexpr std::array<SizeRow, 4> kSizes{{{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}}};

constexpr char kUriKey[] = "Thumb::URI";
constexpr char kMTimeKey[] = "Thumb::MTime";
constexpr char kSizeKey[] = "Thumb::Size";

QString Uri(const QFileInfo& picture) {
  return QString::fromLatin1(QUrl::fromLocalFile(picture.absoluteFilePath()).toEncoded());
}

QString MTime(const QFileInfo& picture) {
  return QString::number(picture.lastModified().toSecsSinceEpoch());
}

int EdgeFor(QSize bound) {
  for (const SizeRow& row : kSizes)
    if (row.edge >= bound.width() && row.edge >= bound.height()) return row.edge;
  return 0;
}

}  // namespace

Thumbnails::Thumbnails(QString root) : root_(std::move(root)) {
  if (root_.isEmpty()) root_ = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/thumbnails";
}

QString Thumbnails::SizeFolder(QSize bound) {
  const int edge = EdgeFor(bound);
  for (const SizeRow& row : kSizes)
    if (row.edge == edge) return row.folder;
  return {};
}

QString Thumbnails::PathFor(const QFileInfo& picture, QSize bound) const {
  const QString folder = SizeFolder(bound);
  if (folder.isEmpty()) return {};
  const QByteArray md5 = QCryptographicHash::hash(Uri(picture).toUtf8(), QCryptographicHash::Md5).toHex();
  return root_ + '/' + folder + '/' + QString::fromLatin1(md5) + ".png";
}

QImage Thumbnails::Read(const QFileInfo& picture, QSize bound) const {
  const QString path = PathFor(picture, bound);
  if (path.isEmpty()) return {};
  // The reader gives the text keys only with the picture.
  QImage thumb(path, "png");
  if (thumb.isNull() || thumb.text(kUriKey) != Uri(picture) || thumb.text(kMTimeKey) != MTime(picture)) return {};
  const QString size = thumb.text(kSizeKey);
  if (!size.isEmpty() && size != QString::number(picture.size())) return {};
  return thumb;
}

bool Thumbnails::Write(const QFileInfo& picture, QSize bound, const QImage& image) const {
  const QString path = PathFor(picture, bound);
  if (path.isEmpty() || image.isNull()) return false;
  const int edge = EdgeFor(bound);
  QImage thumb = image.scaled(edge, edge, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  thumb.setText(kUriKey, Uri(picture));
  thumb.setText(kMTimeKey, MTime(picture));
  thumb.setText(kSizeKey, QString::number(picture.size()));
  thumb.setText("Software", "Chattelbook");
  const QString dir = QFileInfo(path).absolutePath();
  if (!QDir().mkpath(dir)) return false;
  QFile::setPermissions(root_, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  QSaveFile out(path);
  if (!out.open(QIODevice::WriteOnly)) return false;
  // Light compression: the thumbnail is written while the user scrolls.
  if (!thumb.save(&out, "png", 80) || !out.commit()) return false;
  return QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

}  // namespace cb
