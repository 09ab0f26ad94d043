// A surface that records every operation, for tests and the script driver.
#pragma once

#include <string>
#include <vector>

#include "map/surface.h"

namespace zerbal::map {

struct Operation {
  enum class Kind { kClear, kLine, kRectangle, kCircle, kText };
  Kind kind = Kind::kClear;
  Layer layer = Layer::kBackground;
  TwipPoint from{};  ///< line start, rectangle corner, circle centre, text's top left corner
  TwipPoint to{};    ///< line end, opposite corner
  std::int32_t radius = 0;
  bool fill = false;
  Pen pen{};  ///< colour of every kind; width, style and mode of lines and rectangles
  std::string text{};
  TextFont font{};
  bool operator==(const Operation&) const = default;
};

/// Polylines are recorded as single segments. Clear discards everything before it.
class Recorder final : public Surface {
 public:
  void BeginLayer(Layer layer) override;
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const TwipPoint> points, const Pen& pen) override;
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const Pen& pen) override;
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const TextFont& font) override;

  const std::vector<Operation>& Operations() const { return operations_; }

 private:
  Operation& Add(Operation::Kind kind, TwipPoint from, const Pen& pen);

  Layer layer_ = Layer::kBackground;
  std::vector<Operation> operations_;
};

}  // namespace zerbal::map
