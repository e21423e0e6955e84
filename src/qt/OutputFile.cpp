// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/OutputFile.h"

#include <sys/stat.h>

namespace cb {
namespace {

bool IsSpecial(const QString& path) {
  struct stat st {};
  return ::stat(QFile::encodeName(path).constData(), &st) == 0 && !S_ISREG(st.st_mode) && !S_ISDIR(st.st_mode);
}

}  // namespace

OutputFile::OutputFile(const QString& path) {
  if (IsSpecial(path))
    inPlace_ = std::make_unique<QFile>(path);
  else
    whole_ = std::make_unique<QSaveFile>(path);
}

bool OutputFile::open() { return device().open(QIODevice::WriteOnly); }

QIODevice& OutputFile::device() { return whole_ ? static_cast<QIODevice&>(*whole_) : *inPlace_; }

bool OutputFile::commit() {
  if (whole_) return whole_->commit();
  const bool flushed = inPlace_->flush();
  inPlace_->close();
  return flushed && inPlace_->error() == QFileDevice::NoError;
}

void OutputFile::cancel() {
  if (whole_) whole_->cancelWriting();
}

QString OutputFile::errorString() const { return whole_ ? whole_->errorString() : inPlace_->errorString(); }

}  // namespace cb
