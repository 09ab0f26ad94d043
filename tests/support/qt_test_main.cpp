// The main of test programs that need windows: none is shown on a screen, and nothing depends on the
// machine's settings.
#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLocale::setDefault(QLocale::c());
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
