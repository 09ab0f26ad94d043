#include "print/label_placement.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/assert.h"
#include "print/box_grid.h"

namespace zerbal::print {
namespace {

/// How many labels may move to make room for another one.
constexpr std::size_t kMostMoved = 2;
/// Of making room and moving to better places. Later rounds change next to nothing.
constexpr int kRounds = 2;

class Placement {
 public:
  Placement(std::span<const LabelRequest> labels, std::span<const TwipBox> obstacles, const TwipBox& area)
      : labels_(labels),
        taken_(area),
        chosen_(labels.size()),
        possible_(labels.size()),
        order_(labels.size()) {
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    std::stable_sort(order_.begin(), order_.end(),
                     [&](std::size_t a, std::size_t b) { return labels_[a].priority > labels_[b].priority; });
    BoxGrid blocked(area);
    for (std::size_t i = 0; i < obstacles.size(); ++i)
      blocked.Add(i, obstacles[i]);
    for (std::size_t label = 0; label < labels_.size(); ++label)
      for (std::size_t place = 0; place < labels_[label].places.size(); ++place) {
        const TwipBox& box = labels_[label].places[place];
        if (area.Holds(box) && !blocked.Overlaps(box))
          possible_[label].push_back(place);
      }
  }

  std::vector<std::optional<std::size_t>> Run() {
    for (const std::size_t label : order_)
      if (const auto place = FreePlace(label))
        Put(label, *place);
    for (int round = 0; round < kRounds; ++round) {
      for (const std::size_t label : order_)
        if (!chosen_[label])
          MakeRoom(label);
      for (const std::size_t label : order_)
        if (chosen_[label])
          MoveToBetterPlace(label);
    }
    return chosen_;
  }

 private:
  const TwipBox& Box(std::size_t label, std::size_t place) const { return labels_[label].places[place]; }

  void Put(std::size_t label, std::size_t place) {
    chosen_[label] = place;
    taken_.Add(label, Box(label, place));
  }

  /// Returns where the label was.
  std::size_t TakeAway(std::size_t label) {
    ZERBAL_ASSERT(chosen_[label].has_value());
    const std::size_t place = *chosen_[label];
    taken_.Remove(label, Box(label, place));
    chosen_[label].reset();
    return place;
  }

  std::optional<std::size_t> FreePlace(std::size_t label) const {
    for (const std::size_t place : possible_[label])
      if (!taken_.Overlaps(Box(label, place)))
        return place;
    return std::nullopt;
  }

  void MakeRoom(std::size_t label) {
    for (const std::size_t place : possible_[label]) {
      const std::vector<std::size_t> inTheWay = taken_.Overlapping(Box(label, place));
      if (inTheWay.size() > kMostMoved)
        continue;
      Put(label, place);
      if (MoveAway(inTheWay))
        return;
      TakeAway(label);
    }
  }

  /// Moves all of these labels to free places or none.
  bool MoveAway(std::span<const std::size_t> labels) {
    std::vector<std::size_t> before;
    for (const std::size_t label : labels)
      before.push_back(TakeAway(label));
    for (std::size_t i = 0; i < labels.size(); ++i) {
      if (const auto place = FreePlace(labels[i])) {
        Put(labels[i], *place);
        continue;
      }
      while (i > 0)
        TakeAway(labels[--i]);
      for (std::size_t k = 0; k < labels.size(); ++k)
        Put(labels[k], before[k]);
      return false;
    }
    return true;
  }

  void MoveToBetterPlace(std::size_t label) {
    const std::size_t before = TakeAway(label);
    Put(label, FreePlace(label).value_or(before));
  }

