// The style of flights for desktop programs that read the table `layer_styles`.
#pragma once

#include <string>
#include <vector>

#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

/// A document in the style format QML: a category per service, by the column `service`.
std::string FlightStyleOf(const std::vector<RouteService>& services);

}  // namespace zerbal::mapcommand
