#include "map/route.h"

namespace zerbal::map {

bool Route::Read(const data::Flight& flight, const data::Airports& destinations, const Viewport& viewport,
                 bool withTexts) {
  count_ = 0;
  secondPass_ = false;
  for (const std::string& code : flight.route) {
    const std::optional<data::Airport> airport = destinations.Find(code);
    if (!airport)
      return false;
    RoutePoint& point = points_.at(count_++);
    point.position = airport->Position();
    point.code = code;
    if (withTexts) {
      point.name = airport->Name();
      point.city = airport->City();
    }
    // West of a view that runs through 360: this end is seen one turn further east.
    if (viewport.MapWrap() && point.position.lon < viewport.MapLonMin())
      secondPass_ = true;
  }
  return true;
}

const data::FlightService* FindService(const data::FlightServiceTable& services, std::string_view key) {
  const data::FlightService* found = nullptr;
  for (const data::FlightService& service : services)
    if (service.key == key)
      found = &service;
  return found;
}

}  // namespace zerbal::map
