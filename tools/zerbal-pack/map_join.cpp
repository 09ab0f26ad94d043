#include "zerbal-pack/map_join.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

namespace zerbal::pack {

namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

// One end of a piece. Ends are numbered 2 * piece for the first point and 2 * piece + 1 for the last.
struct PieceEnd {
  MapPoint point;
  std::int32_t group = 0;
  std::size_t end = 0;
  auto operator<=>(const PieceEnd&) const = default;  // NOLINT(modernize-use-nullptr)
};

std::size_t OtherEnd(std::size_t end) {
  return end ^ 1;
}

// Pairs the ends that meet at one point: first within a group, then those left over.
void PairEndsAtPoint(std::vector<PieceEnd>::const_iterator first, std::vector<PieceEnd>::const_iterator last,
                     std::vector<std::size_t>& partner) {
  std::size_t waiting = kNone;  // an end without a partner in its group
  while (first != last) {
    const auto next = std::next(first);
    std::size_t left = first->end;
    if (next != last && next->group == first->group) {
      partner[left] = next->end;
      partner[next->end] = left;
      first = std::next(next);
      continue;
    }
    if (waiting != kNone) {
      partner[left] = waiting;
      partner[waiting] = left;
      left = kNone;
    }
    waiting = left;
    first = next;
  }
}

// For each end the end that continues it, or kNone.
std::vector<std::size_t> PairEnds(const std::vector<MapPiece>& pieces) {
  std::vector<PieceEnd> ends;
  ends.reserve(2 * pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const MapLine& points = pieces[i].points;
    if (points.front() == points.back())
      continue;  // a ring is complete
    ends.push_back({points.front(), pieces[i].group, 2 * i});
    ends.push_back({points.back(), pieces[i].group, 2 * i + 1});
  }
  std::sort(ends.begin(), ends.end());
  std::vector<std::size_t> partner(2 * pieces.size(), kNone);
  for (auto first = ends.cbegin(); first != ends.cend();) {
    const auto last = std::find_if(
        first, ends.cend(), [point = first->point](const PieceEnd& end) { return end.point != point; });
    PairEndsAtPoint(first, last, partner);
    first = last;
  }
  return partner;
}

void AppendPiece(MapLine& line, const MapLine& points, bool forwards) {
  const std::size_t skip = line.empty() ? 0 : 1;  // the joint is there already
  const auto offset = static_cast<std::ptrdiff_t>(skip);
  if (forwards)
    line.insert(line.end(), points.begin() + offset, points.end());
  else
    line.insert(line.end(), points.rbegin() + offset, points.rend());
}

// Follows a chain of pieces, entering the first one by `end`.
MapLine FollowChain(std::vector<MapPiece>& pieces, const std::vector<std::size_t>& partner,
                    std::vector<bool>& used, std::size_t end) {
  MapLine line;
  while (end != kNone && !used[end / 2]) {
    MapPiece& piece = pieces[end / 2];
    used[end / 2] = true;
    const bool forwards = end % 2 == 0;
    const std::size_t next = partner[OtherEnd(end)];
    if (line.empty() && forwards)
      line = std::move(piece.points);
    else
      AppendPiece(line, piece.points, forwards);
    piece.points = {};
    end = next;
  }
  return line;
}

struct SegmentPlace {
  MapPoint low;  // the segment's ends, the smaller first
  MapPoint high;
  std::size_t number = 0;                                 // in the order of all pieces
  auto operator<=>(const SegmentPlace&) const = default;  // NOLINT(modernize-use-nullptr)
};

std::vector<bool> FindRepeats(const std::vector<MapPiece>& pieces, bool& any) {
  std::vector<SegmentPlace> places;
  for (const MapPiece& piece : pieces) {
    for (std::size_t i = 1; i < piece.points.size(); ++i) {
      const auto [low, high] = std::minmax(piece.points[i - 1], piece.points[i]);
      places.push_back({low, high, places.size()});
    }
  }
  std::sort(places.begin(), places.end());
  std::vector<bool> repeated(places.size(), false);
  any = false;
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (places[i].low == places[i - 1].low && places[i].high == places[i - 1].high)
      any = repeated[places[i].number] = true;
  }
  return repeated;
}

