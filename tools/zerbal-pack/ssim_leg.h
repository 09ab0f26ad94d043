// Flight legs of an SSIM schedule data set.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/calendar.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/ssim_record.h"

namespace zerbal::pack {

/// What joins legs to a flight: airline, flight number, operational suffix and itinerary variation.
class SsimFlightId {
 public:
  SsimFlightId() = default;
  /// `airline`: up to three characters; `number`: up to 9999; `suffix`: blank when there is none;
  /// `variation`: up to 999.
  SsimFlightId(std::string_view airline, int number, char suffix, int variation);

  std::string Airline() const;
  int Number() const { return static_cast<int>(packed_ >> 24 & 0xFFFF); }
  std::string Suffix() const;  ///< empty when there is none
  int Variation() const { return static_cast<int>(packed_ & 0xFFFF); }
  /// As schedules print it: "QV101D".
  std::string Name() const;

  std::size_t HashValue() const { return std::hash<std::uint64_t>()(packed_); }
  bool SameFlight(const SsimFlightId& other) const { return packed_ >> 16 == other.packed_ >> 16; }
  bool operator==(const SsimFlightId&) const = default;
  bool operator<(const SsimFlightId& other) const { return packed_ < other.packed_; }

 private:
  std::uint64_t packed_ = 0;  // airline, number, suffix, variation: 24, 16, 8 and 16 bits
};

struct SsimLeg {
  SsimFlightId id;
  std::uint64_t contents = 0;  ///< a hash of the columns that say what the leg is
  std::uint32_t line = 0;
  AirportIndex departure = 0;
  AirportIndex arrival = 0;
  Period period;  ///< open ends are those of the schedule's validity
  Weekdays days = 0;
  bool fortnightly = false;
  std::uint8_t sequence = 0;
  char serviceType = ' ';
  std::array<char, 3> aircraft{};
  std::array<char, 8> onward{};  ///< airline, flight number and suffix of the aircraft's next flight

  std::string Aircraft() const;
  std::string Onward() const;  ///< "QV102"; empty when there is none
};

/// The carrier record before a leg.
struct SsimCarrier {
  std::string airline;  ///< empty when there is none
  Period validity;
};

struct SsimFault {
  Severity severity = Severity::kError;
  std::size_t column = 0;
  std::string reason;
};

/// What could be read of a leg record.
struct SsimLegRead {
  SsimLeg leg;
  bool identified = false;  ///< leg.id and leg.sequence are valid
};

/// Adds to `faults` what is wrong with the record; with an error among them the leg cannot be used.
SsimLegRead ReadSsimLeg(const SsimRecord& record, const SsimCarrier& carrier, const AirportTable& airports,
                        std::vector<SsimFault>& faults);

}  // namespace zerbal::pack
