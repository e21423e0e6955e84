#pragma once
// The gallery's decoded pictures, kept between pages: a bounded memory cache
// in front of the desktop's thumbnail cache in front of the decoder. Each
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
  // failures, from memory when it can. Safe from any thread.
  RtError Get(const QString& path, QImage& out, QSize bound);
  // Brings `paths` into memory on every core; returns when all are there.
  void Fill(const QStringList& paths, QSize bound);
  // Brings `paths` into memory on a worker thread and returns at once; a
  // later call drops what an earlier one has not started.
  void LookAhead(const QStringList& paths, QSize bound);
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
  };
  // From a valid thumbnail, else decoded (and a thumbnail written behind).
  RtError Produce(const QString& path, QSize bound, QImage& out);
  void Store(const QString& key, const QImage& image);

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

// The largest a gallery cell can be on this screen: a fifth of its width and
// a third of its height, in device pixels.
QSize GalleryCellBound();

}  // namespace cb
