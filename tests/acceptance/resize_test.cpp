// Resizes the main window to 200 sizes while every layer is drawn.
#include <algorithm>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "support/drive.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "support/test_random.h"

namespace zerbal::test {
namespace {

struct Size {
  int width;
  int height;
};

/// The extremes, then sizes of every order of magnitude. They are the same in each run.
std::vector<Size> Sizes() {
  std::vector<Size> sizes = {{1, 1}, {3000, 2000}, {1, 2000}, {3000, 1}, {2, 3}, {1280, 900}};
  TestRandom random(1);
  const auto side = [&random](int longest) {
    const int limit = longest >> random() % 8;  // each order of magnitude is equally likely
    return 1 + static_cast<int>(random() % static_cast<unsigned>(std::max(1, limit)));
  };
  while (sizes.size() < 200) {
    const int width = side(3000);
    sizes.push_back({width, side(2000)});
  }
  return sizes;
}

TEST(Resize, TheMapHasTheSizeOfItsWindow) {
  constexpr int kTwipsPerPixel = 15;
  TempFolder folder;
  SmallWorld().Write(folder.Path());
  DisableSplashWait(folder.Path());
  std::ostringstream script;
  script << "start\n";
  for (const char* entry : {"mnuViewCentr", "mnuViewRiver", "mnuViewIBound", "mnuViewAprt", "mnuViewDest",
                            "mnuFlitLegNr", "mnuFlitSymb", "mnuFlitFSrv(0)"})
    script << "menu " << entry << '\n';
  int count = 0;
  for (const Size& size : Sizes()) {
    // Every 20th size has another region: large, small, across longitude 360, without height.
    if (++count % 20 == 0)
      script << "menu mnuRegPart(" << count / 20 % 9 + 1 << ")\n";
    script << "mapsize " << size.width << ' ' << size.height << "\nview\n"
           << "expect {\"MapWidth\": " << size.width * kTwipsPerPixel
           << ", \"MapHeight\": " << size.height * kTwipsPerPixel << "}\n"
           << "expect-op {\"op\": \"circle\", \"layer\": \"centre\", \"x\": "
           << size.width * kTwipsPerPixel / 2 << ", \"y\": " << size.height * kTwipsPerPixel / 2 << "}\n";
  }
  script << "quit\n";
  const Played played = Play(script.str(), folder.Path());
  EXPECT_EQ(played.status, 0) << played.reasons;
}

}  // namespace
}  // namespace zerbal::test
