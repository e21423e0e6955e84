// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include "artwork/ProgramIcon.h"
#include "base/Utf8Locale.h"
#include "frame/Main.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  cb::UseUtf8CharacterType();
  // Every window, and the desktop's task list by way of the .desktop file.
  QApplication::setWindowIcon(cb::ProgramIcon());
  QGuiApplication::setDesktopFileName("org.chattelbook.Chattelbook");
  if (!cb::Main()) return 0;  // the start-up refused the user
  return QApplication::exec();
}
