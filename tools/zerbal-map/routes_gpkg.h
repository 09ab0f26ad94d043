// Routes as GeoPackage 1.3, an SQLite database.
#pragma once

#include <string>

#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

/// Tables `flights` (multilines), `airports` (points), `services` and `layer_styles`; the last is a
/// convention of desktop programs and colours flights by service. A flight without points has no geometry.
/// The date of the last change is fixed, so that equal routes give equal bytes with one version of SQLite.
/// Throws base::Error when there is not enough memory.
std::string GeoPackageOf(const Routes& routes);

}  // namespace zerbal::mapcommand
