// The airports of the world, and those among them that are the airline's destinations.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

#include "base/coordinates.h"
#include "data/airport_criteria.h"

namespace zerbal::jet {
class Database;
}

namespace zerbal::data {

struct AirportTable;  // the open table and its fields

/// The airport that a visit or a look-up has reached; valid until the next one of the same Airports. Each
/// value is read when it is asked for, and throws jet::EngineError when it cannot be read.
class Airport {
 public:
  MapPosition Position() const { return {Lon(), Lat()}; }
  // UTF-8; Null is empty. A text is valid until the same text is asked for again.
  std::string_view Code() const;
  std::string_view Name() const;
  std::string_view City() const;
  // Nothing where the field is empty, missing or not readable.
  std::optional<std::int32_t> Elevation() const;      ///< feet
  std::optional<std::int32_t> Runways() const;        ///< how many
  std::optional<std::int32_t> LongestRunway() const;  ///< feet
  std::optional<bool> HasIls() const;                 ///< nothing for any text but "1" and "0", too

 private:
  friend class Airports;
  float Lon() const;
  float Lat() const;

  explicit Airport(AirportTable& table) : table_(&table) {}
  AirportTable* table_;
};

/// Part of the map frame, bounds inclusive. When `east` is less than `west`: all longitudes but those between
/// them.
struct MapBounds {
  float west = -std::numeric_limits<float>::infinity();
  float top = -std::numeric_limits<float>::infinity();
  float east = std::numeric_limits<float>::infinity();
  float bottom = std::numeric_limits<float>::infinity();
};

/// A table of airports in the order of their codes. Reading moves its cursor: an airport must not be visited
/// or looked up while another one of the same table is in use.
class Airports {
 public:
  using Visitor = std::function<void(const Airport&)>;

  /// Throws jet::EngineError when the table cannot be opened.
  Airports(const jet::Database& database, const char* table);
  Airports(Airports&&) noexcept;
  Airports& operator=(Airports&&) noexcept;
  ~Airports();

  /// Visits every airport.
  void Visit(const Visitor& visit) const;
  /// Visits the airports that meet the criteria and lie within the bounds, or whose position cannot be read.
  /// A number that a criterion needs and that cannot be read is 0, a text is empty. Visits none when the
  /// table lacks a field of position, code, name or city.
  void VisitMeeting(const AirportCriteria& criteria, const MapBounds& bounds, const Visitor& visit) const;
  /// The airport with exactly this code.
  std::optional<Airport> Find(std::string_view code) const;

 private:
  std::unique_ptr<AirportTable> table_;
};

}  // namespace zerbal::data
