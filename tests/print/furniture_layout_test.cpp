#include "print/furniture_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;
using enum Corner;

constexpr TwipBox kFurnitureArea{100, 100, 1100, 900};
constexpr std::int32_t kPieceGap = 20;
constexpr std::array<Corner, kCorners> kFromLeft{kBottomLeft, kBottomRight, kTopRight, kTopLeft};

std::vector<std::optional<TwipBox>> PiecesPlaced(const std::vector<FurniturePiece>& pieces,
                                                 const std::vector<TwipPoint>& busy = {}) {
  return PlaceFurniture(pieces, kFurnitureArea, kPieceGap, busy);
}

TEST(Furniture, StandsInThePreferredOfEmptyCorners) {
  EXPECT_THAT(PiecesPlaced({{{200, 100}, {}, kFromLeft}}), ElementsAre(TwipBox{100, 800, 300, 900}));
}

TEST(Furniture, StandsWhereTheFewestPointsAre) {
  const std::vector<TwipPoint> busy{{150, 850},  {1050, 850}, {1051, 850},
                                    {1050, 120}, {110, 110},  {120, 110}};
  // One point at the bottom left, two at the bottom right, one at the top right, two at the top left.
  EXPECT_THAT(PiecesPlaced({{{200, 100}, {}, {kTopLeft, kTopRight, kBottomLeft, kBottomRight}}}, busy),
              ElementsAre(TwipBox{900, 100, 1100, 200}));
}

TEST(Furniture, StandsInTheWantedCornerWhateverIsThere) {
  EXPECT_THAT(PiecesPlaced({{{200, 100}, {}, kFromLeft}, {{300, 50}, kBottomLeft, kFromLeft}}, {{150, 850}}),
              ElementsAre(TwipBox{900, 800, 1100, 900}, TwipBox{100, 850, 400, 900}));
}

TEST(Furniture, PilesUpInOneCorner) {
  EXPECT_THAT(
      PiecesPlaced({{{200, 100}, kTopRight, {}}, {{300, 50}, kTopRight, {}}, {{10, 10}, kBottomRight, {}}}),
      ElementsAre(TwipBox{900, 100, 1100, 200}, TwipBox{800, 220, 1100, 270}, TwipBox{1090, 890, 1100, 900}));
}

TEST(Furniture, PrefersAFreeCornerToASecondPlace) {
  const FurniturePiece piece{{200, 100}, {}, kFromLeft};
  EXPECT_THAT(
      PiecesPlaced({piece, piece, piece, piece, piece}),
      ElementsAre(TwipBox{100, 800, 300, 900}, TwipBox{900, 800, 1100, 900}, TwipBox{900, 100, 1100, 200},
                  TwipBox{100, 100, 300, 200}, TwipBox{100, 680, 300, 780}));
}

TEST(Furniture, ThatDoesNotFitHasNoPlace) {
  EXPECT_THAT(PiecesPlaced({{{1001, 10}, {}, kFromLeft}, {{10, 801}, kTopLeft, {}}}),
              ElementsAre(std::nullopt, std::nullopt));
  // Two halves with a gap do not fit side by side.
  EXPECT_THAT(PiecesPlaced({{{500, 800}, kTopLeft, {}}, {{500, 10}, {}, kFromLeft}}),
              ElementsAre(TwipBox{100, 100, 600, 900}, std::nullopt));
}

constexpr LegendMeasures kMeasures{.rowHeight = 100, .sampleWidth = 50, .gap = 10, .padding = 5};

TEST(Legend, PutsRowsBelowEachOther) {
  const LegendRowSize rows[] = {{300, true}, {200, false}, {240, false}};
  const LegendLayout layout = LayOutLegend(rows, kMeasures, 1000);
  EXPECT_THAT(layout.rows, ElementsAre(TwipPoint{5, 5}, TwipPoint{5, 105}, TwipPoint{5, 205}));
  EXPECT_EQ(layout.size, (TwipSize{310, 310}));  // the widest row has a sample and a gap before its text
}

TEST(Legend, FillsColumnsEqually) {
  const LegendRowSize row{100, false};
  const LegendRowSize rows[] = {row, row, row, row, row};
  const LegendLayout layout = LayOutLegend(rows, kMeasures, 410);
  EXPECT_THAT(layout.rows, ElementsAre(TwipPoint{5, 5}, TwipPoint{5, 105}, TwipPoint{5, 205},
                                       TwipPoint{175, 5}, TwipPoint{175, 105}));
  EXPECT_EQ(layout.size, (TwipSize{340, 310}));
}

TEST(Legend, KeepsAHeadingWithItsRows) {
  const LegendRowSize rows[] = {{10, true}, {10, false}, {10, true}, {10, false}, {10, false}, {10, false}};
  const LegendLayout layout = LayOutLegend(rows, kMeasures, 310);
  EXPECT_THAT(layout.rows, ElementsAre(TwipPoint{5, 5}, TwipPoint{5, 105}, TwipPoint{85, 5},
                                       TwipPoint{85, 105}, TwipPoint{85, 205}, TwipPoint{165, 5}));
}

TEST(Legend, WithoutRowsIsEmpty) {
  const LegendLayout layout = LayOutLegend({}, kMeasures, 1000);
  EXPECT_TRUE(layout.rows.empty());
  EXPECT_EQ(layout.size, (TwipSize{10, 10}));
}

}  // namespace
}  // namespace zerbal::print
