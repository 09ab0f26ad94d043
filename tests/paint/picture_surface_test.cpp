#include "paint/picture_surface.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "extremes.h"
#include "support/pictures.h"
#include "support/test_random.h"

namespace zerbal::paint {
namespace {

using test::Blank;
using test::Ink;
using test::InkBounds;

class PictureSurfaceTest : public testing::Test {
 protected:
  template <typename Draw>
  QImage Drawn(int width, int height, double ratio, const Draw& draw) {
    QImage image = Blank(width, height);
    PictureSurface surface(image, ratio, prepared_);
    surface.Clear({255, 255, 255});
    draw(surface);
    return image;
  }

  PreparedPictures prepared_;
};

using Rows = std::vector<std::string>;

/// Of one component.
int LargestDifference(const QImage& a, const QImage& b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      largest = std::max(largest, std::abs(qGreen(a.pixel(x, y)) - qGreen(b.pixel(x, y))));
  return largest;
}

TEST_F(PictureSurfaceTest, MarkersReachAsFarToEverySide) {
  // The line width is even, so that the middle of the marker is the corner of four pixels.
  for (const int ratio : {2, 4, 6, 8}) {
    const std::int32_t twips = (32 - ratio / 2) * kTwipsPerPixel / ratio + 1;
    const QImage image = Drawn(64, 64, ratio, [&](map::Surface& surface) {
      surface.Circle({twips, twips}, 20, kBlack, true);
    });
    const QRect bounds = InkBounds(image);
    EXPECT_FALSE(bounds.isEmpty()) << ratio;
    EXPECT_EQ(bounds.left() + bounds.right(), 63) << ratio;
    EXPECT_EQ(bounds.top() + bounds.bottom(), 63) << ratio;
  }
}

TEST_F(PictureSurfaceTest, ClearFillsEverything) {
  const QImage image = Drawn(7, 3, 1, [](map::Surface& surface) { surface.Clear({1, 2, 3}); });
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 7; ++x)
      EXPECT_EQ(image.pixel(x, y), qRgb(1, 2, 3));
}

TEST_F(PictureSurfaceTest, LineIsOnePixelWideAndHasBothEnds) {
  const QImage image = Drawn(6, 4, 1, [](map::Surface& surface) { surface.Line({15, 15}, {74, 15}, kPen); });
  EXPECT_EQ(Ink(image), (Rows{"......", ".####.", "......", "......"}));
}

TEST_F(PictureSurfaceTest, HorizontalAndVerticalLinesAreCrispAtEveryRatio) {
  for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
    const QImage flat = Drawn(60, 60, ratio, [](map::Surface& surface) {
      surface.Line({60, 60}, {240, 60}, kPen);
    });
    const QImage steep = Drawn(60, 60, ratio, [](map::Surface& surface) {
      surface.Line({60, 240}, {60, 60}, kPen);
    });
    const int width = PixelScale(ratio).LineWidth(1);
    const double edge = PixelScale(ratio).SmoothLineWidth() - width;
    const int first = static_cast<int>(4 * ratio);
    const int past = static_cast<int>(16 * ratio) + width;
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 60; ++x) {
        // Whole pixels, then what is left of the width on the right and below.
        const double across = y < first || y > first + width ? 0 : y < first + width ? 1 : edge;
        const double along = x < first || x > past ? 0 : x < past ? 1 : edge;
        EXPECT_NEAR(255 - qGray(flat.pixel(x, y)), 255 * across * along, 1) << x << "," << y << " " << ratio;
        EXPECT_EQ(steep.pixel(y, x), flat.pixel(x, y)) << x << "," << y << " " << ratio;
      }
    }
  }
}

TEST_F(PictureSurfaceTest, ALineHasTheSameWeightAtEveryAngleAndRatio) {
  for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    const auto ink = [&](double angle, double length) {
      return test::InkAmount(Drawn(400, 400, ratio, [&](map::Surface& surface) {
        const auto along = [&](double part) { return static_cast<std::int32_t>(900 + 15 * length * part); };
        surface.Line({903, 907}, {along(std::cos(angle)), along(std::sin(angle))}, kPen);
      }));
    };
    for (double angle = 0; angle < 6.28; angle += 0.13) {
      // Without the ends.
      const double perPixel = (ink(angle, 55) - ink(angle, 15)) / (40 * ratio);
      EXPECT_NEAR(perPixel, PixelScale(ratio).SmoothLineWidth(), 0.03 * PixelScale(ratio).SmoothLineWidth())
          << angle << " at " << ratio;
    }
  }
}

