// Flights from any schedule format, as they become rows of our tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/hash_index.h"

namespace zerbal::pack {

struct ImportedService {
  std::string key;
  std::string name;
};

struct ImportedFlight {
  std::string name;           ///< "QV101D": what the map shows
  std::string variation;      ///< tells flights of one name apart; may be empty
  std::uint32_t service = 0;  ///< index of ImportedSchedule::Services()
  std::uint32_t firstStation = 0;
  std::uint32_t stationCount = 0;
};

/// Keeps what the tables need of a flight and nothing else; a schedule may have a million of them.
class ImportedSchedule {
 public:
  /// `merge`: a flight of the same name and route as an earlier one is not added.
  explicit ImportedSchedule(bool merge) : merge_(merge) {}

  void Reserve(std::size_t flights);
  void Add(std::string name, std::string variation, std::span<const AirportIndex> route,
           ImportedService service);

  const std::vector<ImportedFlight>& Flights() const { return flights_; }
  /// In the order of their first flights.
  const std::vector<ImportedService>& Services() const { return services_; }
  std::span<const AirportIndex> RouteOf(const ImportedFlight& flight) const {
    return std::span(stations_).subspan(flight.firstStation, flight.stationCount);
  }

 private:
  bool IsKnown(const std::string& name, std::span<const AirportIndex> route);

  bool merge_;
  std::vector<ImportedFlight> flights_;
  std::vector<AirportIndex> stations_;
  std::vector<ImportedService> services_;
  std::map<std::string, std::uint32_t, std::less<>> serviceIndexes_;  // by key
  HashIndex known_;                                                   // flights by name and route
};

/// A text that can be a service's key: upper case ASCII letters, digits and a few signs, at most 20
/// characters.
std::string ToServiceKey(std::string_view text);

/// Makes keys of flights: the first flight of a name has the name as its key, the others the name and the
/// variation, with a number if that is not enough.
class FlightKeys {
 public:
  void Reserve(std::size_t flights) { used_.Reserve(flights); }
  std::string KeyOf(const ImportedFlight& flight);

 private:
  bool Take(const std::string& key);

  HashIndex used_;                                              // keys in lower case
  std::unordered_map<std::string, std::uint32_t> nextNumbers_;  // of names that need numbers
};

}  // namespace zerbal::pack
