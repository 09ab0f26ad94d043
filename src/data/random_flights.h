// Drawing one flight, or one round trip, by lot.
#pragma once

#include <string>
#include <string_view>

#include "data/flight_finder.h"
#include "data/flight_lists.h"
#include "data/random_source.h"

namespace zerbal::data {

/// The rule by which consecutive flights make round trips. A flight that ends where it began is a round trip
/// by itself; others make a chain as long as each begins where the one before ended, and the chain closes
/// when one ends where the chain began. The flight after a closed chain always begins afresh.
class RoundTripChain {
 public:
  /// The next flight in order, by origin and destination. True when a round trip closes with it.
  bool Add(std::string_view origin, std::string_view destination);
  /// Flights in the chain so far, or in the round trip that closed last. Adding beyond 32767 throws
  /// OverflowError.
  int Length() const { return length_; }

 private:
  void Begin(std::string_view origin, std::string_view destination);

  bool open_ = false;
  std::string start_;
  std::string end_;
  int length_ = 0;
};

/// Draws a service among those whose random-pick flag is set (there must be one), then, as `state.howMany`
/// says, one of its flights or one of its round trips. Sets drawnService and drawnFlights; none are drawn
/// when the service has no flight or no round trip. Throws OverflowError beyond 32767 candidates.
void DrawRandomFlights(FlightSource source, RandomSource& random, FlightFinderState& state);

}  // namespace zerbal::data
