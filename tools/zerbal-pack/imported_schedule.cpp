#include "zerbal-pack/imported_schedule.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/case_folding.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kLongestKey = 20;

std::size_t HashOf(const std::string& name, std::span<const AirportIndex> route) {
  std::size_t hash = std::hash<std::string>()(name);
  for (const AirportIndex station : route)
    hash = (hash ^ station) * 0x9E3779B97F4A7C15U;
  return hash;
}

}  // namespace

void ImportedSchedule::Reserve(std::size_t flights) {
  flights_.reserve(flights_.size() + flights);
  if (merge_)
    known_.Reserve(flights);
}

bool ImportedSchedule::IsKnown(const std::string& name, std::span<const AirportIndex> route) {
  return known_.FindOrAdd(HashOf(name, route), static_cast<std::uint32_t>(flights_.size()),
                          [&](std::uint32_t index) {
                            const ImportedFlight& flight = flights_[index];
                            return flight.name == name && std::ranges::equal(RouteOf(flight), route);
                          });
}

void ImportedSchedule::Add(std::string name, std::string variation, std::span<const AirportIndex> route,
                           ImportedService service) {
  if (merge_ && IsKnown(name, route))
    return;
  const auto [found, isNew] =
      serviceIndexes_.try_emplace(service.key, static_cast<std::uint32_t>(services_.size()));
  if (isNew)
    services_.push_back(std::move(service));
  flights_.push_back({std::move(name), std::move(variation), found->second,
                      static_cast<std::uint32_t>(stations_.size()),
                      static_cast<std::uint32_t>(route.size())});
  stations_.insert(stations_.end(), route.begin(), route.end());
}

std::string ToServiceKey(std::string_view text) {
  std::string key;
  for (const char c : text.substr(0, kLongestKey)) {
    const char lower = base::LowerAscii(c);
    if (lower >= 'a' && lower <= 'z')
      key.push_back(static_cast<char>(lower - 'a' + 'A'));
    else
      key.push_back((c >= '0' && c <= '9') || c == '-' || c == '/' || c == '.' ? c : '_');
  }
  return key;
}

bool FlightKeys::Take(const std::string& key) {
  std::string lower = base::LowerAscii(key);
  // Two keys of one hash would only make the second one longer.
  return !used_.FindOrAdd(std::hash<std::string>()(lower), 0, [](std::uint32_t) { return true; });
}

std::string FlightKeys::KeyOf(const ImportedFlight& flight) {
  if (Take(flight.name))
    return flight.name;
  if (std::string key = flight.name + "/" + flight.variation; !flight.variation.empty() && Take(key))
    return key;
  const std::string prefix = flight.name + (flight.variation.empty() ? "/" : "/" + flight.variation + "/");
  std::uint32_t& number = nextNumbers_.try_emplace(prefix, 2).first->second;
  while (true) {
    if (std::string key = prefix + std::to_string(number++); Take(key))
      return key;
  }
}

}  // namespace zerbal::pack
