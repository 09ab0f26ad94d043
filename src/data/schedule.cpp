#include "data/schedule.h"

#include <array>
#include <cstddef>

namespace zerbal::data {
namespace {

constexpr std::array<const char*, kMaxStopovers> kStopFields = {
    "Flit_Stop1", "Flit_Stop2", "Flit_Stop3", "Flit_Stop4", "Flit_Stop5",
    "Flit_Stop6", "Flit_Stop7", "Flit_Stop8", "Flit_Stop9", "Flit_Stop10"};
constexpr int kNotLookedUp = -1;

/// Appends the code, with the city before it when the airport is one of the destinations.
void AppendWithCity(std::string& line, const std::string& code, const Airports& destinations) {
  if (const std::optional<Airport> airport = destinations.Find(code)) {
    line += airport->City();
    line += ' ';
  }
  line += code;
}

}  // namespace

FlightReader::FlightReader(const jet::Recordset& flit)
    : key_(flit.FieldIndex("Flit_2015")),
      service_(flit.FieldIndex("Flit_FSrv")),
      number_(flit.FieldIndex("Flit")),
      origin_(flit.FieldIndex("Flit_Dep")),
      destination_(flit.FieldIndex("Flit_Arr")) {
  stops_.fill(kNotLookedUp);
}

const Flight& FlightReader::Read(const jet::Recordset& flit) {
  const auto set = [&flit](std::string& text, int field) {
    text.clear();
    flit.At(field).AppendText(text);
  };
  set(flight_.key, key_);
  set(flight_.service, service_);
  set(flight_.number, number_);
  std::size_t points = 0;
  AppendToRoute(flit.At(origin_), points++);
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    if (stops_[i] == kNotLookedUp)
      stops_[i] = flit.FieldIndex(kStopFields[i]);
    const jet::Field stop = flit.At(stops_[i]);
    if (!stop.HoldsText())
      break;  // what follows the first gap does not count
    AppendToRoute(stop, points++);
  }
  AppendToRoute(flit.At(destination_), points++);
  flight_.route.resize(points);
  return flight_;
}

void FlightReader::AppendToRoute(const jet::Field& airport, std::size_t position) {
  if (position == flight_.route.size())
    flight_.route.emplace_back();
  flight_.route[position].clear();
  airport.AppendText(flight_.route[position]);
}

Flight ReadFlight(const jet::Recordset& flit) {
  return FlightReader(flit).Read(flit);
}

void ForEachFlightOfService(jet::Recordset& flit, std::string_view service,
                            const std::function<bool(const jet::Recordset&)>& row) {
  flit.SetIndex("fsrv");
  flit.Seek(service);
  if (flit.NoMatch())
    return;
  const int key = flit.FieldIndex("Flit_FSrv");
  while (!flit.Eof() && flit.At(key).EqualsText(service) && row(flit))
    flit.MoveNext();
}

std::string FlightLine(const Flight& flight, const Airports& destinations, bool citiesForStopovers) {
  constexpr std::string_view kArrow = " -> ";
  std::string line = flight.number;
  line += " - ";
  for (std::size_t i = 0; i < flight.route.size(); ++i) {
    const bool isEnd = i == 0 || i + 1 == flight.route.size();
    if (i > 0)
      line += kArrow;
    if (isEnd || citiesForStopovers)
      AppendWithCity(line, flight.route[i], destinations);
    else
      line += flight.route[i];
  }
  return line;
}

}  // namespace zerbal::data
