#include "data/flight_lists.h"

#include <algorithm>

#include "data/counters.h"
#include "data/schedule.h"

namespace zerbal::data {
namespace {

void Append(FlightList& list, const Flight& flight, const Airports& destinations, bool citiesForStopovers) {
  list.lines.push_back(FlightLine(flight, destinations, citiesForStopovers));
  list.keys.push_back(flight.key);
}

bool Touches(const Flight& flight, std::string_view airport, AirportRoles roles) {
  const auto isAirport = [airport](const std::string& code) { return code == airport; };
  return (roles.origin && isAirport(flight.Origin())) ||
         (roles.stopover && std::any_of(flight.route.begin() + 1, flight.route.end() - 1, isAirport)) ||
         (roles.destination && isAirport(flight.Destination()));
}

}  // namespace

FlightList FlightsOfService(FlightSource source, std::int16_t position, bool citiesForStopovers) {
  FlightList list;
  FlightReader reader(source.flit);
  const std::size_t first = position == 0 ? 0 : static_cast<std::size_t>(position - 1);
  const std::size_t end = position == 0 ? source.services.size() : first + 1;
  for (std::size_t i = first; i < end; ++i) {
    ForEachFlightOfService(source.flit, source.services.at(i).key, [&](const jet::Recordset& row) {
      Append(list, reader.Read(row), source.destinations, citiesForStopovers);
      return true;
    });
  }
  return list;
}

FlightList FlightsTouching(FlightSource source, std::string_view airport, AirportRoles roles,
                           bool citiesForStopovers) {
  FlightList list;
  FlightReader reader(source.flit);
  std::int16_t found = 0;
  for (const FlightService& service : source.services) {
    ForEachFlightOfService(source.flit, service.key, [&](const jet::Recordset& row) {
      const Flight& flight = reader.Read(row);
      if (Touches(flight, airport, roles)) {
        CountUp(found);
        Append(list, flight, source.destinations, citiesForStopovers);
      }
      return true;
    });
  }
  return list;
}

}  // namespace zerbal::data
