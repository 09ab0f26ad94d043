#include "print/scale_bar.h"

#include <cmath>

namespace zerbal::print {

std::string ScaleBar::Text() const {
  constexpr double kMetresPerKilometre = 1000;
  const bool inKilometres = metres >= kMetresPerKilometre;
  const auto number = std::llround(inKilometres ? metres / kMetresPerKilometre : metres);
  return std::to_string(number) + (inKilometres ? "\u00A0km" : "\u00A0m");
}

std::optional<ScaleBar> RoundScaleBar(double metresPerTwip, std::int32_t longest) {
  constexpr double kSteps[] = {5, 2, 1};
  const double most = metresPerTwip * longest;
  if (!(metresPerTwip > 0) || !std::isfinite(most) || most < 1)
    return std::nullopt;
  const double power = std::pow(10, std::floor(std::log10(most)));
  for (const double step : kSteps) {
    if (step * power > most)
      continue;
    const ScaleBar bar{step * power, static_cast<std::int32_t>(std::lround(step * power / metresPerTwip))};
    if (bar.twips > 0)
      return bar;
  }
  return std::nullopt;
}

}  // namespace zerbal::print
