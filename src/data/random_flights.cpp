#include "data/random_flights.h"

#include <algorithm>

#include "data/counters.h"
#include "data/schedule.h"

namespace zerbal::data {
namespace {

/// The drawn service's number, 1-based.
std::int16_t DrawService(const FlightServiceTable& services, RandomSource& random) {
  const auto offered = std::count_if(services.begin(), services.end(),
                                     [](const FlightService& service) { return service.randomPick; });
  const int wanted = random.Draw(static_cast<int>(offered));
  int counted = 0;
  std::int16_t number = 0;
  for (const FlightService& service : services) {
    ++number;
    if (service.randomPick && ++counted == wanted)
      break;
  }
  return number;
}

DrawnFlight ReadDrawnFlight(const jet::Recordset& flit, const Airports& destinations) {
  const Flight flight = ReadFlight(flit);
  return {flight.key, FlightLine(flight, destinations, false), FlightLine(flight, destinations, true)};
}

/// Walks a service's flights until the `wanted`-th candidate, with the cursor left on its last flight, and
/// returns how many were met; 0 for `wanted` walks them all. `closes` tells of each row whether a candidate
/// ends with it.
template <class Closes>
std::int16_t WalkCandidates(jet::Recordset& flit, const std::string& service, std::int16_t wanted,
                            Closes closes) {
  std::int16_t count = 0;
  ForEachFlightOfService(flit, service, [&](const jet::Recordset& row) {
    if (closes(row))
      CountUp(count);
    return wanted == 0 || count < wanted;
  });
  return count;
}

/// Feeds rows to a chain without building flights.
class ChainReader {
 public:
  explicit ChainReader(const jet::Recordset& flit)
      : originField_(flit.FieldIndex("Flit_Dep")), destinationField_(flit.FieldIndex("Flit_Arr")) {}

  bool operator()(const jet::Recordset& row) {
    origin_.clear();
    destination_.clear();
    row.At(originField_).AppendText(origin_);
    row.At(destinationField_).AppendText(destination_);
    return chain_.Add(origin_, destination_);
  }
  std::int16_t Length() const { return chain_.Length(); }

 private:
  int originField_;
  int destinationField_;
  RoundTripChain chain_;
  std::string origin_;
  std::string destination_;
};

void DrawOneFlight(FlightSource source, const std::string& service, RandomSource& random,
                   FlightFinderState& state) {
  const auto every = [](const jet::Recordset&) { return true; };
  const std::int16_t candidates = WalkCandidates(source.flit, service, 0, every);
  if (candidates == 0)
    return;
  const auto wanted = static_cast<std::int16_t>(random.Draw(candidates));
  WalkCandidates(source.flit, service, wanted, every);
  state.drawnFlights.push_back(ReadDrawnFlight(source.flit, source.destinations));
}

void DrawRoundTrip(FlightSource source, const std::string& service, RandomSource& random,
                   FlightFinderState& state) {
  const std::int16_t candidates = WalkCandidates(source.flit, service, 0, ChainReader(source.flit));
  if (candidates == 0)
    return;
  const auto wanted = static_cast<std::int16_t>(random.Draw(candidates));
  ChainReader chain(source.flit);
  WalkCandidates(source.flit, service, wanted, [&chain](const jet::Recordset& row) { return chain(row); });
  // The cursor stands on the last flight of the round trip.
  for (std::int16_t back = 1; back < chain.Length(); ++back)
    source.flit.MovePrevious();
  for (std::int16_t flight = 0; flight < chain.Length(); ++flight) {
    state.drawnFlights.push_back(ReadDrawnFlight(source.flit, source.destinations));
    source.flit.MoveNext();
  }
}

}  // namespace

bool RoundTripChain::Add(std::string_view origin, std::string_view destination) {
  if (origin == destination) {
    open_ = false;
    length_ = 1;
    return true;
  }
  if (!open_ || origin != end_) {
    Begin(origin, destination);
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

void RoundTripChain::Begin(std::string_view origin, std::string_view destination) {
  open_ = true;
  start_ = origin;
  end_ = destination;
  length_ = 1;
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
