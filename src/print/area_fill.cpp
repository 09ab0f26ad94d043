#include "print/area_fill.h"

#include <algorithm>
#include <cmath>

#include "print/blend.h"

namespace zerbal::print {
namespace {

/// Of a sum of covers by the even-odd rule, 0 to 255.
std::uint32_t Coverage(float sum) {
  constexpr float kWhole = 255;
  const float turns = std::fabs(sum) / 2;
  const float part = (turns - std::floor(turns)) * 2;
  return static_cast<std::uint32_t>((part > 1 ? 2 - part : part) * kWhole + 0.5F);
}

}  // namespace

AreaFill::AreaFill(QImage& rows, int top)
    : rows_(rows),
      top_(top),
      stride_(static_cast<std::size_t>(rows.width()) + 2),
      covers_(stride_ * static_cast<std::size_t>(rows.height())) {}

void AreaFill::AddSide(PixelPosition from, PixelPosition to) {
  if (from.y == to.y)
    return;
  const double direction = from.y < to.y ? 1 : -1;
  if (direction < 0)
    std::swap(from, to);
  const double slope = (to.x - from.x) / (to.y - from.y);
  const double last = std::min(to.y, static_cast<double>(top_ + rows_.height()));
  for (int row = std::max(top_, static_cast<int>(std::floor(from.y))); row < last; ++row) {
    const double begin = std::max(from.y, static_cast<double>(row));
    const double end = std::min(to.y, row + 1.0);
    const auto [left, right] =
        std::minmax({from.x + slope * (begin - from.y), from.x + slope * (end - from.y)});
    AddInRow(row - top_, left, right, direction * (end - begin));
  }
}

void AreaFill::AddInRow(int row, double left, double right, double cover) {
  float* covers = covers_.data() + static_cast<std::size_t>(row) * stride_;
  const double width = rows_.width();
  // A pixel gets what is left of it as a whole and what is in it by its part on the right of the side.
  const auto add = [&](double from, double to, double part) {
    if (from >= width)
      return;
    const int column = static_cast<int>(from);
    const double aside = (from + to) / 2 - column;
    covers[column] += static_cast<float>(part * (1 - aside));
    covers[column + 1] += static_cast<float>(part * aside);
  };
  if (right <= 0) {
    covers[0] += static_cast<float>(cover);
    return;
  }
  if (std::floor(left) == std::floor(right) && left >= 0) {
    add(left, right, cover);
    return;
  }
  const double perPixel = cover / (right - left);
  if (left < 0)
    covers[0] += static_cast<float>(perPixel * -left);
  for (double at = std::max(left, 0.0); at < std::min(right, width);) {
    const double next = std::min(std::floor(at) + 1, right);
    add(at, next, perPixel * (next - at));
    at = next;
  }
}

void AreaFill::Colour(std::uint32_t pixel) {
  for (int row = 0; row < rows_.height(); ++row) {
    float* covers = covers_.data() + static_cast<std::size_t>(row) * stride_;
    auto* pixels = reinterpret_cast<std::uint32_t*>(rows_.scanLine(row));
    float sum = 0;
    std::uint32_t coverage = 0;
    for (int column = 0; column < rows_.width(); ++column) {
      if (covers[column] != 0) {
        sum += covers[column];
        coverage = Coverage(sum);
      }
      if (coverage == 255)
        pixels[column] = pixel;
      else if (coverage != 0)
        pixels[column] = Blended(pixels[column], pixel, coverage);
    }
  }
  std::fill(covers_.begin(), covers_.end(), 0.0F);
}

}  // namespace zerbal::print
