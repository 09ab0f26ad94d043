#include "app/window_settings.h"

#include <gtest/gtest.h>

#include "settings/profile_file.h"
#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::app {
namespace {

class WindowSettings : public testing::Test {
 protected:
  FramePlacement Read(const char* size) {
    EXPECT_TRUE(settings::WriteProfileString(folder / "zerbal.ini", "MainWindow", "Size", size));
    return ReadFramePlacement(ini, {.width = 640, .height = 480});
  }

  test::TempFolder folder;
  test::RecordedBoxes boxes;
  settings::IniFile ini{folder / "zerbal.ini", boxes};
};

TEST_F(WindowSettings, ASizeIsWhatTheFieldsGive) {
  struct Case {
    const char* text;
    int height, width;
  };
  for (const Case& c :
       {Case{"500,700", 500, 700}, Case{"10001,30000", 10001, 30000}, Case{"99999999999,-7", 2147483647, -7},
        Case{"0,", 0, 0}, Case{"100000,x", 100000, 0}}) {
    const FramePlacement placement = Read(c.text);
    EXPECT_EQ(placement.height, c.height) << c.text;
    EXPECT_EQ(placement.width, c.width) << c.text;
  }
}

TEST_F(WindowSettings, ASideOf16BitsIsShown) {
  const auto shown = [](int width, int height, double ratio) {
    return Showable({.width = width, .height = height}, ratio);
  };
  EXPECT_EQ(shown(32767, 8000, 1), (FramePlacement{.width = 32767, .height = 8000}));
  EXPECT_EQ(shown(8000, 32768, 1), (FramePlacement{.width = 8000, .height = 32767}));
  EXPECT_EQ(shown(2147483647, 300, 1), (FramePlacement{.width = 32767, .height = 300}));
  EXPECT_EQ(shown(20000, 300, 2), (FramePlacement{.width = 16383, .height = 300}));
  EXPECT_EQ(shown(-7, 0, 1), (FramePlacement{.width = 1, .height = 1}));
}

TEST_F(WindowSettings, APictureOfAGibibyteIsShown) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const FramePlacement shown = Showable({.width = 2147483647, .height = 2147483647}, ratio);
    const double bytes = 4 * shown.width * ratio * shown.height * ratio;
    EXPECT_LE(bytes, 1 << 30) << ratio;
    EXPECT_GT(bytes, 0.99 * (1 << 30)) << ratio;
  }
  EXPECT_EQ(Showable({.width = 16384, .height = 16384}, 1),
            (FramePlacement{.width = 16384, .height = 16384}));
}

TEST_F(WindowSettings, StateAndPositionAreShownAsTheyAre) {
  const FramePlacement stored{FrameState::kNormal, -70000, 70000, 640, 480};
  EXPECT_EQ(Showable(stored, 1), stored);
}

}  // namespace
}  // namespace zerbal::app
