// A long session of the same things again and again: memory and open descriptors must not grow.
#pragma once

#include "app/application.h"

namespace zerbal::monkey {

/// Redraws the map and opens dialogs at least so often, in a world of its own, and prints what the program
/// holds at the start (when everything was done twice), in the middle and at the end. False when it grew.
bool Soak(app::Application& application, int redraws, int dialogs);

}  // namespace zerbal::monkey
