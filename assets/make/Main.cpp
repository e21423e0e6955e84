// SPDX-License-Identifier: GPL-3.0-or-later
// chattelbook-assets APPDIR DATADIR: draws the frames, wallpapers and sample
// gallery into the application directory and writes the template files.
// Run with QT_QPA_PLATFORM=offscreen; it needs no display.

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

#include "Assets.h"

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: chattelbook-assets APPDIR DATADIR\n");
    return 2;
  }
  const QString appDir = QString::fromLocal8Bit(argv[1]);
  const QString dataDir = QString::fromLocal8Bit(argv[2]);
  for (const char* folder : {"Files", "Gallery", "Background", "Wallpaper"}) {
    if (!QDir().mkpath(appDir + "/" + folder)) {
      std::fprintf(stderr, "chattelbook-assets: cannot make %s/%s\n", qPrintable(appDir), folder);
      return 1;
    }
  }

  // The tables are checked before anything is drawn, so a bad value fails at once.
  using namespace cb::assets;
  const auto files = ReadTemplates(dataDir, {FrameNames(), WallpaperNames(), GalleryNames()});
  if (!files) return 1;
  const bool drawn = WriteFrames(appDir + "/Background") && WriteWallpapers(appDir + "/Wallpaper") &&
                     WriteGallery(appDir + "/Gallery");
  return drawn && WriteTemplates(appDir, *files) ? 0 : 1;
}
