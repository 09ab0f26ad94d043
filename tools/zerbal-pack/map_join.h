// Joins pieces to lines that are as long as possible, and prepares lines for drawing.
#pragma once

#include <vector>

#include "zerbal-pack/map_point.h"

namespace zerbal::pack {

/// Removes every segment that occurs before, in either direction: the source has a boundary between two
/// countries once per country. A piece that loses a segment in its middle becomes two.
void DropRepeatedSegments(std::vector<MapPiece>& pieces);

/// Joins pieces end to end where their end points are equal, reversing them where necessary. Where more
/// than two ends meet, ends of one group are paired first; an odd end remains. Rings end with their first
/// point. Pieces have at least two points.
std::vector<MapLine> JoinPieces(std::vector<MapPiece> pieces);

/// Inserts points so that no segment spans more than `longest` in either coordinate. A segment is drawn only
/// when both its ends are in view, so a long one would disappear in a close view.
/// Which points are inserted does not depend on the line's direction.
void SubdivideLongSegments(MapLine& line, std::int32_t longest);

/// Sorts lines by their number of points, most first, then by their points: the main lines of the picture
/// come first in a table, and the order does not depend on how the source was cut.
void SortForDrawing(std::vector<MapLine>& lines);

}  // namespace zerbal::pack
