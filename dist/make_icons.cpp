// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's icon into a hicolor tree under each name it is given
// (the application's, and the slide file type's): the scalable SVG and the
// usual PNG sizes, all from the one table of shapes.

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>

#include "artwork/ProgramIcon.h"

namespace {

// Writes `bytes` to root/CONTEXT/NAME.EXT for `name` "CONTEXT/NAME"; false,
// having said so, when it cannot.
bool Put(const QString& root, const QString& name, const QString& ext, const QByteArray& bytes) {
  QFile file(root + "/" + name + "." + ext);
  if (QDir().mkpath(root + "/" + name.section('/', 0, 0)) && file.open(QIODevice::WriteOnly) &&
      file.write(bytes) == bytes.size())
    return true;
  std::fprintf(stderr, "chattelbook-icons: %s cannot be written\n", qPrintable(file.fileName()));
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: chattelbook-icons HICOLOR-DIR CONTEXT/NAME...\n");
    return 2;
  }
  const QString root = QString::fromLocal8Bit(argv[1]);
  const QByteArray svg = QByteArray::fromStdString(cb::ProgramIconSvg());
  for (int i = 2; i < argc; ++i) {
    // "apps/org.chattelbook.Chattelbook" goes to 16x16/apps/org.chattelbook.Chattelbook.png, ...
    const QString name = QString::fromLocal8Bit(argv[i]);
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
      QByteArray png;
      QBuffer buffer(&png);
      cb::PaintProgramIcon(size).save(&buffer, "PNG");
      if (!Put(root + QString("/%1x%1").arg(size), name, "png", png)) return 1;
    }
    if (!Put(root + "/scalable", name, "svg", svg)) return 1;
  }
  return 0;
}
