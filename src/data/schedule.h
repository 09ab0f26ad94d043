// The airline's schedule: its flight services and their flights.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "data/flight.h"

namespace zerbal::jet {
class Recordset;
}

namespace zerbal::data {

struct ScheduleTables;  // the open tables

/// The flight that a visit or a look-up has reached; valid until the next one. Reading throws
/// jet::EngineError when a field is missing or cannot be read.
class FlightRow {
 public:
  /// The whole flight. Valid until the next flight is read.
  const Flight& Read() const;
  // Origin and destination alone, which is much faster. Each is valid until it is read again.
  std::string_view Origin() const;
  std::string_view Destination() const;

 private:
  friend class Schedule;
  explicit FlightRow(ScheduleTables& tables) : tables_(&tables) {}
  ScheduleTables* tables_;
};

/// Reading moves a cursor: flights must not be visited or looked up while a visit is going on.
class Schedule {
 public:
  using Visitor = std::function<bool(const FlightRow&)>;

  /// Takes the open tables of services and flights.
  Schedule(jet::Recordset services, jet::Recordset flights);
  Schedule(Schedule&&) noexcept;
  Schedule& operator=(Schedule&&) noexcept;
  ~Schedule();

  /// All services in display order. Throws LoadError when there is none, jet::EngineError for a colour
  /// component outside 0..255, OverflowError beyond 32767 services.
  FlightServiceTable LoadServices() const;

  /// Visits the flights of a service, from the first one with that key as long as they have it, until `visit`
  /// returns false.
  void VisitFlights(std::string_view service, const Visitor& visit) const;
  /// All flights, in stored order.
  std::vector<Flight> LoadFlights() const;
  /// The flight with exactly this key.
  std::optional<FlightRow> Find(std::string_view key) const;

 private:
  std::unique_ptr<ScheduleTables> tables_;
};

}  // namespace zerbal::data
