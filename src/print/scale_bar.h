// The length of a scale bar.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zerbal::print {

struct ScaleBar {
  double metres = 0;       ///< 1, 2 or 5 times a power of ten
  std::int32_t twips = 0;  ///< its length on the map

  /// "500 km", "200 m", with a space that does not break.
  std::string Text() const;
};

/// The longest bar of a round length that takes at most `longest` twips; nothing when the scale is not a
/// positive number or the bar would not be seen.
std::optional<ScaleBar> RoundScaleBar(double metresPerTwip, std::int32_t longest);

}  // namespace zerbal::print
