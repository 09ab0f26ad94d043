// Makes the database of the world's airports.
#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>

#include "zerbal-pack/airport_sources.h"
#include "zerbal-pack/command_line.h"

namespace zerbal::pack {

struct AirportsOptions {
  AirportSource source;
  std::filesystem::path out;
  int leastRunway = 0;       ///< feet; airports whose longest runway is shorter are left out
  bool estimateIls = false;  ///< where it is not known; otherwise there is none
};

/// Throws base::UsageError.
AirportsOptions ToAirportsOptions(const AirportsWords& words);

/// Reports every bad row on `err`. False when there is one; nothing is written then.
bool MakeAirports(const AirportsOptions& options, std::ostream& out, std::ostream& err);

}  // namespace zerbal::pack
