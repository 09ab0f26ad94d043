#include <QGuiApplication>
#include <iostream>

#include "zerbal-map/run.h"

int main(int argc, char** argv) {
  // Pictures need fonts but no screen.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  return zerbal::mapcommand::Run(QGuiApplication::arguments().mid(1), std::cout, std::cerr);
}
