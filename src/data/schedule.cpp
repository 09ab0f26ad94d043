#include "data/schedule.h"

#include <array>
#include <cstddef>

namespace zerbal::data {
namespace {

constexpr std::array<const char*, kMaxStopovers> kStopFields = {
    "Flit_Stop1", "Flit_Stop2", "Flit_Stop3", "Flit_Stop4", "Flit_Stop5",
    "Flit_Stop6", "Flit_Stop7", "Flit_Stop8", "Flit_Stop9", "Flit_Stop10"};

/// Appends the code, with the city before it when the airport is one of the destinations.
void AppendWithCity(std::string& line, const std::string& code, jet::Recordset& dest) {
  dest.Seek(code);
  if (!dest.NoMatch()) {
    dest["AP_City"].AppendText(line);
    line += ' ';
  }
  line += code;
}

}  // namespace

Flight ReadFlight(const jet::Recordset& flit) {
  Flight flight{flit["Flit_2015"].AsText(), flit["Flit_FSrv"].AsText(), flit["Flit"].AsText(), {}};
  flight.route.reserve(4);  // most flights have no more than two stopovers
  flight.route.push_back(flit["Flit_Dep"].AsText());
  for (const char* name : kStopFields) {
    const jet::Field stop = flit[name];
    if (!stop.HoldsText())
      break;  // what follows the first gap does not count
    flight.route.push_back(stop.AsText());
  }
  flight.route.push_back(flit["Flit_Arr"].AsText());
  return flight;
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

std::string FlightLine(const Flight& flight, jet::Recordset& dest, bool citiesForStopovers) {
  constexpr std::string_view kArrow = " -> ";
  std::string line = flight.number;
  line += " - ";
  for (std::size_t i = 0; i < flight.route.size(); ++i) {
    const bool isEnd = i == 0 || i + 1 == flight.route.size();
    if (i > 0)
      line += kArrow;
    if (isEnd || citiesForStopovers)
      AppendWithCity(line, flight.route[i], dest);
    else
      line += flight.route[i];
  }
  return line;
}

}  // namespace zerbal::data
