#include "data/flight_reader.h"

#include <array>
#include <cstddef>
#include <string>

namespace zerbal::data {
namespace {

constexpr std::array<const char*, kMaxStopovers> kStopFields = {
    "Flit_Stop1", "Flit_Stop2", "Flit_Stop3", "Flit_Stop4", "Flit_Stop5",
    "Flit_Stop6", "Flit_Stop7", "Flit_Stop8", "Flit_Stop9", "Flit_Stop10"};

/// The text at this position of the route, added when it is missing.
std::string& Point(Flight& flight, std::size_t position) {
  if (position == flight.route.size())
    flight.route.emplace_back();
  return flight.route[position];
}

}  // namespace

FlightFields::FlightFields(const jet::Recordset& flights)
    : key(flights, "Flit_2015"),
      service(flights, "Flit_FSrv"),
      number(flights, "Flit"),
      origin(flights, "Flit_Dep"),
      destination(flights, "Flit_Arr") {
  stops.reserve(kStopFields.size());
  for (const char* name : kStopFields)
    stops.emplace_back(flights, name);
}

void ReadFlight(const jet::Recordset& flights, const FlightFields& fields, Flight& flight) {
  fields.key.Read(flights, flight.key);
  fields.service.Read(flights, flight.service);
  fields.number.Read(flights, flight.number);
  std::size_t points = 0;
  fields.origin.Read(flights, Point(flight, points++));
  for (const TableField& stop : fields.stops) {
    if (!stop.Of(flights).HoldsText())
      break;  // the first Null ends the stopovers
    stop.Read(flights, Point(flight, points++));
  }
  fields.destination.Read(flights, Point(flight, points++));
  flight.route.resize(points);
}

}  // namespace zerbal::data
