#include "zerbal-pack/ssim_flights.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "data/flight.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kMostLegs = data::kMaxStopovers + 1;

std::string FlightText(const SsimFlightId& id) {
  return id.Variation() <= 1 ? id.Name() : fmt::format("{}, variation {}", id.Name(), id.Variation());
}

class LegJoiner {
 public:
  LegJoiner(SsimSchedule& schedule, const SsimBadFlights& bad, const AirportTable& airports,
            const std::string& file, Problems& problems)
      : schedule_(schedule),
        legs_(schedule.legs),
        bad_(bad),
        airports_(airports),
        file_(file),
        problems_(problems) {}

  void Join() {
    std::sort(legs_.begin(), legs_.end(), [](const SsimLeg& a, const SsimLeg& b) {
      return std::tie(a.id, a.sequence, a.line) < std::tie(b.id, b.sequence, b.line);
    });
    for (std::size_t begin = 0; begin < legs_.size();) {
      std::size_t end = begin;
      while (end < legs_.size() && legs_[end].id == legs_[begin].id)
        ++end;
      JoinOne(begin, end);
      begin = end;
    }
    std::ranges::stable_sort(schedule_.flights, {}, &SsimFlight::firstLine);
  }

 private:
  void JoinOne(std::size_t begin, std::size_t end) {
    if (const std::uint32_t line = bad_.LineOf(legs_[begin].id); line != 0)
      return LeaveOut(begin, end, fmt::format("belongs to a flight with an error on line {}", line));
    const std::size_t uniqueEnd = RemoveRepeated(begin, end);
    if (uniqueEnd == begin || HasFaultInOrder(begin, uniqueEnd))
      return;
    SsimFlight flight{static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(uniqueEnd - begin),
                      legs_[begin].line};
    for (std::size_t i = begin; i < uniqueEnd; ++i)
      flight.firstLine = std::min(flight.firstLine, legs_[i].line);
    schedule_.flights.push_back(flight);
  }

  /// Moves legs that occur once more in the same words to the end; returns the end of the others, or `begin`
  /// when the flight is left out because of a leg that occurs in other words.
  std::size_t RemoveRepeated(std::size_t begin, std::size_t end) {
    std::size_t kept = begin;
    for (std::size_t i = begin + 1; i < end; ++i) {
      const SsimLeg& leg = legs_[i];
      const SsimLeg& before = legs_[kept];
      if (leg.sequence != before.sequence) {
        std::swap(legs_[++kept], legs_[i]);
        continue;
      }
      std::string reason =
          fmt::format("leg {:02} of {} is already on line {}", leg.sequence, FlightText(leg.id), before.line);
      if (leg.contents != before.contents) {
        Fail(begin, end, leg, 12, reason + ", with other contents");
        return begin;
      }
      Report(Severity::kWarning, leg.line, 12, reason + " with the same contents; taken once");
    }
    return kept + 1;
  }

  bool HasFaultInOrder(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      const SsimLeg& leg = legs_[i];
      const std::size_t expected = i - begin + 1;
      if (leg.sequence != expected) {
        const std::string missing =
            expected + 1 == leg.sequence
                ? fmt::format("leg {:02} of {} is missing", expected, FlightText(leg.id))
                : fmt::format("legs {:02} to {:02} of {} are missing", expected, leg.sequence - 1,
                              FlightText(leg.id));
        return Fail(begin, end, leg, 12, missing);
      }
      if (i > begin && leg.departure != legs_[i - 1].arrival)
        return Fail(begin, end, leg, 37,
                    fmt::format("leg {:02} of {} departs from {}, but leg {:02} arrives at {}", leg.sequence,
                                FlightText(leg.id), Station(leg.departure), legs_[i - 1].sequence,
                                Station(legs_[i - 1].arrival)));
    }
    if (end - begin <= kMostLegs)
      return false;
    return Fail(begin, end, legs_[begin + kMostLegs], 12,
                fmt::format("{} has {} stopovers; a flight has at most {}", FlightText(legs_[begin].id),
                            end - begin - 1, data::kMaxStopovers));
  }

  std::string Station(AirportIndex index) const {
    const Airport& airport = airports_[index];
    return airport.iata.empty() ? airport.code : airport.iata;
  }

  /// Reports the error at `leg` and leaves out all legs of its flight.
  bool Fail(std::size_t begin, std::size_t end, const SsimLeg& leg, std::size_t column,
            const std::string& reason) {
    Report(Severity::kError, leg.line, column, reason);
    LeaveOut(begin, end, reason);
    return true;
  }

  void LeaveOut(std::size_t begin, std::size_t end, const std::string& reason) {
    for (std::size_t i = begin; i < end; ++i)
      schedule_.leftOut.push_back({legs_[i].line, reason, ""});
  }

  void Report(Severity severity, std::size_t line, std::size_t column, std::string reason) {
    problems_.Add({file_, line, "", std::move(reason), severity, column});
  }

  SsimSchedule& schedule_;
  std::vector<SsimLeg>& legs_;
  const SsimBadFlights& bad_;
  const AirportTable& airports_;
  const std::string& file_;
  Problems& problems_;
};

}  // namespace

std::uint32_t SsimBadFlights::LineOf(const SsimFlightId& id) const {
  const auto found = lines_.find(id);
  return found == lines_.end() ? 0 : found->second;
}

void JoinSsimLegs(SsimSchedule& schedule, const SsimBadFlights& bad, const AirportTable& airports,
                  const std::string& file, Problems& problems) {
  LegJoiner(schedule, bad, airports, file, problems).Join();
}

}  // namespace zerbal::pack
