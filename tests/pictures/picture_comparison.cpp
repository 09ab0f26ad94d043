#include "pictures/picture_comparison.h"

#include <QColor>
#include <algorithm>
#include <cstdlib>

namespace zerbal::test {
namespace {

/// Of a colour component in the neighbourhood of a pixel.
constexpr int kLetterTolerance = 60;

/// The sums of the colour components of a pixel and its eight neighbours, divided by nine.
QColor Neighbourhood(const QImage& picture, int x, int y) {
  int red = 0;
  int green = 0;
  int blue = 0;
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      const QRgb pixel = picture.pixel(std::clamp(x + dx, 0, picture.width() - 1),
                                       std::clamp(y + dy, 0, picture.height() - 1));
      red += qRed(pixel);
      green += qGreen(pixel);
      blue += qBlue(pixel);
    }
  }
  return {red / 9, green / 9, blue / 9};
}

/// Letters are a little bolder, softer or displaced by a part of a pixel.
bool IsSimilar(const QImage& a, const QImage& b, int x, int y) {
  const QColor p = Neighbourhood(a, x, y);
  const QColor q = Neighbourhood(b, x, y);
  return std::abs(p.red() - q.red()) <= kLetterTolerance &&
         std::abs(p.green() - q.green()) <= kLetterTolerance &&
         std::abs(p.blue() - q.blue()) <= kLetterTolerance;
}

QRgb Pale(QRgb pixel) {
  const int grey = 200 + qGray(pixel) * 55 / 255;
  return qRgb(grey, grey, grey);
}

std::string SizeText(const QImage& picture) {
  return std::to_string(picture.width()) + " x " + std::to_string(picture.height());
}

}  // namespace

PictureDifference ComparePictures(const QImage& expected, const QImage& drawn,
                                  const std::vector<QRect>& letters) {
  if (expected.size() != drawn.size())
    return {"the size is " + SizeText(drawn) + " instead of " + SizeText(expected), drawn};
  PictureDifference difference{{}, drawn};
  QRect bounds;
  int count = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      difference.picture.setPixel(x, y, Pale(drawn.pixel(x, y)));
      if (drawn.pixel(x, y) == expected.pixel(x, y))
        continue;
      const auto touches = [x, y](const QRect& box) { return box.contains(x, y); };
      if (std::any_of(letters.begin(), letters.end(), touches) && IsSimilar(expected, drawn, x, y))
        continue;
      difference.picture.setPixel(x, y, qRgb(255, 0, 0));
      bounds |= QRect(x, y, 1, 1);
      ++count;
    }
  }
  if (count > 0)
    difference.words = std::to_string(count) + (count == 1 ? " pixel differs" : " pixels differ") +
                       ", within columns " + std::to_string(bounds.left()) + " to " +
                       std::to_string(bounds.right()) + " and rows " + std::to_string(bounds.top()) + " to " +
                       std::to_string(bounds.bottom());
  return difference;
}

}  // namespace zerbal::test
