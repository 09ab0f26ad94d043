#include "map/route.h"

#include <utility>

namespace zerbal::map {

bool Route::Read(const data::Flight& flight, const Viewport& viewport) {
  count_ = 0;
  secondPass_ = false;
  for (const std::string& code : flight.route) {
    const RoutePoint* point = Find(code);
    if (point == nullptr)
      return false;
    points_.at(count_++) = point;
    // West of a view that runs through 360: this end is seen one turn further east.
    if (viewport.MapWrap() && point->position.lon < viewport.MapLonMin())
      secondPass_ = true;
  }
  return true;
}

const RoutePoint* Route::Find(const std::string& code) {
  auto known = known_.find(code);
  if (known == known_.end()) {
    std::optional<RoutePoint> point;
    if (const std::optional<data::Airport> airport = destinations_.Find(code)) {
      point = RoutePoint{airport->Position(), code, {}, {}};
      if (withTexts_) {
        point->name = airport->Name();
        point->city = airport->City();
      }
    }
    known = known_.emplace(code, std::move(point)).first;
  }
  return known->second ? &*known->second : nullptr;
}

const data::FlightService* FindService(const data::FlightServiceTable& services, std::string_view key) {
  const data::FlightService* found = nullptr;
  for (const data::FlightService& service : services)
    if (service.key == key)
      found = &service;
  return found;
}

}  // namespace zerbal::map
