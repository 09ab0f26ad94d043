#include "print/long_lines.h"

#include <algorithm>
#include <cmath>

namespace zerbal::print {

std::vector<TwipPoint> InPieces(std::span<const TwipPoint> points) {
  constexpr double kLongest = 100 * kTwipsPerPixel;
  constexpr double kRounding = 2;  // what rounded ends can add to a piece
  std::vector<TwipPoint> line;
  for (const TwipPoint end : points) {
    const TwipPoint start = line.empty() ? end : line.back();
    const double width = static_cast<double>(end.x) - start.x, height = static_cast<double>(end.y) - start.y;
    const double pieces = std::ceil((std::hypot(width, height) - kRounding) / kLongest);
    for (double piece = 1; piece < pieces; ++piece)
      line.push_back({start.x + static_cast<std::int32_t>(std::lround(width * piece / pieces)),
                      start.y + static_cast<std::int32_t>(std::lround(height * piece / pieces))});
    line.push_back(end);
  }
  return line;
}

}  // namespace zerbal::print
