// A whole schedule in memory, wherever it comes from, for commands that compare or count.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/coordinates.h"
#include "data/flight.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct PlainService {
  std::string key;
  std::string name;
  std::array<int, 3> rgb{};
};

struct PlainAirport {
  std::string code;
  std::string name;
  std::string city;
  std::optional<GeoPosition> position;
};

struct PlainSchedule {
  std::vector<PlainService> services;      ///< in display order
  std::vector<PlainAirport> destinations;  ///< by code
  std::vector<data::Flight> flights;       ///< as data::SortFlights() orders them

  /// The last one of that key, as the map has it; null when there is none.
  const PlainService* FindService(std::string_view key) const;
};

/// Reads a schedule database, the one of a data folder, or services.csv, destinations.csv and flights.csv of
/// a folder. A data folder is one with app_data/qavdata.mdb; CSV files beside it are then ignored. Faults of
/// CSV files are added to `problems`; the result is valid only when there is no error. Throws base::Error
/// when `source` is none of these, jet::EngineError when a database cannot be read.
PlainSchedule ReadPlainSchedule(const std::filesystem::path& source, Problems& problems);

/// "LPPT-LPPR"
std::string RouteText(const data::Flight& flight);

}  // namespace zerbal::pack