// The parts of `piece` whose segments are not repeated; `number` is that of its first segment.
void KeepUnrepeated(MapPiece& piece, const std::vector<bool>& repeated, std::size_t number,
                    std::vector<MapPiece>& kept) {
  const MapLine& points = piece.points;
  const std::size_t count = points.size() - 1;
  const auto begin = repeated.begin() + static_cast<std::ptrdiff_t>(number);
  if (std::find(begin, begin + static_cast<std::ptrdiff_t>(count), true) ==
      begin + static_cast<std::ptrdiff_t>(count)) {
    kept.push_back(std::move(piece));
    return;
  }
  MapPiece stretch{{}, piece.group};
  for (std::size_t i = 0; i < count; ++i) {
    if (!repeated[number + i]) {
      if (stretch.points.empty())
        stretch.points.push_back(points[i]);
      stretch.points.push_back(points[i + 1]);
    } else if (!stretch.points.empty()) {
      kept.push_back(std::exchange(stretch, {{}, piece.group}));
    }
  }
  if (!stretch.points.empty())
    kept.push_back(std::move(stretch));
}

}  // namespace

void DropRepeatedSegments(std::vector<MapPiece>& pieces) {
  bool any = false;
  const std::vector<bool> repeated = FindRepeats(pieces, any);
  if (!any)
    return;
  std::vector<MapPiece> kept;
  kept.reserve(pieces.size());
  std::size_t number = 0;
  for (MapPiece& piece : pieces) {
    const std::size_t count = piece.points.size() - 1;
    KeepUnrepeated(piece, repeated, number, kept);
    number += count;
  }
  pieces = std::move(kept);
}

std::vector<MapLine> JoinPieces(std::vector<MapPiece> pieces) {
  const std::vector<std::size_t> partner = PairEnds(pieces);
  std::vector<bool> used(pieces.size(), false);
  std::vector<MapLine> lines;
  // Chains with two loose ends first; what remains then are rings, which may begin anywhere.
  for (std::size_t end = 0; end < partner.size(); ++end) {
    if (partner[end] == kNone && !used[end / 2])
      lines.push_back(FollowChain(pieces, partner, used, end));
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!used[i])
      lines.push_back(FollowChain(pieces, partner, used, 2 * i));
  }
  return lines;
}

void SubdivideLongSegments(MapLine& line, std::int32_t longest) {
  const auto span = [](MapPoint a, MapPoint b) {
    return std::max(std::abs(a.lon - b.lon), std::abs(a.lat - b.lat));
  };
  const auto isLong = [&span, longest](MapPoint a, MapPoint b) { return span(a, b) > longest; };
  if (std::adjacent_find(line.begin(), line.end(), isLong) == line.end())
    return;
  MapLine result;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (i > 0 && isLong(line[i - 1], line[i])) {
      const MapPoint from = line[i - 1];
      const MapPoint to = line[i];
      const bool alongLon = std::abs(to.lon - from.lon) >= std::abs(to.lat - from.lat);
      const std::int32_t start = alongLon ? from.lon : from.lat;
      const std::int32_t finish = alongLon ? to.lon : to.lat;
      const std::int64_t parts = (std::int64_t{span(from, to)} + longest - 1) / longest;
      for (std::int64_t part = 1; part < parts; ++part) {
        // Counted from the smaller end, so that both directions give the same points.
        const std::int64_t step = start < finish ? part : parts - part;
        const std::int64_t offset = step * span(from, to) / parts;
        const auto at = static_cast<std::int32_t>(std::min(start, finish) + offset);
        result.push_back(alongLon ? MapPoint{at, LatitudeAt(from, to, at)}
                                  : MapPoint{LongitudeAt(from, to, at), at});
      }
    }
    result.push_back(line[i]);
  }
  line = std::move(result);
}

void SortForDrawing(std::vector<MapLine>& lines) {
  std::sort(lines.begin(), lines.end(), [](const MapLine& a, const MapLine& b) {
    return std::make_tuple(b.size(), std::cref(a)) < std::make_tuple(a.size(), std::cref(b));
  });
}

}  // namespace zerbal::pack
