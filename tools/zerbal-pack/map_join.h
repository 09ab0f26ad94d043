// Makes the longest lines out of pieces, and readies lines for drawing.
#pragma once

#include <vector>

#include "zerbal-pack/map_point.h"

namespace zerbal::pack {

/// Removes every segment that occurs before, in either direction: the source gives a boundary between two
/// countries once for each. A piece that loses a segment in its middle becomes two.
void DropRepeatedSegments(std::vector<MapPiece>& pieces);

/// Joins pieces end to end where their end points are equal, turning them round where need be. Where more
/// than two ends meet, ends of one group are paired first; an odd end stays an end. Rings are closed by
/// their first point. Pieces have at least two points.
std::vector<MapLine> JoinPieces(std::vector<MapPiece> pieces);

/// Inserts points so that no segment spans more than `longest` in either coordinate. A segment is drawn only
/// when both its ends are in view, so a long straight one would vanish as soon as the view is closer.
/// Which points are inserted does not depend on the line's direction.
void SubdivideLongSegments(MapLine& line, std::int32_t longest);

/// Puts lines with more points first and equally long ones in the order of their points: what makes up the
/// picture comes first in a table, and the order does not depend on how the source was cut up.
void SortForDrawing(std::vector<MapLine>& lines);

}  // namespace zerbal::pack
