// The colours of a page, on a light and on a dark screen.
#pragma once

#include <string>

#include "data/rgb.h"
#include "zerbal-map/page.h"

namespace zerbal::mapcommand {

/// The colour, or a darker or brighter one of its hue that has this contrast to `background`, as
/// print::ContrastOf says.
data::Rgb Readable(data::Rgb colour, data::Rgb background, double contrast);

/// Style sheets with a property for each colour. The map has the colours of the data on the kind of screen
/// that its background suits. For the other kind, lines of the base map are toned down and the rest is made
/// readable.
std::string ColourStyles(const Page& page);

}  // namespace zerbal::mapcommand
