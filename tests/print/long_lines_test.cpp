#include "print/long_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;

TEST(InPieces, LongLinesGetPointsAndShortOnesStay) {
  EXPECT_THAT(InPieces({}), ElementsAre());
  const TwipPoint line[] = {{0, 0}, {900, 1'200}, {900, 4'200}};
  EXPECT_THAT(InPieces(line), ElementsAre(TwipPoint{0, 0}, TwipPoint{900, 1'200}, TwipPoint{900, 2'700},
                                          TwipPoint{900, 4'200}));
}

TEST(InPieces, PiecesStayAsTheyAre) {
  for (std::int32_t x = 0; x < 40'000; x += 37) {
    const TwipPoint line[] = {{-5, 3}, {x, 17'000 - x / 3}};
    const std::vector<TwipPoint> pieces = InPieces(line);
    EXPECT_EQ(InPieces(pieces), pieces) << x;
  }
}

}  // namespace
}  // namespace zerbal::print
