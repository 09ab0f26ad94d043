#include "print/graticule.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"

namespace zerbal::print {
namespace {

/// A whole number of thousandths: degrees as they are given, without the rounding of sums.
constexpr double kPerDegree = 1000;

std::string DegreeText(double degrees, const char* positive, const char* negative) {
  const char* letter = degrees > 0 ? positive : degrees < 0 ? negative : "";
  return base::DecimalText(std::abs(degrees)) + "°" + letter;
}

/// Whether the meridians meet at the pole in one point of the picture.
bool IsPoint(const Projection& projection, double pole) {
  const auto one = projection.Project({0, pole});
  const auto other = projection.Project({90, pole});
  return one && other && std::abs(one->x - other->x) < kTwipsPerPixel &&
         std::abs(one->y - other->y) < kTwipsPerPixel;
}

class GraticuleMaker {
 public:
  GraticuleMaker(const Projection& projection, double degrees)
      : projection_(projection),
        step_(std::max<long>(std::lround(degrees * kPerDegree), 1)),
        visible_(projection.Visible()),
        north_(EndOfMeridians(90)),
        south_(EndOfMeridians(-90)) {}

  std::vector<GraticuleLine> Make() {
    VisitMultiples(visible_.west, visible_.east, [this](double lon) {
      const bool quarter = std::fmod(lon, 90) == 0;
      const double wrapped = lon > 180 ? lon - 360 : lon <= -180 ? lon + 360 : lon;
      // The seam of a map around the whole globe is one meridian.
      if (lon >= visible_.west + 360)
        return;
      const double north = quarter ? 90 : north_;
      const double south = quarter ? -90 : south_;
      Add({{wrapped, south}, {wrapped, (north + south) / 2}, {wrapped, north}},
          wrapped == 180 ? "180°" : DegreeText(wrapped, "E", "W"));
    });
    VisitMultiples(visible_.south, visible_.north, [this](double lat) {
      if (std::abs(lat) >= 90)
        return;
      const double quarter = (visible_.east - visible_.west) / 4;
      std::vector<GeoPosition> positions;
      for (int i = 0; i <= 4; ++i)
        positions.push_back({visible_.west + i * quarter, lat});
      Add(positions, DegreeText(lat, "N", "S"));
    });
    return std::move(lines_);
  }

 private:
  double EndOfMeridians(double pole) const {
    if (!IsPoint(projection_, pole))
      return pole;
    const double step = static_cast<double>(step_) / kPerDegree;
    return std::copysign(std::max(std::ceil(90 / step) - 1, 0.0) * step, pole);
  }

  template <typename Visit>
  void VisitMultiples(double least, double most, const Visit& visit) const {
    const auto first = static_cast<long>(std::ceil(least * kPerDegree / static_cast<double>(step_)));
    const auto last = static_cast<long>(std::floor(most * kPerDegree / static_cast<double>(step_)));
    for (long i = first; i <= last; ++i)
      visit(static_cast<double>(i * step_) / kPerDegree);
  }

  void Add(const std::vector<GeoPosition>& positions, std::string text) {
    GraticuleLine line{std::move(text), {}};
    projection_.ProjectLine(positions, [&](std::span<const TwipPoint> part) {
      line.parts.emplace_back(part.begin(), part.end());
    });
    if (!line.parts.empty())
      lines_.push_back(std::move(line));
  }

  const Projection& projection_;
  long step_;  ///< thousandths of a degree
  GeoBox visible_;
  double north_, south_;  ///< where most meridians end
  std::vector<GraticuleLine> lines_;
};

}  // namespace

std::vector<GraticuleLine> MakeGraticule(const Projection& projection, double degrees) {
  return GraticuleMaker(projection, degrees).Make();
}

}  // namespace zerbal::print
