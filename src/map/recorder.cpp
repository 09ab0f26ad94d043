#include "map/recorder.h"

namespace zerbal::map {

void Recorder::BeginLayer(Layer layer) {
  layer_ = layer;
}

Operation& Recorder::Add(Operation::Kind kind, TwipPoint from, const Pen& pen) {
  Operation& operation = operations_.emplace_back();
  operation.kind = kind;
  operation.layer = layer_;
  operation.from = from;
  operation.pen = pen;
  return operation;
}

void Recorder::Clear(data::Rgb colour) {
  operations_.clear();
  Add(Operation::Kind::kClear, {}, {.colour = colour});
}

void Recorder::Polyline(std::span<const TwipPoint> points, const Pen& pen) {
  for (std::size_t i = 1; i < points.size(); ++i)
    Add(Operation::Kind::kLine, points[i - 1], pen).to = points[i];
}

void Recorder::Rectangle(TwipPoint corner1, TwipPoint corner2, const Pen& pen) {
  Add(Operation::Kind::kRectangle, corner1, pen).to = corner2;
}

void Recorder::Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) {
  Operation& operation = Add(Operation::Kind::kCircle, centre, {.colour = colour});
  operation.radius = radius;
  operation.fill = fill;
}

void Recorder::Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const TextFont& font) {
  Operation& operation = Add(Operation::Kind::kText, topLeft, {.colour = colour});
  operation.text = text;
  operation.font = font;
}

}  // namespace zerbal::map
