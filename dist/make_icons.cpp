// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's icon into a hicolor tree: the scalable SVG and the
// usual PNG sizes, all from the one table of shapes.

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>

#include "artwork/ProgramIcon.h"

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: chattelbook-icons HICOLOR-DIR NAME\n");
    return 2;
  }
  const QString root = QString::fromLocal8Bit(argv[1]);
  const QString name = QString::fromLocal8Bit(argv[2]);
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
    const QString dir = root + QString("/%1x%1/apps").arg(size);
    if (!QDir().mkpath(dir) || !cb::PaintProgramIcon(size).save(dir + "/" + name + ".png")) {
      std::fprintf(stderr, "chattelbook-icons: %s cannot be written\n", qPrintable(dir));
      return 1;
    }
  }
  const QString scalable = root + "/scalable/apps";
  QFile svg(scalable + "/" + name + ".svg");
  const std::string text = cb::ProgramIconSvg();
  if (!QDir().mkpath(scalable) || !svg.open(QIODevice::WriteOnly) ||
      svg.write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size())) {
    std::fprintf(stderr, "chattelbook-icons: %s cannot be written\n", qPrintable(svg.fileName()));
    return 1;
  }
  return 0;
}
