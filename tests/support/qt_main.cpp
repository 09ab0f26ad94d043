// The main function of test programs that need Qt: fonts, widgets, events.
#include <QApplication>

#include <gtest/gtest.h>

#include "support/offscreen.h"

int main(int argc, char** argv) {
  zerbal::test::UseOffscreenPlatform();
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
