// Formats degrees and minutes for the status bar.
#pragma once

#include <string>

namespace zerbal::map {

/// Two decimals and at least `wholeDigits` digits before the point. Rounds the shortest decimal form of the
/// number, ties away from zero: 0.125 gives 0.13.
std::string TwoDecimals(float value, int wholeDigits = 1);
std::string TwoDecimals(double value, int wholeDigits = 1);

/// "W008° 30.00'": hemisphere, whole degrees and minutes of a geographic longitude. Minutes are not carried
/// into the degrees: just below a whole degree they show 60.00.
std::string LonText(double lon);
/// The same for a latitude, limited to the poles.
std::string LatText(double lat);

}  // namespace zerbal::map
