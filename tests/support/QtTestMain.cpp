// SPDX-License-Identifier: GPL-3.0-or-later
// Runs GoogleTest inside a QApplication, offscreen unless the environment names a
// platform, with a cache folder of its own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "help/frmHelp.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Thumbnails the windows write stay out of the user's own cache.
  const QTemporaryDir cache;
  qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
  QApplication app(argc, argv);
  cb::InstallHelpViewer();
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