TEST_F(PictureSurfaceTest, LinesAreWhereTheMarkersAre) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    // The mean of the vertical middle over all the positions that a point can have in its pixel.
    const auto middle = [&](const auto& draw) {
      double sum = 0;
      double weights = 0;
      for (std::int32_t part = 0; part < 15; ++part) {
        const QImage image = Drawn(120, 90, ratio, [&](map::Surface& surface) { draw(surface, 150 + part); });
        for (int y = 0; y < image.height(); ++y) {
          for (int x = 0; x < image.width(); ++x) {
            sum += (255 - qGray(image.pixel(x, y))) * (y + 0.5);
            weights += 255 - qGray(image.pixel(x, y));
          }
        }
      }
      return sum / weights;
    };
    const double line = middle([](map::Surface& surface, std::int32_t y) {
      surface.Line({150, y - 40}, {400, y + 40}, kPen);
    });
    const double marker = middle([](map::Surface& surface, std::int32_t y) {
      surface.Circle({150, y}, 20, kBlack, true);
    });
    EXPECT_NEAR(line, marker, 0.15) << ratio;
  }
}

TEST_F(PictureSurfaceTest, ALineAndItsReverseHaveTheSamePixels) {
  test::TestRandom random(20260311);
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    for (const std::size_t size : {2U, 2U, 2U, 3U, 10U, 200U}) {
      std::vector<TwipPoint> points;
      for (std::size_t i = 0; i < size; ++i)
        points.push_back(
            {static_cast<std::int32_t>(random() % 900), static_cast<std::int32_t>(random() % 900)});
      const auto there = [&](map::Surface& surface) { surface.Polyline(points, kPen); };
      const QImage once = Drawn(190, 190, ratio, there);
      std::reverse(points.begin(), points.end());
      EXPECT_EQ(Drawn(190, 190, ratio, there), once) << ratio << " " << size;
    }
  }
}

TEST_F(PictureSurfaceTest, JointsDoNotShow) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    for (const TwipPoint to : {TwipPoint{1200, 300}, TwipPoint{1170, 1200}, TwipPoint{400, 1200},
                               TwipPoint{1200, 1190}, TwipPoint{30, 1190}}) {
      const TwipPoint from{100, 110};
      const QImage whole =
          Drawn(250, 250, ratio, [&](map::Surface& surface) { surface.Line(from, to, kPen); });
      // Parts of 1.3 pixels, drawn one by one and as a run. Whole twips leave them beside the line by 1/30
      // pixel at most.
      const int count = static_cast<int>(std::hypot(to.x - from.x, to.y - from.y) / 20);
      std::vector<TwipPoint> points;
      for (int i = 0; i <= count; ++i)
        points.push_back({from.x + (to.x - from.x) * i / count, from.y + (to.y - from.y) * i / count});
      const QImage run =
          Drawn(250, 250, ratio, [&](map::Surface& surface) { surface.Polyline(points, kPen); });
      const QImage parts = Drawn(250, 250, ratio, [&](map::Surface& surface) {
        for (std::size_t i = 1; i < points.size(); ++i)
          surface.Line(points[i - 1], points[i], kPen);
      });
      EXPECT_LE(LargestDifference(run, whole), 0.1 * 255) << ratio << " " << to.x << " " << to.y;
      // Parts closer to the other axis have ends of another shape, which shows at the ends of the whole
      // alone.
      const auto withoutEnds = [&](QImage image) {
        QPainter painter(&image);
        for (const TwipPoint end : {from, to}) {
          const PixelPoint at = PixelScale(ratio).ToPixelPoint(end);
          painter.fillRect(at.x - 4, at.y - 4, 12, 12, Qt::white);
        }
        return image;
      };
      EXPECT_LE(LargestDifference(withoutEnds(parts), withoutEnds(whole)), 0.4 * 255)
          << ratio << " " << to.x << " " << to.y;
      EXPECT_NEAR(test::InkAmount(parts), test::InkAmount(whole), 0.1 * test::InkAmount(whole));
    }
  }
}

