// A surface that keeps every operation, for tests and for the script driver.
#pragma once

#include <string>
#include <vector>

#include "map/surface.h"

namespace zerbal::map {

struct Operation {
  enum class Kind { kClear, kLine, kRectangle, kCircle, kText };
  Kind kind = Kind::kClear;
  Layer layer = Layer::kBackground;
  Point from{};  ///< line start, rectangle corner, circle centre, text's top left corner
  Point to{};    ///< line end, opposite corner
  std::int32_t radius = 0;
  bool fill = false;
  Pen pen{};  ///< colour of every kind; width, style and mode of lines and rectangles
  std::string text{};
  TextFont font{};
  bool operator==(const Operation&) const = default;
};

/// Polylines are kept as their single segments. Clear forgets everything before it.
class Recorder final : public Surface {
 public:
  void BeginLayer(Layer layer) override;
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const Point> points, const Pen& pen) override;
  void Rectangle(Point corner1, Point corner2, const Pen& pen) override;
  void Circle(Point centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(Point topLeft, std::string_view text, data::Rgb colour, const TextFont& font) override;

  const std::vector<Operation>& Operations() const { return operations_; }

 private:
  Operation& Add(Operation::Kind kind, Point from, const Pen& pen);

  Layer layer_ = Layer::kBackground;
  std::vector<Operation> operations_;
};

}  // namespace zerbal::map
