// Made-up airports for tests: AAA, BBB to ZZZ, with the ICAO codes EAAA to EZZZ and the ids 1 to 26.
#pragma once

#include <string>

#include "zerbal-pack/airport_sources.h"

namespace zerbal::pack::test {

inline AirportList LetterAirports() {
  AirportList list;
  for (char c = 'A'; c <= 'Z'; ++c) {
    pack::Airport airport;
    airport.iata = std::string(3, c);
    airport.code = "E" + airport.iata;
    list.ids[std::to_string(c - 'A' + 1)] = static_cast<AirportIndex>(list.table.Size());
    list.table.Add(airport);
  }
  return list;
}

}  // namespace zerbal::pack::test
