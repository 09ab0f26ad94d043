// Reads an SSIM Chapter 7 schedule data set into flights.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/left_out.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/ssim_leg.h"

namespace zerbal::pack {

/// One itinerary: legs that follow each other from the first departure to the last arrival.
struct SsimFlight {
  std::uint32_t firstLeg = 0;  ///< index of SsimSchedule::legs
  std::uint32_t legCount = 0;
  std::uint32_t firstLine = 0;  ///< of its records
};

struct SsimSchedule {
  std::vector<SsimLeg> legs;
  std::vector<SsimFlight> flights;  ///< in the order of their first records
  std::vector<LeftOut> leftOut;     ///< records that are not part of a flight, in the order of lines

  std::span<const SsimLeg> LegsOf(const SsimFlight& flight) const {
    return std::span(legs).subspan(flight.firstLeg, flight.legCount);
  }
};

/// Reads `file` once from beginning to end; the order of its records does not matter. Whatever is wrong is
/// added to `problems`. An error leaves out the whole flight of its record.
SsimSchedule ReadSsim(const std::filesystem::path& file, const AirportTable& airports, Problems& problems);

/// The same from a text in memory; `name` is for messages.
SsimSchedule ParseSsim(std::string text, std::string name, const AirportTable& airports, Problems& problems);

}  // namespace zerbal::pack
