// chattelbook-sif: what users do with their Slide Information Files outside
// the program, from a terminal.

#include <QCoreApplication>

#include <iostream>

#include "Commands.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  std::ios::sync_with_stdio(true);
  return cb::sif::RunSif(QCoreApplication::arguments(), std::cout, std::cerr, std::cin);
}
