#include "data/random_flights.h"

#include <algorithm>
#include <vector>

#include "data/error.h"

namespace zerbal::data {
namespace {

/// The drawn service's number, 1-based.
int DrawService(const FlightServiceTable& services, RandomSource& random) {
  const auto offered = std::count_if(services.begin(), services.end(),
                                     [](const FlightService& service) { return service.randomPick; });
  const int wanted = random.Draw(static_cast<int>(offered));
  int counted = 0;
  int number = 0;
  for (const FlightService& service : services) {
    ++number;
    if (service.randomPick && ++counted == wanted)
      break;
  }
  return number;
}

DrawnFlight Drawn(const Flight& flight, const Airports& destinations) {
  return {flight.key, FlightLine(flight, destinations, false), FlightLine(flight, destinations, true)};
}

/// The flights from `begin` up to but not including `end`, counted from the service's first.
void AppendFlights(FlightSource source, const std::string& service, int begin, int end,
                   std::vector<DrawnFlight>& flights) {
  int position = 0;
  source.schedule.VisitFlights(service, [&](const FlightRow& row) {
    if (position++ >= begin)
      flights.push_back(Drawn(row.Read(), source.destinations));
    return position < end;
  });
}

void DrawOneFlight(FlightSource source, const std::string& service, RandomSource& random,
                   FlightFinderState& state) {
  int candidates = 0;
  source.schedule.VisitFlights(service, [&](const FlightRow&) {
    CountUp(candidates);
    return true;
  });
  if (candidates == 0)
    return;
  const int wanted = random.Draw(candidates);
  AppendFlights(source, service, wanted - 1, wanted, state.drawnFlights);
}

/// Where a round trip stands among the flights of its service.
struct RoundTripPlace {
  int count = 0;  ///< round trips met so far, this one included
  int begin = 0;
  int end = 0;
};

/// Walks through the flights of a service up to the end of its `wanted`-th round trip; through all of them
/// when that is 0.
RoundTripPlace FindRoundTrip(const Schedule& schedule, const std::string& service, int wanted) {
  RoundTripPlace place;
  RoundTripChain chain;
  schedule.VisitFlights(service, [&](const FlightRow& row) {
    ++place.end;
    if (chain.Add(row.Origin(), row.Destination()))
      CountUp(place.count);
    return wanted == 0 || place.count < wanted;
  });
  place.begin = place.end - chain.Length();
  return place;
}

void DrawRoundTrip(FlightSource source, const std::string& service, RandomSource& random,
                   FlightFinderState& state) {
  const int candidates = FindRoundTrip(source.schedule, service, 0).count;
  if (candidates == 0)
    return;
  const RoundTripPlace place = FindRoundTrip(source.schedule, service, random.Draw(candidates));
  AppendFlights(source, service, place.begin, place.end, state.drawnFlights);
}

}  // namespace

bool RoundTripChain::Add(std::string_view origin, std::string_view destination) {
  if (origin == destination) {
    open_ = false;
    length_ = 1;
    return true;
  }
  if (!open_ || origin != end_) {
    open_ = true;
    start_ = origin;
    end_ = destination;
    length_ = 1;
    return false;
  }
  CountUp(length_);
  if (destination == start_) {
    open_ = false;
    return true;
  }
  end_ = destination;
  return false;
}

void DrawRandomFlights(FlightSource source, RandomSource& random, FlightFinderState& state) {
  state.drawnService = 0;
  state.drawnFlights.clear();
  state.drawnService = DrawService(source.services, random);
  const std::string& service = source.services.at(static_cast<std::size_t>(state.drawnService - 1)).key;
  if (state.howMany == HowMany::kOneFlight)
    DrawOneFlight(source, service, random, state);
  else
    DrawRoundTrip(source, service, random, state);
}

}  // namespace zerbal::data
