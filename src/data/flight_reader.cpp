#include "data/flight_reader.h"

#include <array>
#include <cstddef>
#include <string>

namespace zerbal::data {
namespace {

constexpr std::array<const char*, kMaxStopovers> kStopFields = {
    "Flit_Stop1", "Flit_Stop2", "Flit_Stop3", "Flit_Stop4", "Flit_Stop5",
    "Flit_Stop6", "Flit_Stop7", "Flit_Stop8", "Flit_Stop9", "Flit_Stop10"};

void Set(std::string& text, const jet::Field& field) {
  text.clear();
  field.AppendText(text);
}

void SetPoint(Flight& flight, std::size_t position, const jet::Field& airport) {
  if (position == flight.route.size())
    flight.route.emplace_back();
  Set(flight.route[position], airport);
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
  Set(flight.key, fields.key.Of(flights));
  Set(flight.service, fields.service.Of(flights));
  Set(flight.number, fields.number.Of(flights));
  std::size_t points = 0;
  SetPoint(flight, points++, fields.origin.Of(flights));
  for (const TableField& field : fields.stops) {
    const jet::Field stop = field.Of(flights);
    if (!stop.HoldsText())
      break;
    SetPoint(flight, points++, stop);
  }
  SetPoint(flight, points++, fields.destination.Of(flights));
  flight.route.resize(points);
}

}  // namespace zerbal::data
