// The map as screen readers and other assistive programs see it.
#pragma once

namespace zerbal::app {

/// From now on the description of each map window says what it shows. It is made when it is asked for.
void MakeMapAccessible();

}  // namespace zerbal::app
