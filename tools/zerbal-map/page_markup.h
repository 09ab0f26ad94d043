// The parts of a page that are made of the data: elements of HTML and SVG.
#pragma once

#include <string>

#include "zerbal-map/page.h"

namespace zerbal::mapcommand {

/// The lines of each service, each line once, with aircraft symbols when the options show them.
std::string ServiceLines(const Page& page);

/// The markers of the airports, and that of the map's centre when the options show it.
std::string Marks(const Page& page);

/// A list item with a check box for each service.
std::string ServiceBoxes(const Page& page);

/// The flights of each service as a table.
std::string FlightLists(const Page& page);

}  // namespace zerbal::mapcommand
