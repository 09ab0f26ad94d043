#include "zerbal-pack/other_imports.h"

#include <array>

#include <fmt/format.h>

#include "zerbal-pack/import_services.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kLongestFlightName = 20;  // characters in the database

}  // namespace

void ImportPhpVms(const PhpVmsSchedule& flights, const AirportTable& airports, const ImportOptions& options,
                  ImportedSchedule& schedule) {
  for (const PhpVmsFlight& flight : flights.flights) {
    if (!options.filter.Takes(flight.airline, flight.operation))
      continue;
    const ServiceTraits traits{flight.type, flight.typeName, flight.aircraft, flight.airline,
                               &airports[flight.route.front()]};
    schedule.Add(flight.Name(), "", flight.route, ServiceOf(traits, options));
  }
}

void ImportOpenFlights(const OpenFlightsRoutes& routes, const AirportTable& airports,
                       const ImportOptions& options, ImportedSchedule& schedule) {
  for (const OpenFlightsRoute& route : routes.routes) {
    if (!options.filter.Takes(route.airline, {}))
      continue;
    const Airport& departure = airports[route.departure];
    const ServiceTraits traits{' ', "", route.equipment.substr(0, route.equipment.find(' ')), route.airline,
                               &departure};
    const std::string name = fmt::format("{} {}-{}", route.airline, CodeOf(departure, options.codes),
                                         CodeOf(airports[route.arrival], options.codes));
    schedule.Add(name.substr(0, kLongestFlightName), "", std::array{route.departure, route.arrival},
                 ServiceOf(traits, options));
  }
}

}  // namespace zerbal::pack
