// The world that the reference pictures show.
#pragma once

#include "support/small_world.h"

namespace zerbal::test {

/// The small world with rough coasts, aircraft symbols that are easy to see, fonts of known names, and
/// flights of the service FAN from one airport in all directions, in the Gulf of Guinea.
SmallWorld PictureWorld();

}  // namespace zerbal::test
