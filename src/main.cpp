// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include <cstdio>
#include <string>
#include <vector>

#include "artwork/ProgramIcon.h"
#include "base/Utf8Locale.h"
#include "frame/Main.h"
#include "state/CommandLine.h"

int main(int argc, char* argv[]) {
  // Help and the version need no display, so they come before Qt starts.
  const std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
  switch (cb::ParseCommandLine(args).kind) {
    case cb::CommandLine::Kind::Help:
      std::fputs(cb::UsageText().c_str(), stdout);
      return std::fflush(stdout) == 0 ? 0 : 1;
    case cb::CommandLine::Kind::Version:
      std::fputs(cb::VersionText().c_str(), stdout);
      return std::fflush(stdout) == 0 ? 0 : 1;
    default:
      break;
  }
  QApplication app(argc, argv);
  cb::UseUtf8CharacterType();
  // Every window, and the desktop's task list by way of the .desktop file.
  QApplication::setWindowIcon(cb::ProgramIcon());
  QGuiApplication::setDesktopFileName("org.chattelbook.Chattelbook");
  return cb::RunProgram(QCoreApplication::arguments());
}
