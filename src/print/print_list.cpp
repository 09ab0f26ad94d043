#include "print/print_list.h"

#include <algorithm>

#include "print/long_lines.h"

namespace zerbal::print {
namespace {

/// Twips around a fill: its soft edges, and the width of the lines along it.
constexpr double kFillReach = 2 * kTwipsPerPixel;
/// A text reaches at most as many times its height from its top, however many marks its letters have.
constexpr int kTextReach = 5;

/// How far a line can be seen above and below its points, twips.
std::int32_t ReachOf(const StrokeStyle& style) {
  return static_cast<std::int32_t>((style.width + 2) * kTwipsPerPixel) + 1;
}

/// The ring without what cannot be seen between two heights: of points in a row that are all above or all
/// below, the first and the last remain.
Ring Shortened(const Ring& ring, std::int64_t top, std::int64_t bottom) {
  const auto side = [&](TwipPoint point) { return point.y < top ? -1 : point.y > bottom ? 1 : 0; };
  Ring result;
  int before = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const int here = side(ring[i]);
    const bool inside = here != 0 && here == before && i + 1 < ring.size() && side(ring[i + 1]) == here;
    if (!inside)
      result.push_back(ring[i]);
    before = here;
  }
  return result;
}

}  // namespace

PrintList::Heights PrintList::HeightsOf(std::span<const TwipPoint> points, double reach) {
  Heights heights{INT64_MAX, INT64_MIN};
  for (const TwipPoint point : points) {
    heights.top = std::min<std::int64_t>(heights.top, point.y);
    heights.bottom = std::max<std::int64_t>(heights.bottom, point.y);
  }
  if (points.empty())
    return heights;
  const auto around = static_cast<std::int64_t>(reach) + 1;
  return {heights.top - around, heights.bottom + around};
}

paint::OperationList& PrintList::Plain() {
  if (steps_.empty() || !std::holds_alternative<paint::OperationList>(steps_.back()))
    steps_.emplace_back(paint::OperationList());
  return std::get<paint::OperationList>(steps_.back());
}

void PrintList::Fill(std::span<const Ring> rings, data::Rgb colour) {
  FillStep step{{rings.begin(), rings.end()}, {}, colour};
  for (const Ring& ring : rings)
    step.heights.push_back(HeightsOf(ring, kFillReach));
  steps_.emplace_back(std::move(step));
}

void PrintList::Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) {
  if (points.size() < 2)
    return;
  steps_.emplace_back(StrokeStep{InPieces(points), style, HeightsOf(points, ReachOf(style))});
}

void PrintList::StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) {
  const std::int32_t height = Measure(text, style.font).height;
  const double reach = kTextReach * height + (kHaloReach + 1) * kTwipsPerPixel;
  steps_.emplace_back(TextStep{topLeft, std::string(text), style, HeightsOf({&topLeft, 1}, reach)});
}

void PrintList::DrawFill(const FillStep& step, std::int32_t top, std::int32_t bottom, PrintSurface& surface) {
  std::vector<Ring> rings;
  for (std::size_t i = 0; i < step.rings.size(); ++i) {
    if (step.heights[i].top <= bottom && step.heights[i].bottom >= top)
      rings.push_back(Shortened(step.rings[i], top - static_cast<std::int64_t>(kFillReach),
                                bottom + static_cast<std::int64_t>(kFillReach)));
  }
  if (!rings.empty())
    surface.Fill(rings, step.colour);
}

/// Draws the parts of a line that can be visible; all of a dashed one, whose dashes depend on its beginning.
void PrintList::DrawStroke(const StrokeStep& step, std::int32_t top, std::int32_t bottom,
                           PrintSurface& surface) {
  const std::span<const TwipPoint> points = step.points;
  const std::int64_t reach = ReachOf(step.style);
  const auto touches = [&](std::size_t end) {
    const auto [upper, lower] = std::minmax(points[end - 1].y, points[end].y);
    return upper - reach <= bottom && lower + reach >= top;
  };
  if (!step.style.dashes.empty()) {
    surface.Stroke(points, step.style);
    return;
  }
  std::size_t begin = 0;
  for (std::size_t end = 1; end <= points.size(); ++end) {
    if (end < points.size() && touches(end))
      continue;
    if (end - begin > 1)
      surface.Stroke(points.subspan(begin, end - begin), step.style);
    begin = end;
  }
}

void PrintList::DrawBetween(std::int32_t top, std::int32_t bottom, PrintSurface& surface) const {
  const auto touches = [&](const Heights& heights) { return heights.top <= bottom && heights.bottom >= top; };
  for (const Step& step : steps_) {
    if (const auto* plain = std::get_if<paint::OperationList>(&step)) {
      plain->DrawBetween(top, bottom, surface);
    } else if (const auto* fill = std::get_if<FillStep>(&step)) {
      DrawFill(*fill, top, bottom, surface);
    } else if (const auto* stroke = std::get_if<StrokeStep>(&step)) {
      if (touches(stroke->heights))
        DrawStroke(*stroke, top, bottom, surface);
    } else if (const auto* text = std::get_if<TextStep>(&step)) {
      if (touches(text->heights))
        surface.StyledText(text->topLeft, text->text, text->style);
    }
  }
}

}  // namespace zerbal::print
