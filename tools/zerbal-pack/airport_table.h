// The airports that a schedule can name, found by their codes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zerbal::pack {

struct Airport {
  std::string code;  ///< ICAO code, or what the airport has in place of it
  std::string iata;  ///< may be empty
  std::string name;
  std::string city;
  double longitude = 0;            ///< degrees, east positive
  double latitude = 0;             ///< degrees, north positive
  std::int32_t elevation = 0;      ///< feet
  std::int32_t runways = 0;        ///< number of runways that are not closed
  std::int32_t longestRunway = 0;  ///< feet
  std::optional<bool> ils;         ///< nullopt: not known
  bool likelyIls = false;          ///< what it probably is when it is not known
  bool airfield = true;            ///< false: heliport, seaplane base, balloon port
};

using AirportIndex = std::uint32_t;

/// Codes are in upper case; lookups do not regard letter case.
class AirportTable {
 public:
  /// False when `airport.code` is known already; the airport is not added then. An IATA code that is known
  /// already stays with the first airport, and `airport` is added without one.
  bool Add(Airport airport);
  /// Another code of an airport, unless an airport has it already.
  void AddCode(std::string_view code, AirportIndex index);

  bool HasCode(std::string_view code) const { return Lookup(byCode_, code).has_value(); }

  /// By IATA code for three characters, else by ICAO code. In a table without any IATA code three characters
  /// are looked up as other codes are.
  std::optional<AirportIndex> Find(std::string_view code) const;
  std::optional<AirportIndex> FindIata(std::string_view iata) const;

  const Airport& operator[](AirportIndex index) const { return airports_[index]; }
  std::size_t Size() const { return airports_.size(); }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  using Index = std::unordered_map<std::string, AirportIndex, Hash, std::equal_to<>>;

  static std::optional<AirportIndex> Lookup(const Index& index, std::string_view code);

  std::vector<Airport> airports_;
  Index byCode_;
  Index byIata_;
};

}  // namespace zerbal::pack