TEST_F(PictureSurfaceTest, ClippingDoesNotMoveALine) {
  test::TestRandom random(20260312);
  const auto any = [&] { return static_cast<std::int32_t>(random() % 4000) - 2000; };
  for (const double ratio : {1.0, 2.0}) {
    for (int round = 0; round < 300; ++round) {
      const TwipPoint from{any(), any()};
      const TwipPoint to{any(), any()};
      const map::Pen pen{.colour = kBlack, .width = round % 4 == 0 ? 3 : 1};
      const QImage small = Drawn(50, 40, ratio, [&](map::Surface& surface) { surface.Line(from, to, pen); });
      // 15 twips are `ratio` pixels.
      const int aside = 150;
      const TwipPoint shift{static_cast<std::int32_t>(aside * 15 / ratio),
                            static_cast<std::int32_t>(aside * 15 / ratio)};
      const QImage large = Drawn(350, 340, ratio, [&](map::Surface& surface) {
        surface.Line({from.x + shift.x, from.y + shift.y}, {to.x + shift.x, to.y + shift.y}, pen);
      });
      ASSERT_EQ(small, large.copy(aside, aside, 50, 40))
          << from.x << "," << from.y << " " << to.x << "," << to.y << " at " << ratio;
    }
  }
}

TEST_F(PictureSurfaceTest, ALineFromFarAwayStaysInPlace) {
  const QImage near = Drawn(40, 40, 1, [](map::Surface& surface) {
    surface.Line({-150'000, -150'000}, {150'300, 150'300}, kPen);
  });
  const QImage far = Drawn(40, 40, 1, [](map::Surface& surface) {
    surface.Line({-1'500'000'000, -1'500'000'000}, {1'500'000'000, 1'500'000'000}, kPen);
  });
  EXPECT_LE(LargestDifference(near, far), 0.05 * 255);
}

TEST_F(PictureSurfaceTest, LinesOfTwoColoursBlendWhereTheyCross) {
  const QImage image = Drawn(40, 40, 1, [](map::Surface& surface) {
    surface.Line({0, 75}, {600, 525}, {.colour = {0, 0, 200}});
    for (int i = 0; i < 20; ++i)
      surface.Line({300, 0}, {310, 600}, {.colour = {220, 0, 0}});
  });
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      // Between white, blue and red there is no green.
      const QRgb pixel = image.pixel(x, y);
      EXPECT_LE(qGreen(pixel), std::max(qRed(pixel), qBlue(pixel))) << x << ", " << y;
    }
  }
  int red = 0;
  for (int x = 15; x < 25; ++x)
    red += image.pixel(x, 20) == qRgb(220, 0, 0) ? 1 : 0;
  EXPECT_LE(red, 1) << "drawing again does not widen";
}

TEST_F(PictureSurfaceTest, RunIsDrawnWithoutGaps) {
  const QImage image = Drawn(5, 5, 1, [](map::Surface& surface) {
    const TwipPoint run[] = {{0, 0}, {60, 0}, {61, 1}, {63, 60}, {0, 60}};
    surface.Polyline(run, kPen);
  });
  EXPECT_EQ(Ink(image), (Rows{"#####", "....#", "....#", "....#", "#####"}));
}

TEST_F(PictureSurfaceTest, ARunWithinOnePixelIsThatPixel) {
  const QImage image = Drawn(3, 3, 1, [](map::Surface& surface) {
    const TwipPoint run[] = {{15, 15}, {20, 20}, {29, 29}};
    surface.Polyline(run, kPen);
    surface.Polyline(std::span<const TwipPoint>(run, 1), kPen);
    surface.Polyline({}, kPen);
  });
  EXPECT_EQ(Ink(image), (Rows{"...", ".#.", "..."}));
}

