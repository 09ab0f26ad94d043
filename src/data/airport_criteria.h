// Which airports a layer shows: limits on elevation, number of runways, longest runway and ILS.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zerbal::data {

enum class Criterion { kElevation, kRunways, kLongestRunway, kIls };
enum class Limit { kBetween, kAtLeast, kAtMost };

/// One numeric criterion. The numbers of the limits that are not selected are kept for the dialog.
struct NumericCriterion {
  bool active = false;
  Limit limit = Limit::kBetween;
  std::int32_t from = 0;     ///< between, inclusive
  std::int32_t to = 0;       ///< between, inclusive
  std::int32_t atLeast = 0;  ///< inclusive; feet, or a number of runways
  std::int32_t atMost = 0;   ///< inclusive
  bool operator==(const NumericCriterion&) const = default;
};

struct AirportCriteria {
  std::array<NumericCriterion, 3> numeric;  ///< elevation (ft), runways, longest runway (ft)
  bool ilsActive = false;
  bool withIls = true;  ///< "1" passes; when false, "0" passes. any other text fails
  bool operator==(const AirportCriteria&) const = default;

  bool AnyActive() const;
};

bool AirportPassesCriteria(const AirportCriteria& set, std::int32_t elevation, std::int32_t runways,
                           std::int32_t longestRunway, std::string_view ils);

/// Describes the criteria in one line for the check boxes of the layers.
std::string DelimitationText(const AirportCriteria& set);

}  // namespace zerbal::data
