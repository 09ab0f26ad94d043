// Long lines in pieces.
#pragma once

#include <span>
#include <vector>

#include "base/coordinates.h"

namespace zerbal::print {

/// The same line with points between those that are more than 100 logical pixels apart. QPainter's time grows
/// with the whole length of a line, so a band of a picture draws the pieces near it alone. A line that is in
/// pieces stays as it is.
std::vector<TwipPoint> InPieces(std::span<const TwipPoint> points);

}  // namespace zerbal::print
