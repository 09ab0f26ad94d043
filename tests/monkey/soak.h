// The soak test: repeats the same actions; memory and open descriptors must not grow.
#pragma once

namespace zerbal::monkey {

/// Redraws the map at least `redraws` times and opens `dialogs` dialogs, in a world of its own. Prints heap,
/// resident memory and descriptors at the start (after everything was done twice), in the middle and at the
/// end. Returns false when they grew.
bool Soak(int redraws, int dialogs);

}  // namespace zerbal::monkey