TEST_F(PictureSurfaceTest, FewerThanTwoPointsDrawNothing) {
  const QImage image = Drawn(3, 3, 1, [](map::Surface& surface) {
    const TwipPoint run[] = {{15, 15}};
    surface.Polyline(run, kPen);
    surface.Polyline(run, {.colour = kBlack, .style = map::LineStyle::kDotted});
  });
  EXPECT_TRUE(InkBounds(image).isEmpty());
}

TEST_F(PictureSurfaceTest, WideLinesAreCentredOnTheirPixels) {
  const auto wide = [&](int width, TwipPoint to) {
    return Ink(Drawn(5, 5, 1, [&](map::Surface& surface) {
      surface.Line({30, 30}, to, {.colour = kBlack, .width = width});
    }));
  };
  EXPECT_EQ(wide(3, {60, 30}), (Rows{".....", "..###", "..###", "..###", "....."}));
  EXPECT_EQ(wide(2, {60, 30}), (Rows{".....", ".....", "..###", "..###", "....."}));
  EXPECT_EQ(wide(3, {30, 60}), (Rows{".....", ".....", ".###.", ".###.", ".###."}));
}

TEST_F(PictureSurfaceTest, SlantedWideLineIsAsThickAsAStraightOne) {
  const auto thickness = [&](TwipPoint to) {
    const QImage image = Drawn(300, 300, 1, [&](map::Surface& surface) {
      surface.Line({150, 150}, to, {.colour = kBlack, .width = 3});
    });
    const double length = std::hypot(to.x - 150, to.y - 150) / 15;
    return test::InkAmount(image) / length;
  };
  for (const TwipPoint to :
       {TwipPoint{4000, 150}, TwipPoint{4000, 1500}, TwipPoint{4000, 4000}, TwipPoint{1500, 4000}})
    EXPECT_NEAR(thickness(to), 3, 0.35) << to.x << " " << to.y;
}

TEST_F(PictureSurfaceTest, MarkersAreRoundAndCentredAtEveryRatio) {
  for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
    for (const std::int32_t radius : {20, 30}) {
      const QImage image = Drawn(60, 60, ratio, [&](map::Surface& surface) {
        surface.Circle({150, 150}, radius, kBlack, true);
      });
      const QRect bounds = InkBounds(image);
      EXPECT_EQ(bounds.width(), bounds.height());
      // Centred on the middle of a line through the same position.
      const int at = static_cast<int>(10 * ratio);
      EXPECT_EQ(bounds.left() + bounds.right() + 1, 2 * at + PixelScale(ratio).LineWidth(1)) << ratio;
      EXPECT_EQ(bounds.left(), bounds.top());
      for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        for (int x = bounds.left(); x <= bounds.right(); ++x) {
          const int mirrored = bounds.left() + bounds.right() - x;
          EXPECT_NEAR(qGray(image.pixel(x, y)), qGray(image.pixel(mirrored, y)), 12);
          EXPECT_NEAR(qGray(image.pixel(x, y)), qGray(image.pixel(y, x)), 12);
        }
      }
      // The ink of the disc with its outline.
      const double reach = radius * ratio / 15 + PixelScale(ratio).LineWidth(1) / 2.0;
      const double area = 3.14159265 * reach * reach;
      EXPECT_NEAR(test::InkAmount(image), area, 0.06 * area) << ratio << " " << radius;
      EXPECT_EQ(image.pixel(at, at), qRgb(0, 0, 0));
    }
  }
}

TEST_F(PictureSurfaceTest, DrawingAgainKeepsSoftEdges) {
  const auto shapes = [](map::Surface& surface) {
    surface.Circle({150, 150}, 30, {16, 48, 90}, true);
    surface.Text({300, 75}, "QAV 12", {200, 30, 120}, {"Liberation Sans", 8});
    surface.Line({150, 300}, {300, 370}, {.colour = kBlack, .width = 3});
    surface.Line({600, 450}, {1000, 600}, {.colour = {90, 30, 10}});
    surface.Line({1000, 600}, {600, 450}, {.colour = {90, 30, 10}});
    surface.Line({600, 400}, {1000, 400}, {.colour = {90, 30, 10}});
  };
  const auto times = [&](int count, double ratio) {
    return Drawn(160, 80, ratio, [&](map::Surface& surface) {
      surface.Clear({230, 240, 244});
      for (int i = 0; i < count; ++i)
        shapes(surface);
    });
  };
  for (const double ratio : {1.0, 1.25, 1.5, 2.0})
    EXPECT_EQ(times(1, ratio), times(20, ratio)) << ratio;
}

