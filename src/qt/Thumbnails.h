// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The desktop's shared thumbnail cache (freedesktop Thumbnail Managing
// Standard): PNG files under $XDG_CACHE_HOME/thumbnails/<size>/ named by the
// MD5 of the picture's URI, carrying Thumb::URI and Thumb::MTime. File
// managers read what the gallery writes, and the other way round.

#include <QFileInfo>
#include <QImage>
#include <QSize>
#include <QString>

namespace cb {

class Thumbnails {
 public:
  // `root` is the thumbnails folder; empty means the user's own.
  explicit Thumbnails(QString root = {});

  // The size folder ("normal" 128, "large" 256, "x-large" 512, "xx-large"
  // 1024) whose pictures cover a cell of `bound`; empty when none does.
  static QString SizeFolder(QSize bound);
  // The thumbnail's file for `picture` in the size folder that covers `bound`.
  QString PathFor(const QFileInfo& picture, QSize bound) const;

  // The stored thumbnail of `picture`, null when there is none or when its
  // URI or modification time does not match the file as it is now.
  QImage Read(const QFileInfo& picture, QSize bound) const;
  // Stores `image` (fitted into the size folder's square) as the thumbnail
  // of `picture`; written beside its place and renamed, so a reader never
  // sees half a file. False when it could not be written.
  bool Write(const QFileInfo& picture, QSize bound, const QImage& image) const;

 private:
  QString root_;
};

}  // namespace cb
