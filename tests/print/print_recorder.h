// A surface that records the operations of a map for print.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "print/print_surface.h"

namespace zerbal::print {

struct PrintOperation {
  enum class Kind { kClear, kPolyline, kRectangle, kCircle, kFill, kStroke, kText };
  Kind kind = Kind::kClear;
  PrintLayer layer = PrintLayer::kBackground;
  std::vector<TwipPoint> points{};  ///< a text's top left corner, a circle's centre
  std::vector<Ring> rings{};        ///< of fills
  data::Rgb colour{};
  std::int32_t radius = 0;
  StrokeStyle stroke{};  ///< of polylines and strokes
  std::string text{};
  TextStyle style{};
  bool operator==(const PrintOperation&) const = default;
};

inline void PrintTo(const PrintOperation& operation, std::ostream* out) {
  *out << "kind " << static_cast<int>(operation.kind) << " layer " << static_cast<int>(operation.layer);
  for (const TwipPoint point : operation.points)
    *out << ' ' << point.x << ',' << point.y;
  for (const Ring& ring : operation.rings) {
    *out << " ring";
    for (const TwipPoint point : ring)
      *out << ' ' << point.x << ',' << point.y;
  }
  *out << ' ' << operation.text << " colour " << int{operation.colour.red} << ' '
       << int{operation.colour.green} << ' ' << int{operation.colour.blue};
}

/// A letter is half as wide as its font is high.
class PrintRecorder final : public PrintSurface {
 public:
  using Kind = PrintOperation::Kind;

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override { Add(Kind::kClear, {}).colour = colour; }
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override {
    PrintOperation& operation = Add(Kind::kPolyline, points);
    operation.colour = pen.colour;
    operation.stroke = {.colour = pen.colour, .width = static_cast<double>(pen.width)};
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override {
    const TwipPoint corners[] = {corner1, corner2};
    Add(Kind::kRectangle, corners).colour = pen.colour;
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool) override {
    PrintOperation& operation = Add(Kind::kCircle, {&centre, 1});
    operation.colour = colour;
    operation.radius = radius;
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override {
    StyledText(topLeft, text, {.font = font, .colour = colour});
  }
  void BeginPrintLayer(PrintLayer layer) override { layer_ = layer; }
  void Fill(std::span<const Ring> rings, data::Rgb colour) override {
    PrintOperation& operation = Add(Kind::kFill, {});
    operation.rings.assign(rings.begin(), rings.end());
    operation.colour = colour;
  }
  void Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) override {
    PrintOperation& operation = Add(Kind::kStroke, points);
    operation.colour = style.colour;
    operation.stroke = style;
  }
  void StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) override {
    PrintOperation& operation = Add(Kind::kText, {&topLeft, 1});
    operation.text = text;
    operation.colour = style.colour;
    operation.style = style;
  }
  TextSize Measure(std::string_view text, const map::TextFont& font) override {
    constexpr int kTwipsPerPoint = 20;
    const int height = font.size * kTwipsPerPoint;
    return {static_cast<std::int32_t>(text.size()) * height / 2, height};
  }

  const std::vector<PrintOperation>& Operations() const { return operations_; }
  /// Those of one layer.
  std::vector<PrintOperation> Operations(PrintLayer layer) const {
    std::vector<PrintOperation> result;
    for (const PrintOperation& operation : operations_)
      if (operation.layer == layer)
        result.push_back(operation);
    return result;
  }

 private:
  PrintOperation& Add(Kind kind, std::span<const TwipPoint> points) {
    PrintOperation& operation = operations_.emplace_back();
    operation.kind = kind;
    operation.layer = layer_;
    operation.points.assign(points.begin(), points.end());
    return operation;
  }

  PrintLayer layer_ = PrintLayer::kBackground;
  std::vector<PrintOperation> operations_;
};

}  // namespace zerbal::print