  std::span<const LabelRequest> labels_;
  BoxGrid taken_;
  std::vector<std::optional<std::size_t>> chosen_;
  std::vector<std::vector<std::size_t>> possible_;  ///< places inside the area and beside the obstacles
  std::vector<std::size_t> order_;                  ///< of choosing
};

std::int32_t Whole(double value) {
  return static_cast<std::int32_t>(std::lround(value));
}

struct PointOnLine {
  double x, y;
  double alongX, alongY;  ///< the direction, of length 1
};

double SegmentLength(TwipPoint from, TwipPoint to) {
  return std::hypot(static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y);
}

double LineLength(std::span<const TwipPoint> line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    length += SegmentLength(line[i - 1], line[i]);
  return length;
}

/// At `distance` from the beginning. The line must have a length.
PointOnLine PointAt(std::span<const TwipPoint> line, double distance) {
  PointOnLine point{};
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double length = SegmentLength(line[i - 1], line[i]);
    if (length == 0)
      continue;
    const double along = std::min(distance, length);
    const double alongX = (line[i].x - line[i - 1].x) / length;
    const double alongY = (line[i].y - line[i - 1].y) / length;
    point = {line[i - 1].x + alongX * along, line[i - 1].y + alongY * along, alongX, alongY};
    if (distance <= length)
      break;
    distance -= length;
  }
  return point;
}

/// The box at `gap` to the left (1) or right (-1) of the line, or on it (0).
TwipBox BoxBeside(const PointOnLine& point, double side, std::int32_t gap, TwipSize size) {
  const double acrossX = point.alongY * side;
  const double acrossY = -point.alongX * side;
  const double reach =
      std::abs(acrossX) * size.width / 2 + std::abs(acrossY) * size.height / 2 + (side == 0 ? 0 : gap);
  return TwipBox::At({Whole(point.x + acrossX * reach - size.width / 2.0),
                      Whole(point.y + acrossY * reach - size.height / 2.0)},
                     size);
}

}  // namespace

std::vector<std::optional<std::size_t>> PlaceLabels(std::span<const LabelRequest> labels,
                                                    std::span<const TwipBox> obstacles, const TwipBox& area) {
  return Placement(labels, obstacles, area).Run();
}

std::vector<TwipBox> PlacesAround(TwipPoint centre, std::int32_t radius, std::int32_t gap, TwipSize size) {
  // -1 left of or above the marker, 0 centred, 1 right of or below it.
  struct Side {
    int x, y;
  };
  constexpr Side kSides[] = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}};
  std::vector<TwipBox> places;
  for (const std::int32_t distance : {radius + gap, radius + gap + size.height}) {
    // At a corner, the same distance is split between both axes.
    const std::int32_t diagonal = Whole(distance * 0.7);
    const auto begin = [](std::int32_t middle, int side, std::int32_t away, std::int32_t length) {
      return side > 0 ? middle + away : side < 0 ? middle - away - length : middle - length / 2;
    };
    for (const Side& side : kSides) {
      const std::int32_t away = side.x != 0 && side.y != 0 ? diagonal : distance;
      places.push_back(TwipBox::At(
          {begin(centre.x, side.x, away, size.width), begin(centre.y, side.y, away, size.height)}, size));
    }
  }
  return places;
}

std::vector<TwipBox> PlacesAlong(std::span<const TwipPoint> line, std::int32_t gap, TwipSize size) {
  constexpr double kParts[] = {0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74, 0.18, 0.82, 0.1, 0.9};
  const double length = LineLength(line);
  std::vector<TwipBox> places;
  if (length == 0)
    return places;
  for (const double part : kParts)
    for (const double side : {1.0, -1.0})
      places.push_back(BoxBeside(PointAt(line, part * length), side, gap, size));
  for (const double part : kParts)
    places.push_back(BoxBeside(PointAt(line, part * length), 0, gap, size));
  return places;
}

std::vector<TwipBox> PlacesAtEnds(std::span<const TwipPoint> line, std::int32_t gap, TwipSize size) {
  const double length = LineLength(line);
  std::vector<TwipBox> places;
  if (length == 0)
    return places;
  const auto inside = [&](const PointOnLine& end) {
    return gap + std::abs(end.alongX) * size.width / 2 + std::abs(end.alongY) * size.height / 2;
  };
  places.push_back(BoxBeside(PointAt(line, inside(PointAt(line, 0))), 0, 0, size));
  places.push_back(
      BoxBeside(PointAt(line, std::max(length - inside(PointAt(line, length)), 0.0)), 0, 0, size));
  return places;
}

}  // namespace zerbal::print
