#include "data/flight_lists.h"

#include <algorithm>
#include <optional>

#include "data/error.h"

namespace zerbal::data {
namespace {

/// Appends the code, with the city before it when the airport is one of the destinations.
void AppendWithCity(std::string& line, const std::string& code, const Airports& destinations) {
  if (const std::optional<Airport> airport = destinations.Find(code)) {
    line += airport->City();
    line += ' ';
  }
  line += code;
}

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

std::string FlightLine(const Flight& flight, const Airports& destinations, bool citiesForStopovers) {
  constexpr std::string_view kArrow = " -> ";
  std::string line = flight.number;
  line += " - ";
  for (std::size_t i = 0; i < flight.route.size(); ++i) {
    const bool isEnd = i == 0 || i + 1 == flight.route.size();
    if (i > 0)
      line += kArrow;
    if (isEnd || citiesForStopovers)
      AppendWithCity(line, flight.route[i], destinations);
    else
      line += flight.route[i];
  }
  return line;
}

FlightList FlightsOfService(FlightSource source, int position, bool citiesForStopovers) {
  FlightList list;
  const std::size_t first = position == 0 ? 0 : static_cast<std::size_t>(position - 1);
  const std::size_t end = position == 0 ? source.services.size() : first + 1;
  for (std::size_t i = first; i < end; ++i) {
    source.schedule.VisitFlights(source.services.at(i).key, [&](const FlightRow& row) {
      Append(list, row.Read(), source.destinations, citiesForStopovers);
      return true;
    });
  }
  return list;
}

FlightList FlightsTouching(FlightSource source, std::string_view airport, AirportRoles roles,
                           bool citiesForStopovers) {
  FlightList list;
  int found = 0;
  for (const FlightService& service : source.services) {
    source.schedule.VisitFlights(service.key, [&](const FlightRow& row) {
      const Flight& flight = row.Read();
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
