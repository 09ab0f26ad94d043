// Measures pictures in tests.
#pragma once

#include <QImage>
#include <algorithm>
#include <string>
#include <vector>

namespace zerbal::test {

inline QImage Blank(int width, int height, QRgb colour = qRgb(255, 255, 255)) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

/// One text per row, with '#' for each pixel that differs from `background` and '.' for the others.
inline std::vector<std::string> Ink(const QImage& image, QRgb background = qRgb(255, 255, 255)) {
  std::vector<std::string> rows;
  for (int y = 0; y < image.height(); ++y) {
    std::string row;
    for (int x = 0; x < image.width(); ++x)
      row += image.pixel(x, y) == background ? '.' : '#';
    rows.push_back(row);
  }
  return rows;
}

/// The smallest rectangle with all pixels that differ from `background`.
inline QRect InkBounds(const QImage& image, QRgb background = qRgb(255, 255, 255)) {
  QRect bounds;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != background)
        bounds |= QRect(x, y, 1, 1);
  return bounds;
}

/// The darkness of the picture: 1 per black pixel, 0 per white pixel.
inline double InkAmount(const QImage& image) {
  double sum = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      sum += (255 - qGray(image.pixel(x, y))) / 255.0;
  return sum;
}

}  // namespace zerbal::test