TEST_F(PictureSurfaceTest, DrawingAgainCoversEarlierOperations) {
  const QImage image = Drawn(80, 40, 1, [](map::Surface& surface) {
    const auto label = [&] { surface.Text({300, 75}, "MMM", kBlack, {"Liberation Sans", 14}); };
    surface.Clear({255, 255, 255});
    label();
    surface.Line({0, 225}, {1200, 225}, {.colour = {255, 0, 0}});
    label();
  });
  int covered = 0;
  for (int x = 20; x < 80; ++x)
    covered += qRed(image.pixel(x, 15)) < 128 ? 1 : 0;
  EXPECT_GE(covered, 6);
}

TEST_F(PictureSurfaceTest, OpenCircleIsEmptyInside) {
  const QImage image = Drawn(30, 30, 1, [](map::Surface& surface) {
    surface.Circle({225, 225}, 60, kBlack, false);
  });
  EXPECT_EQ(image.pixel(15, 15), qRgb(255, 255, 255));
  const QRect bounds = InkBounds(image);
  EXPECT_EQ(bounds.left() + bounds.right(), 30);
  EXPECT_EQ(bounds.top() + bounds.bottom(), 30);
  EXPECT_NEAR(bounds.width(), 10, 1);
}

TEST_F(PictureSurfaceTest, TextBeginsAtItsTopLeftCorner) {
  const map::TextFont font{"Liberation Sans", 8};
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const QImage image = Drawn(200, 60, ratio, [&](map::Surface& surface) {
      surface.Text({150, 150}, "HHH", kBlack, font);
    });
    const QRect bounds = InkBounds(image);
    const int at = static_cast<int>(10 * ratio);
    EXPECT_GE(bounds.left(), at);
    EXPECT_LE(bounds.left(), at + 3 * ratio);
    // The height of capitals is about 0.72 of the font size; they end on the base line.
    const double size = 8 * 96.0 / 72 * ratio;
    EXPECT_NEAR(bounds.height(), 0.72 * size, 1.5) << ratio;
    EXPECT_NEAR(bounds.bottom() + 1, at + 0.905 * size, 2) << ratio;
    EXPECT_NEAR(bounds.width(), 3 * 0.722 * size, 0.3 * size) << ratio;
  }
}

TEST_F(PictureSurfaceTest, TextEqualsThatOfAPainter) {
  const map::TextFont font{"Liberation Sans", 8};
  const std::string_view text = "QAV 12 (2/3) Z\xC3\xBCrich";
  const QImage fast = Drawn(160, 30, 1, [&](map::Surface& surface) {
    surface.Text({75, 75}, text, kBlack, font);
  });
  QImage slow = Blank(160, 30);
  QPainter painter(&slow);
  PainterSurface(painter, 1, slow.rect()).Text({75, 75}, text, kBlack, font);
  painter.end();
  EXPECT_NEAR(test::InkAmount(fast), test::InkAmount(slow), 0.15 * test::InkAmount(slow));
  EXPECT_NEAR(InkBounds(fast).left(), InkBounds(slow).left(), 1);
  EXPECT_NEAR(InkBounds(fast).right(), InkBounds(slow).right(), 6);
  EXPECT_NEAR(InkBounds(fast).top(), InkBounds(slow).top(), 1);
  EXPECT_NEAR(InkBounds(fast).bottom(), InkBounds(slow).bottom(), 1);
}

