// What a map for print shows, with its places on the picture: read once, then drawn and labelled.
#pragma once

#include <string>
#include <vector>

#include "map/draw_map.h"
#include "print/print_surface.h"
#include "print/projection.h"

namespace zerbal::print {

struct PrintOptions;

/// The marker of an airport that is in view.
struct PlacedAirport {
  std::string code;
  std::string label;  ///< code, in detail mode with name and city
  TwipPoint centre;
  data::Rgb colour;
};

/// A leg of a flight. Legs without a visible part are left out.
struct PlacedLeg {
  std::string from;  ///< airport codes, in the direction of flight
  std::string to;
  std::string number;   ///< of the flight
  std::string label;    ///< the number, with that of the leg when it is shown
  std::string service;  ///< its key
  data::Rgb colour;     ///< of the service
  std::vector<std::vector<TwipPoint>> parts;
};

struct Contents {
  std::vector<PlacedAirport> allAirports;
  std::vector<PlacedAirport> destinations;
  std::vector<PlacedLeg> legs;             ///< in the order of the flights
  std::vector<PlacedAirport> legAirports;  ///< those that shown flights touch, each once
};

// Each reads one layer. What cannot be read is left out; when the rest cannot be read either, an error is
// thrown.

void PlaceAllAirports(const map::MapScene& scene, const Projection& projection, Contents& contents);
void PlaceDestinations(const map::MapScene& scene, const Projection& projection, Contents& contents);
void PlaceFlights(const map::MapScene& scene, const PrintOptions& options, const Projection& projection,
                  Contents& contents);

}  // namespace zerbal::print
