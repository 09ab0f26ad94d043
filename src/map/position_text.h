// Numbers of degrees and minutes as the status bar shows them.
#pragma once

#include <string>

namespace zerbal::map {

/// With two decimals and at least `wholeDigits` digits before the point. Rounds the shortest decimal form of
/// the number, ties away from zero, so that what reads as 0.125 becomes 0.13.
std::string TwoDecimals(float value, int wholeDigits = 1);
std::string TwoDecimals(double value, int wholeDigits = 1);

/// "W008° 30.00'": hemisphere, whole degrees and minutes of a geographic longitude or latitude. Minutes do
/// not carry into the degrees: a hair below a whole degree shows 60.00.
std::string LonText(double lon);
/// Beyond a pole is shown as the pole.
std::string LatText(double lat);

}  // namespace zerbal::map
