// The texts about an airport and about a leg of a flight. Internal to map/.
#pragma once

#include <cstddef>
#include <string>

#include "data/airports.h"
#include "data/flight.h"
#include "map/route.h"

namespace zerbal::map {

/// "OSL - Gardermoen (Oslo), elevation 681 ft, 2 runways, longest 11811 ft, ILS". Leaves out what is not
/// known.
std::string AirportText(const data::Airport& airport);

/// The first part of that: "OSL - Gardermoen (Oslo)".
std::string AirportLabel(const data::Airport& airport);

/// "ZB108 (1 - Nordic)". The service is null when it is not known; its key stands for it then.
std::string FlightText(const data::Flight& flight, const data::FlightService* service);

/// "ZB108 (1 - Nordic): Oslo OSL -> Bergen BGO, leg 1 of 4, 325 km, 176 nautical miles". `leg` counts
/// from 1.
std::string LegText(const data::Flight& flight, const data::FlightService* service, const Route& route,
                    std::size_t leg, const data::Airports& destinations);

}  // namespace zerbal::map
