// A few flights and airports for tests of the file formats.
#pragma once

#include "zerbal-map/routes.h"

namespace zerbal::test {

/// A flight over the antimeridian with a stop, one with characters that formats escape, one without points.
inline mapcommand::Routes SampleRoutes() {
  mapcommand::Routes routes;
  routes.services = {{"OCE", "3 - Oceans", {250, 130, 0}}, {"A&B <\"x\">", "9 - Ä & \\ \x01", {0, 0, 10}}};
  routes.flights = {
      {"K1", "ZB1", 0, {"AKL", "SUV", "HNL"}, {{174, -37}, {178.5, -18}, {-157.5, 22.5}}, 7235123.4},
      {"K2", "\"2\"", 1, {"OSL", "BGO"}, {{11.1, 60.2}, {5.25, 60.25}}, 325000},
      {"K3", "ZB3", 1, {"OSL", "XXX"}, {}, std::nullopt}};
  routes.airports = {{"AKL", "Auckland", "Auckland", {174, -37}, 23, 1, 11926, true, true},
                     {"QQW",
                      "West & \"East\"",
                      "",
                      {-180, -16.5},
                      std::nullopt,
                      std::nullopt,
                      std::nullopt,
                      std::nullopt,
                      false}};
  routes.destinationRgb = {200, 0, 0};
  routes.airportRgb = {0, 128, 255};
  return routes;
}

}  // namespace zerbal::test
