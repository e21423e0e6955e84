#include <QApplication>

#include "app/Main.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  if (!cb::Main()) return 0;  // the start-up refused the user
  return QApplication::exec();
}
