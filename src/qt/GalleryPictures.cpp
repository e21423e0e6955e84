// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/GalleryPictures.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QtConcurrent/QtConcurrentMap>

#include "qt/LoadPicture.h"

namespace cb {
namespace {

QString KeyOf(const QFileInfo& info, QSize bound) {
  return info.absoluteFilePath() + QChar(0) + QString::number(info.size()) + QChar(0) +
         QString::number(info.lastModified().toMSecsSinceEpoch()) + QChar(0) + QString::number(bound.width()) + 'x' +
         QString::number(bound.height());
}

std::size_t Bytes(const QImage& image) { return static_cast<std::size_t>(image.sizeInBytes()); }

}  // namespace

GalleryPictures::GalleryPictures(std::size_t memoryLimit, Thumbnails thumbnails)
    : limit_(memoryLimit), thumbnails_(std::move(thumbnails)) {
  ahead_.setMaxThreadCount(1);
  writer_.setMaxThreadCount(1);
}

GalleryPictures::~GalleryPictures() {
  ahead_.clear();
  WaitForIdle();
}

GalleryPictures& GalleryPictures::Instance() {
  static GalleryPictures pictures;
  // Writes still running when the application ends would race the removal of
  // temporary cache folders and the end of the process.
  static const bool once = (qAddPostRoutine([] { pictures.WaitForIdle(); }), true);
  (void)once;
  return pictures;
}

RtError GalleryPictures::Get(const QString& path, QImage& out, QSize bound, QSize cell) {
  if (const RtError e = PictureFileError(path); e != RtError::None) return e;
  const QString key = KeyOf(QFileInfo(path), bound);
  {
    std::unique_lock lock(mutex_);
    // A picture another thread is decoding is waited for, not decoded twice.
    done_.wait(lock, [&] { return !inFlight_.count(key); });
    if (const auto it = index_.find(key); it != index_.end()) {
      if (!it->second->standIn || Covers(it->second->image.size(), cell)) {
        lru_.splice(lru_.begin(), lru_, it->second);
        out = it->second->image;
        return RtError::None;
      }
    }
    inFlight_.insert(key);
  }
  Entry entry{key, {}, false};
  const RtError e = Produce(path, bound, cell, entry);
  {
    const std::lock_guard lock(mutex_);
    inFlight_.erase(key);
    if (e == RtError::None) Store(entry);
  }
  done_.notify_all();
  if (e == RtError::None) out = std::move(entry.image);
  return e;
}

RtError GalleryPictures::Produce(const QString& path, QSize bound, QSize cell, Entry& out) {
  if (cell.isValid()) {
    out.image = LoadEmbeddedThumbnail(path, cell);
    out.standIn = !out.image.isNull();
    if (out.standIn) return RtError::None;
  }
  const QFileInfo info(path);
  if (QImage stored = thumbnails_.Read(info, bound); !stored.isNull()) {
    out.image = std::move(stored);
    return RtError::None;
  }
  const RtError e = LoadPicture(path, out.image, bound);
  if (e != RtError::None) return e;
  {
    const std::lock_guard lock(mutex_);
    ++decodes_;
  }
  writer_.start([this, info, bound, image = out.image] { thumbnails_.Write(info, bound, image); });
  return RtError::None;
}

void GalleryPictures::Store(Entry entry) {
  // A sharper picture replaces the thumbnail held under the same key.
  if (const auto old = index_.find(entry.key); old != index_.end()) {
    used_ -= Bytes(old->second->image);
    lru_.erase(old->second);
    index_.erase(old);
  }
  if (Bytes(entry.image) > limit_) return;
  used_ += Bytes(entry.image);
  lru_.push_front(std::move(entry));
  index_[lru_.front().key] = lru_.begin();
  while (used_ > limit_) {
    used_ -= Bytes(lru_.back().image);
    index_.erase(lru_.back().key);
    lru_.pop_back();
  }
}

void GalleryPictures::Fill(const QStringList& paths, QSize bound, QSize cell) {
  QtConcurrent::blockingMap(paths, [this, bound, cell](const QString& path) {
    QImage image;
    Get(path, image, bound, cell);
  });
}

void GalleryPictures::LookAhead(const QStringList& paths, QSize bound, QSize cell) {
  ahead_.clear();
  for (const QString& path : paths)
    ahead_.start([this, path, bound, cell] {
      QImage image;
      Get(path, image, bound, cell);
    });
}

void GalleryPictures::WaitForIdle() {
  ahead_.waitForDone();
  writer_.waitForDone();
}

void GalleryPictures::Clear() {
  const std::lock_guard lock(mutex_);
  lru_.clear();
  index_.clear();
  used_ = 0;
}

std::size_t GalleryPictures::MemoryUsed() const {
  const std::lock_guard lock(mutex_);
  return used_;
}

int GalleryPictures::Decodes() const {
  const std::lock_guard lock(mutex_);
  return decodes_;
}

QSize GalleryCellBound() {
  const QScreen* s = QGuiApplication::primaryScreen();
  if (!s) return {400, 400};
  const QSize px = s->size() * s->devicePixelRatio();
  return {px.width() / 5, px.height() / 3};
}

}  // namespace cb
