// Airports and flights of a page, for its script.
#pragma once

#include <cstddef>
#include <string>

#include "zerbal-map/page.h"

namespace zerbal::mapcommand {

/// JSON without "<", so that it cannot end the element of HTML that contains it.
std::string PageData(const Page& page);

/// What links to a flight of the page contain: its key, or its position when it has none.
std::string FlightId(const Page& page, std::size_t flight);

/// The length of all legs, "325 km"; empty when it is not known.
std::string LengthText(const map::ContentsFlight& flight);

}  // namespace zerbal::mapcommand
