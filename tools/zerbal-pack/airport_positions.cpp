#include "zerbal-pack/airport_positions.h"

#include <optional>
#include <set>
#include <string_view>

#include "base/find_file.h"
#include "data/airports.h"
#include "jet/database.h"

namespace zerbal::pack {

namespace {

/// The airports of flights whose positions are not known yet.
std::set<std::string_view> Missing(const PlainSchedule& schedule, const AirportPositions& positions) {
  std::set<std::string_view> missing;
  for (const data::Flight& flight : schedule.flights) {
    for (const std::string& code : flight.route) {
      if (!positions.contains(code))
        missing.insert(code);
    }
  }
  return missing;
}

}  // namespace

AirportPositions FindPositions(const PlainSchedule& schedule, const std::filesystem::path& source) {
  AirportPositions positions;
  for (const PlainAirport& airport : schedule.destinations) {
    if (airport.position)
      positions.emplace(airport.code, *airport.position);
  }
  const std::set<std::string_view> missing = Missing(schedule, positions);
  const auto file = base::FindFile(source, "app_data/allaprt.mdb");
  if (missing.empty() || !file)
    return positions;
  const data::Airports airports(jet::Database::Open(*file), "allaprt");
  for (const std::string_view code : missing) {
    if (const std::optional<data::Airport> airport = airports.Find(code))
      positions.emplace(code, ToGeoPosition(airport->Position()));
  }
  return positions;
}

}  // namespace zerbal::pack