TEST_F(PictureSurfaceTest, AnyTextIsDrawnOrOmitted) {
  const map::TextFont font{"Liberation Sans", 8};
  for (const std::string_view text :
       {std::string_view(""), std::string_view("\xFF\xC3"), std::string_view("a\0b", 3),
        std::string_view("\xE4\xBD\xA0\xE5\xA5\xBD"), std::string_view("e\xCC\x81"), std::string_view("\n\t"),
        std::string_view("\xF0\x9F\x9B\xA9")}) {
    const QImage image = Drawn(80, 30, 1, [&](map::Surface& surface) {
      surface.Text({75, 75}, text, kBlack, font);
      surface.Text({75, 75}, text, kBlack, {"No such family", 7});
    });
    EXPECT_FALSE(image.isNull());
  }
}

TEST_F(PictureSurfaceTest, TextIsClippedAtEveryEdge) {
  const map::TextFont font{"Liberation Sans", 8};
  const QImage image = Drawn(20, 20, 1, [&](map::Surface& surface) {
    for (const TwipPoint at : {TwipPoint{-100, -60}, TwipPoint{240, 200}, TwipPoint{-4000, 0},
                               TwipPoint{0, -200}, TwipPoint{kFar, kFar},
                               TwipPoint{kFarNegative, kFarNegative}, TwipPoint{kFar, 0}, TwipPoint{0, kFar}})
      surface.Text(at, "Harbour Field", kBlack, font);
  });
  EXPECT_FALSE(InkBounds(image).isEmpty());
}

TEST_F(PictureSurfaceTest, InvertingTwiceRestoresEveryPixel) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    QImage image(200, 150, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, y, qRgb(x * 7 & 255, y * 3 & 255, x * y & 255));
    const QImage before = image.copy();
    PictureSurface surface(image, ratio, prepared_);
    for (const auto style : {map::LineStyle::kSolid, map::LineStyle::kDotted}) {
      for (const TwipPoint to : {TwipPoint{150, 150}, TwipPoint{151, 160}, TwipPoint{150, 900},
                                 TwipPoint{900, 150}, TwipPoint{1200, 900}, TwipPoint{-300, -20},
                                 TwipPoint{5000, 5000}, TwipPoint{kFar, kFarNegative}}) {
        const map::Pen pen{.colour = {255, 200, 30}, .style = style, .mode = map::PenMode::kXor};
        surface.Rectangle({150, 150}, to, pen);
        EXPECT_NE(image, before);
        surface.Rectangle({150, 150}, to, pen);
        EXPECT_EQ(image, before) << ratio << " to " << to.x << ", " << to.y;
      }
    }
  }
}

TEST_F(PictureSurfaceTest, InvertingChangesEachPixelOnce) {
  const QImage image = Drawn(8, 8, 1, [](map::Surface& surface) {
    surface.Rectangle({15, 15}, {75, 60}, {.colour = {255, 255, 255}, .mode = map::PenMode::kXor});
  });
  EXPECT_EQ(Ink(image), (Rows{"........", ".#####..", ".#...#..", ".#...#..", ".#####..", "........",
                              "........", "........"}));
  EXPECT_EQ(image.pixel(1, 1), qRgb(0, 0, 0));
}

