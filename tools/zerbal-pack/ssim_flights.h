// Joins the legs of an SSIM schedule data set to flights.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/ssim_reader.h"

namespace zerbal::pack {

/// Flights of which a record has an error, with the line of that record.
class SsimBadFlights {
 public:
  void Add(const SsimFlightId& id, std::uint32_t line) { lines_.try_emplace(id, line); }
  /// 0 when the flight is not bad.
  std::uint32_t LineOf(const SsimFlightId& id) const;

 private:
  struct Hash {
    std::size_t operator()(const SsimFlightId& id) const { return id.HashValue(); }
  };
  std::unordered_map<SsimFlightId, std::uint32_t, Hash> lines_;
};

/// Sorts schedule.legs and fills schedule.flights. Legs without a flight are added to schedule.leftOut.
void JoinSsimLegs(SsimSchedule& schedule, const SsimBadFlights& bad, const AirportTable& airports,
                  const std::string& file, Problems& problems);

}  // namespace zerbal::pack
