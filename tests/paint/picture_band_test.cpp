// A picture drawn in bands has the same pixels as one that is drawn as a whole.
#include <QtMath>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "extremes.h"
#include "paint/map_file.h"
#include "paint/operation_list.h"
#include "paint/picture_surface.h"
#include "support/pictures.h"
#include "support/test_random.h"

namespace zerbal::paint {
namespace {

using test::TestRandom;

/// Everything that maps consist of, and more, at random places in and around an area (logical pixels).
class RandomScene {
 public:
  RandomScene(TestRandom& random, int width, int height)
      : random_(random), width_(width * kTwipsPerPixel), height_(height * kTwipsPerPixel) {}

  void Draw(map::Surface& surface) {
    surface.Clear({230, 240, 250});
    for (int i = 0; i < 15; ++i) {
      std::vector<TwipPoint> coast{Place()};
      while (coast.size() < 60)
        coast.push_back({coast.back().x + Number(-60, 60), coast.back().y + Number(-60, 60)});
      surface.Polyline(coast, {.colour = Colour()});
      surface.Line(Place(), Place(), {.colour = Colour()});
      const TwipPoint from = Place();
      surface.Line(from, {from.x, Place().y}, {.colour = Colour()});
      surface.Line(from, {Place().x, from.y}, {.colour = Colour(), .width = 2});
      surface.Line(from, Place(), {.colour = Colour(), .width = Number(2, 5)});
      surface.Line(from, Place(), {.colour = Colour(), .style = map::LineStyle::kDotted});
      surface.Rectangle(Place(), Place(), {.colour = Colour()});
      surface.Rectangle(Place(), Place(),
                        {.colour = Colour(), .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
      surface.Circle(Place(), Number(0, 90), Colour(), true);
      surface.Circle(Place(), Number(0, 600), Colour(), i % 2 == 0);
      surface.Text(Place(), "OSL 12" + std::to_string(i), Colour(), {"Liberation Sans", Number(6, 14)});
      surface.Text(Place(), "A\xCC\x8A \xE4\xB8\xAD", Colour(), {"Liberation Sans", Number(6, kLargest)});
    }
    surface.Line({kFarNegative, kFarNegative}, {kFar, kFar}, kPen);
  }

 private:
  /// Points. QPainter draws letters of 64 pixels and more by their outlines, and not in the same way each
  /// time.
  static constexpr int kLargest = 7;

  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  TwipPoint Place() { return {Number(-width_ / 2, 3 * width_ / 2), Number(-height_ / 2, 3 * height_ / 2)}; }
  data::Rgb Colour() {
    const auto part = [this] { return static_cast<std::uint8_t>(Number(0, 255)); };
    return {part(), part(), part()};
  }

  TestRandom& random_;
  int width_;
  int height_;
};

using Draw = std::function<void(map::Surface&)>;

QImage DrawnAtOnce(QSize size, double scale, const Draw& draw) {
  QImage picture(size, QImage::Format_RGB32);
  PreparedPictures prepared;
  PictureSurface surface(picture, scale, prepared);
  draw(surface);
  return picture;
}

QImage DrawnInBands(QSize size, double scale, int rows, const Draw& draw) {
  QImage picture(size, QImage::Format_RGB32);
  PreparedPictures prepared;
  for (int top = 0; top < size.height(); top += rows) {
    QImage band(size.width(), rows, QImage::Format_RGB32);
    {
      PictureSurface surface(band, {top, size.height()}, scale, prepared);
      draw(surface);
    }
    for (int row = 0; row < std::min(rows, size.height() - top); ++row)
      std::copy_n(band.constScanLine(row), band.bytesPerLine(), picture.scanLine(top + row));
  }
  return picture;
}

TEST(PictureBand, HasThePixelsOfTheWholePicture) {
  TestRandom random(9121);
  for (const double scale : {0.7, 1.0, 1.25, 2.0, 6.25}) {
    for (const QSize logical : {QSize(60, 40), QSize(21, 50)}) {
      OperationList operations;
      RandomScene(random, logical.width(), logical.height()).Draw(operations);
      const auto draw = [&](map::Surface& surface) { operations.DrawBetween(kFarNegative, kFar, surface); };
      const QSize size = (QSizeF(logical) * scale).toSize();
      const QImage whole = DrawnAtOnce(size, scale, draw);
      for (const int rows : {3, 37}) {
        const QImage banded = DrawnInBands(size, scale, rows, draw);
        for (int y = 0; y < size.height(); ++y) {
          ASSERT_TRUE(std::equal(whole.constScanLine(y), whole.constScanLine(y) + whole.bytesPerLine(),
                                 banded.constScanLine(y)))
              << "scale " << scale << ", " << logical.width() << " x " << logical.height() << ", bands of "
              << rows << " rows, row " << y;
        }
      }
    }
  }
}

TEST(PictureBand, APngOfSeveralBandsHasThePixelsOfTheWholePicture) {
  TestRandom random(40960);
  for (const auto& [size, dpi] : {std::pair(QSize(4096, 300), 96.0), std::pair(QSize(2500, 700), 600.0),
                                  std::pair(QSize(9000, 61), 97.0), std::pair(QSize(1, 1), 96.0)}) {
    OperationList operations;
    const QSizeF logical = QSizeF(size) * (kScreenDpi / dpi);
    RandomScene(random, qCeil(logical.width()), qCeil(logical.height())).Draw(operations);
    const auto draw = [&](map::Surface& surface) { operations.DrawBetween(kFarNegative, kFar, surface); };
    QByteArray bytes;
    std::vector<double> progress;
    WritePng(
        size, dpi, draw,
        [&](std::string_view part) { bytes.append(part.data(), static_cast<qsizetype>(part.size())); },
        [&](double done) { progress.push_back(done); });
    EXPECT_TRUE(QImage::fromData(bytes, "png").convertToFormat(QImage::Format_RGB32) ==
                DrawnAtOnce(size, dpi / kScreenDpi, draw))
        << size.width() << " x " << size.height();
    ASSERT_FALSE(progress.empty());
    EXPECT_EQ(progress.front(), 0);
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_LT(progress.back(), 1);
    EXPECT_EQ(progress.size() > 1, size.height() > 1);
  }
}

}  // namespace
}  // namespace zerbal::paint
