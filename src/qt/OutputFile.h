// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file written whole: into a private file beside it, moved into place at
// commit, so a failure leaves the old one as it was. A target that is a
// device, a FIFO or a socket ("-o /dev/null", a pipe) is written in place
// instead: replacing it by rename would put a plain file where it stood.

#include <QFile>
#include <QSaveFile>
#include <QString>

#include <memory>

namespace cb {

class OutputFile {
 public:
  explicit OutputFile(const QString& path);

  bool open();
  QIODevice& device();
  // False, with errorString() set, when the file could not be finished.
  bool commit();
  void cancel();
  QString errorString() const;

 private:
  std::unique_ptr<QSaveFile> whole_;
  std::unique_ptr<QFile> inPlace_;
};

}  // namespace cb
