// SPDX-License-Identifier: GPL-3.0-or-later
// chattelbook-sif: what users do with their Slide Information Files outside
// the program, from a terminal.

#include <QCoreApplication>
#include <QGuiApplication>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

#include "Commands.h"
#include "base/Utf8Locale.h"

int main(int argc, char** argv) {
  // The claim lays out text and pictures, which needs fonts and so the GUI
  // side of Qt; no window is shown, so no display is needed either.
  std::unique_ptr<QCoreApplication> app;
  if (argc > 1 && std::strcmp(argv[1], "claim") == 0) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The platform's notes (no runtime directory, ...) are no concern of the user's.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
      if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << "\n";
    });
    app = std::make_unique<QGuiApplication>(argc, argv);
  } else {
    app = std::make_unique<QCoreApplication>(argc, argv);
  }
  cb::UseUtf8CharacterType();
  std::ios::sync_with_stdio(true);
  const int status = cb::sif::RunSif(QCoreApplication::arguments(), std::cout, std::cerr, std::cin);
  // Output lost to a full disk is a failure; a command that failed has said so already.
  errno = 0;
  const bool written = std::fflush(stdout) == 0 && !std::ferror(stdout);
  if ((written && std::fclose(stdout) == 0) || status != cb::sif::kExitOk) return status;
  std::cerr << "chattelbook-sif: cannot write to standard output: " << (errno ? std::strerror(errno) : "a write failed")
            << "\n";
  return cb::sif::kExitData;
}
