// The airports and flights that the map shows, where it shows them, and what its tool tip says about them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "map/draw_map.h"
#include "map/shown_flights.h"

namespace zerbal::map {

struct ContentsAirport {
  std::string code;
  std::string label;  ///< code, name and city
  std::string text;   ///< of the tool tip; begins with the label
  TwipPoint centre;
  bool destination = false;  ///< in the colour of destinations
  bool ofLayer = false;      ///< shown without any flight too
};

using ContentsLine = std::vector<TwipPoint>;

struct ContentsLeg {
  std::string text;                 ///< of the tool tip
  std::vector<ContentsLine> lines;  ///< what is in view, each part once
};

struct ContentsFlight {
  std::string key;
  std::string number;
  std::size_t service = 0;         ///< position in MapContents::services
  std::string text;                ///< number and service; the texts of the legs begin with it and ": "
  std::vector<std::string> route;  ///< airport codes
  std::vector<ContentsLeg> legs;
  std::optional<double> metres;  ///< length of all legs; nothing when that of one is not known
};

struct ContentsService {
  std::string key;
  std::string name;  ///< as in lists; the key when the service is not in the table
  data::Rgb rgb;
};

struct MapContents {
  std::vector<ContentsService> services;  ///< of the flights, in the order of their first flights
  std::vector<ContentsFlight> flights;    ///< each key once
  std::vector<ContentsAirport> airports;  ///< those in view, each code once, in the order of the codes
};

/// Flights with an airport that is not among the destinations are left out with either extent, and so is an
/// airport that cannot be read. Throws when the data cannot be read.
MapContents ContentsOf(const MapScene& scene, FlightExtent extent);

}  // namespace zerbal::map
