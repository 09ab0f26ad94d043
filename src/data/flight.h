// One flight of the schedule.
#pragma once

#include <string>
#include <vector>

namespace zerbal::data {

inline constexpr int kMaxStopovers = 10;

struct Flight {
  std::string key;      ///< unique in the schedule
  std::string service;  ///< key of its flight service
  std::string number;   ///< as lists and labels show it
  /// Airport codes: origin, stopovers up to the first that is Null or no text, destination.
  std::vector<std::string> route;

  const std::string& Origin() const { return route.front(); }
  const std::string& Destination() const { return route.back(); }
};

}  // namespace zerbal::data
