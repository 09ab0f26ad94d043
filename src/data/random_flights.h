// Draws a random flight or a random round trip.
#pragma once

#include <string>
#include <string_view>

#include "data/flight_finder.h"
#include "data/flight_lists.h"
#include "data/random_source.h"

namespace zerbal::data {

/// Finds round trips in consecutive flights. A flight that ends where it began is a round trip by itself.
/// Other flights make a chain as long as each begins where the previous one ended; the chain closes when a
/// flight ends where the chain began. The flight after a closed chain always begins a new one.
class RoundTripChain {
 public:
  /// The next flight in order, by origin and destination. True when a round trip closes with it.
  bool Add(std::string_view origin, std::string_view destination);
  /// Flights in the chain so far, or in the round trip that closed last. Adding beyond 32767 throws
  /// OverflowError.
  int Length() const { return length_; }

 private:
  bool open_ = false;
  std::string start_;
  std::string end_;
  int length_ = 0;
};

/// Draws a service among those whose random-pick flag is set (there must be one), then one of its flights or
/// one of its round trips, depending on `state.howMany`. Sets drawnService and drawnFlights, which stays
/// empty when the service has no flight or no round trip. Throws OverflowError beyond 32767 candidates.
void DrawRandomFlights(FlightSource source, RandomSource& random, FlightFinderState& state);

}  // namespace zerbal::data
