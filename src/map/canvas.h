// What every layer draws with.
#pragma once

#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

struct Canvas {
  const Viewport& viewport;
  Surface& surface;
  TextFont font;  ///< of airport labels and flight texts in the current mode
};

}  // namespace zerbal::map
