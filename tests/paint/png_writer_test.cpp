#include "paint/png_writer.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "base/error.h"
#include "support/pictures.h"

namespace zerbal::paint {
namespace {

/// Columns of changing colours.
QImage Gradient(int width, int height) {
  QImage image = test::Blank(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) * 5 % 256));
  return image;
}

std::string Written(const QImage& image, double dpi, int rowsAtOnce) {
  std::string bytes;
  PngWriter writer(image.size(), dpi, [&bytes](std::string_view part) { bytes += part; });
  for (int top = 0; top < image.height(); top += rowsAtOnce) {
    const int count = std::min(rowsAtOnce, image.height() - top);
    writer.Write(image.copy(0, top, image.width(), count), count);
  }
  writer.Finish();
  return bytes;
}

QImage Read(const std::string& bytes) {
  return QImage::fromData(QByteArray::fromStdString(bytes), "png");
}

TEST(PngWriter, TheRowsComeInAnyParts) {
  const QImage image = Gradient(61, 40);
  const std::string whole = Written(image, 96, 40);
  EXPECT_EQ(Read(whole).convertToFormat(QImage::Format_RGB32), image);
  for (const int rows : {1, 7, 39})
    EXPECT_EQ(Written(image, 96, rows), whole) << rows;
}

TEST(PngWriter, HasTheResolution) {
  for (const auto& [dpi, dotsPerMetre] : {std::pair(96.0, 3780), std::pair(600.0, 23622)}) {
    const QImage read = Read(Written(Gradient(3, 2), dpi, 1));
    EXPECT_EQ(read.dotsPerMeterX(), dotsPerMetre);
    EXPECT_EQ(read.dotsPerMeterY(), dotsPerMetre);
  }
}

TEST(PngWriter, ErrorsOfTheSinkReachTheCaller) {
  const QImage image = Gradient(500, 500);
  const auto write = [&](std::size_t limit) {
    std::size_t size = 0;
    PngWriter writer(image.size(), 96, [&](std::string_view part) {
      size += part.size();
      if (size > limit)
        throw std::out_of_range("full");
    });
    writer.Write(image, image.height());
    writer.Finish();
    return size;
  };
  const std::size_t size = write(1 << 30);
  for (const std::size_t limit : {std::size_t{0}, std::size_t{60}, size - 1})
    EXPECT_THROW(write(limit), std::out_of_range) << limit;
}

TEST(PngWriter, APictureWithoutRowsIsAnError) {
  const auto ignore = [](std::string_view) {};
  EXPECT_THROW(PngWriter({0, 5}, 96, ignore), base::Error);
  PngWriter writer({5, 5}, 96, ignore);
  EXPECT_THROW(writer.Finish(), base::Error);
}

}  // namespace
}  // namespace zerbal::paint
