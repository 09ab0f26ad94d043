#include "zerbal-pack/progress.h"

#include <sstream>

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

TEST(ProgressBar, IsSilentWhenNotShown) {
  std::ostringstream out;
  {
    ProgressBar bar(out, false);
    bar.Show(0.5, "half");
  }
  EXPECT_EQ(out.str(), "");
}

TEST(ProgressBar, OverwritesItselfAndDisappears) {
  std::ostringstream out;
  {
    ProgressBar bar(out, true);
    bar.Show(0.5, "a map");
    bar.Show(1.5, "b");
  }
  const std::string half = "[####################....................]  50% a map";
  const std::string full = "[########################################] 100% b    ";
  EXPECT_EQ(out.str(), "\r" + half + "\r" + full + "\r" + std::string(half.size() - 4, ' ') + "\r");
}

TEST(ProgressBar, DrawsOnlyChanges) {
  std::ostringstream out;
  ProgressBar bar(out, true);
  bar.Show(0.100, "x");
  const std::size_t once = out.str().size();
  bar.Show(0.101, "x");
  EXPECT_EQ(out.str().size(), once);
}

}  // namespace
}  // namespace zerbal::pack
