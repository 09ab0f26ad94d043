#include "paint/operation_list.h"

#include <algorithm>

namespace zerbal::paint {
namespace {

constexpr std::int64_t kTwipsPerPoint = 20;  ///< of a font's size
/// A text reaches at most as many times its font's size from its top, however many marks its letters have.
constexpr std::int64_t kTextReach = 10;

/// Covers the soft edges and the rounding of a line.
std::int64_t ReachOf(const map::Pen& pen) {
  return (std::int64_t{pen.width} + 2) * kTwipsPerPixel;
}

}  // namespace

OperationList::Operation& OperationList::Add(Kind kind, std::span<const TwipPoint> points,
                                             std::int64_t reach) {
  Operation operation{.kind = kind, .first = points_.size(), .count = points.size()};
  points_.insert(points_.end(), points.begin(), points.end());
  if (!points.empty()) {
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(), [](TwipPoint a, TwipPoint b) { return a.y < b.y; });
    operation.top = top->y - reach;
    operation.bottom = bottom->y + reach;
  }
  return operations_.emplace_back(operation);
}

void OperationList::Clear(data::Rgb colour) {
  Add(Kind::kClear, {}, 0).pen.colour = colour;
}

void OperationList::Polyline(std::span<const TwipPoint> points, const map::Pen& pen) {
  if (points.size() >= 2)
    Add(Kind::kPolyline, points, ReachOf(pen)).pen = pen;
}

void OperationList::Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) {
  const TwipPoint corners[] = {corner1, corner2};
  Add(Kind::kRectangle, corners, ReachOf(pen)).pen = pen;
}

void OperationList::Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) {
  Operation& operation = Add(Kind::kCircle, {&centre, 1}, ReachOf({}) + std::max(radius, 0));
  operation.radius = radius;
  operation.fill = fill;
  operation.pen.colour = colour;
}

void OperationList::Text(TwipPoint topLeft, std::string_view text, data::Rgb colour,
                         const map::TextFont& font) {
  Operation& operation =
      Add(Kind::kText, {&topLeft, 1}, kTextReach * kTwipsPerPoint * std::clamp(font.size, 1, 1000));
  operation.pen.colour = colour;
  operation.text = texts_.size();
  operation.textSize = text.size();
  operation.font = FontIndex(font);
  texts_ += text;
}

std::size_t OperationList::FontIndex(const map::TextFont& font) {
  const auto found = std::find(fonts_.begin(), fonts_.end(), font);
  const auto index = static_cast<std::size_t>(found - fonts_.begin());
  if (found == fonts_.end())
    fonts_.push_back(font);
  return index;
}

void OperationList::DrawBetween(std::int32_t top, std::int32_t bottom, map::Surface& surface) const {
  for (const Operation& operation : operations_) {
    if (operation.top <= bottom && operation.bottom >= top)
      Draw(operation, surface);
  }
}

void OperationList::Draw(const Operation& operation, map::Surface& surface) const {
  const std::span<const TwipPoint> points(points_.data() + operation.first, operation.count);
  switch (operation.kind) {
    case Kind::kClear:
      surface.Clear(operation.pen.colour);
      break;
    case Kind::kPolyline:
      surface.Polyline(points, operation.pen);
      break;
    case Kind::kRectangle:
      surface.Rectangle(points[0], points[1], operation.pen);
      break;
    case Kind::kCircle:
      surface.Circle(points[0], operation.radius, operation.pen.colour, operation.fill);
      break;
    case Kind::kText:
      surface.Text(points[0], std::string_view(texts_).substr(operation.text, operation.textSize),
                   operation.pen.colour, fonts_[operation.font]);
      break;
  }
}

}  // namespace zerbal::paint