TEST_F(PictureSurfaceTest, RectangleWithoutExtentIsOnePixel) {
  const QImage image = Drawn(4, 4, 1, [](map::Surface& surface) {
    surface.Rectangle(
        {30, 30}, {30, 30},
        {.colour = {255, 255, 255}, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
  });
  EXPECT_EQ(Ink(image), (Rows{"....", "....", "..#.", "...."}));
}

TEST_F(PictureSurfaceTest, RectangleWithoutWidthIsALine) {
  const QImage image = Drawn(5, 6, 1, [](map::Surface& surface) {
    surface.Rectangle({30, 15}, {30, 60}, {.colour = {255, 255, 255}, .mode = map::PenMode::kXor});
  });
  EXPECT_EQ(Ink(image), (Rows{".....", "..#..", "..#..", "..#..", "..#..", "....."}));
}

TEST_F(PictureSurfaceTest, DottedRectangleHasDotsAndGapsOnAllSides) {
  const QImage image = Drawn(60, 60, 1, [](map::Surface& surface) {
    surface.Rectangle(
        {75, 75}, {750, 750},
        {.colour = {255, 255, 255}, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
  });
  const Rows ink = Ink(image);
  int dots[4] = {};
  for (std::size_t i = 5; i <= 50; ++i) {
    dots[0] += ink[5][i] == '#' ? 1 : 0;
    dots[1] += ink[50][i] == '#' ? 1 : 0;
    dots[2] += ink[i][5] == '#' ? 1 : 0;
    dots[3] += ink[i][50] == '#' ? 1 : 0;
  }
  for (const int count : dots)
    EXPECT_NEAR(count, 23, 3);
}

TEST_F(PictureSurfaceTest, DrawsTheLargestCoordinatesQuickly) {
  const auto start = std::chrono::steady_clock::now();
  const QImage image = Drawn(50, 40, 2, [](map::Surface& surface) {
    const TwipPoint far[] = {
        {kFarNegative, kFarNegative}, {kFar, kFar}, {kFarNegative, kFar}, {300, kFarNegative}};
    for (const int width : {1, 2, 3, 1000}) {
      for (const auto style : {map::LineStyle::kSolid, map::LineStyle::kDotted}) {
        for (const auto mode : {map::PenMode::kCopy, map::PenMode::kXor}) {
          const map::Pen pen{.colour = kBlack, .width = width, .style = style, .mode = mode};
          surface.Polyline(far, pen);
          surface.Rectangle(far[0], far[1], pen);
          surface.Rectangle(far[2], {100, 100}, pen);
        }
      }
    }
    for (const std::int32_t radius : {0, 20, 300, 301, -5, kFar, kFarNegative}) {
      for (const bool fill : {false, true}) {
        surface.Circle(far[0], radius, kBlack, fill);
        surface.Circle({100, 100}, radius, kBlack, fill);
      }
    }
  });
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(image.size(), QSize(50, 40));
}

TEST_F(PictureSurfaceTest, LineThroughThePictureIsClipped) {
  const QImage image = Drawn(5, 3, 1, [](map::Surface& surface) {
    surface.Line({kFarNegative, 15}, {kFar, 15}, kPen);
  });
  EXPECT_EQ(Ink(image), (Rows{".....", "#####", "....."}));
}

/// Collects the messages that Qt prints during its lifetime, such as those of a painter that cannot paint.
class QtMessages {
 public:
  QtMessages() : before_(qInstallMessageHandler(Keep)) { messages_.clear(); }
  ~QtMessages() { qInstallMessageHandler(before_); }
  const QStringList& All() const { return messages_; }

 private:
  static void Keep(QtMsgType, const QMessageLogContext&, const QString& message) {
    messages_.append(message);
  }
  static inline QStringList messages_;
  QtMessageHandler before_;
};

TEST_F(PictureSurfaceTest, EmptyPictureTakesEverythingAndStaysEmpty) {
  const QtMessages messages;
  QImage image;
  PictureSurface surface(image, 1, prepared_);
  surface.Clear(kBlack);
  surface.Line({0, 0}, {15, 15}, kPen);
  surface.Line({0, 0}, {15, 15}, {.colour = kBlack, .width = 3});
  surface.Rectangle({0, 0}, {15, 15}, kPen);
  surface.Line({0, 0}, {15, 15},
               {.colour = kBlack, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
  surface.Circle({0, 0}, 20, kBlack, true);
  surface.Circle({0, 0}, 20, kBlack, false);
  surface.Circle({0, 0}, 1'000, kBlack, true);
  surface.Text({0, 0}, "A", kBlack, {"Liberation Sans", 8});
  surface.Text({0, 0}, "\u0915\u093F", kBlack, {"Liberation Sans", 8});
  EXPECT_TRUE(image.isNull());
  EXPECT_EQ(messages.All(), QStringList());
}

TEST_F(PictureSurfaceTest, DottedRunHasGaps) {
  const QImage image = Drawn(40, 5, 1, [](map::Surface& surface) {
    surface.Line({15, 30}, {570, 30}, {.colour = kBlack, .style = map::LineStyle::kDotted});
  });
  EXPECT_NEAR(test::InkAmount(image), 18, 4);
}

}  // namespace
}  // namespace zerbal::paint
