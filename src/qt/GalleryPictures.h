// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The gallery's decoded pictures, kept between pages: a bounded memory cache
// in front of the picture's own embedded thumbnail (where it serves the cell),
// the desktop's thumbnail cache and the decoder. Each
// picture is known by its file as it is now (path, size, modification time)
// and the cell bound it was decoded for, so a picture changed on disk is
// decoded afresh and one deleted is still found missing.

#include <QImage>
#include <QSize>
#include <QStringList>
#include <QThreadPool>
#include <condition_variable>
#include <cstddef>
#include <list>
#include <mutex>
#include <set>
#include <unordered_map>

#include "base/RuntimeError.h"
#include "qt/Thumbnails.h"

namespace cb {

class GalleryPictures {
 public:
  // `memoryLimit` bounds the decoded pictures held, in bytes.
  explicit GalleryPictures(std::size_t memoryLimit = 96u << 20, Thumbnails thumbnails = Thumbnails());
  ~GalleryPictures();

  // The program's one instance.
  static GalleryPictures& Instance();

  // Loads `path` as LoadPicture does for a cell of `bound`, with the same
  // failures, from memory when it can. Where the picture's embedded thumbnail
  // serves a cell of `cell` (its size now) it stands in for the decode, and
  // gives way to the decode once `cell` outgrows it. Safe from any thread.
  RtError Get(const QString& path, QImage& out, QSize bound, QSize cell = {});
  // Brings `paths` into memory on every core; returns when all are there.
  void Fill(const QStringList& paths, QSize bound, QSize cell = {});
  // Brings `paths` into memory on a worker thread and returns at once; a
  // later call drops what an earlier one has not started.
  void LookAhead(const QStringList& paths, QSize bound, QSize cell = {});
  // Waits until the look-ahead and the thumbnail writes are done.
  void WaitForIdle();

  // Forgets every picture held in memory (the thumbnails stay).
  void Clear();
  std::size_t MemoryUsed() const;
  std::size_t MemoryLimit() const { return limit_; }
  // How many pictures were decoded from their files, for tests and benchmarks.
  int Decodes() const;

 private:
  struct Entry {
    QString key;
    QImage image;
    bool standIn;  // the embedded thumbnail, not the decode
  };
  // From the embedded thumbnail when it serves `cell`, else from a valid
  // desktop thumbnail, else decoded (and a desktop thumbnail written behind).
  RtError Produce(const QString& path, QSize bound, QSize cell, Entry& out);
  void Store(Entry entry);

  const std::size_t limit_;
  const Thumbnails thumbnails_;
  mutable std::mutex mutex_;
  std::condition_variable done_;
  std::list<Entry> lru_;  // most recently used first
  std::unordered_map<QString, std::list<Entry>::iterator> index_;
  std::set<QString> inFlight_;
  std::size_t used_ = 0;
  int decodes_ = 0;
  QThreadPool ahead_;   // one worker: the look-ahead never takes both cores
  QThreadPool writer_;  // thumbnail writes
};

// True when `picture` is at least `cell` in both directions; any picture
// covers an invalid cell.
inline bool Covers(QSize picture, QSize cell) {
  return picture.width() >= cell.width() && picture.height() >= cell.height();
}

// The largest a gallery cell can be on this screen: a fifth of its width and
// a third of its height, in device pixels.
QSize GalleryCellBound();

}  // namespace cb
