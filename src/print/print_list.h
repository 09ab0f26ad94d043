// Keeps the operations of a map for print, so that a picture can be drawn in several parts.
#pragma once

#include <variant>

#include "paint/operation_list.h"
#include "print/print_surface.h"
#include "print/text_meter.h"

namespace zerbal::print {

/// Keeps every operation but the beginnings of layers.
class PrintList final : public PrintSurface {
 public:
  explicit PrintList(TextMeter& meter) : meter_(meter) {}

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override { Plain().Clear(colour); }
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override {
    Plain().Polyline(points, pen);
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override {
    Plain().Rectangle(corner1, corner2, pen);
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override {
    Plain().Circle(centre, radius, colour, fill);
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override {
    Plain().Text(topLeft, text, colour, font);
  }

  void BeginPrintLayer(PrintLayer) override {}
  void Fill(std::span<const Ring> rings, data::Rgb colour) override;
  void Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) override;
  void StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) override;
  TextSize Measure(std::string_view text, const map::TextFont& font) override {
    return meter_.Measure(text, font);
  }

  /// Draws the operations that can be visible between two heights (twips), in their order. Others may be
  /// omitted.
  void DrawBetween(std::int32_t top, std::int32_t bottom, PrintSurface& surface) const;

 private:
  /// Twips that something touches.
  struct Heights {
    std::int64_t top;
    std::int64_t bottom;
  };
  struct FillStep {
    std::vector<Ring> rings;
    std::vector<Heights> heights;  ///< of each ring
    data::Rgb colour;
  };
  struct StrokeStep {
    std::vector<TwipPoint> points;
    StrokeStyle style;
    Heights heights;
  };
  struct TextStep {
    TwipPoint topLeft;
    std::string text;
    TextStyle style;
    Heights heights;
  };
  using Step = std::variant<paint::OperationList, FillStep, StrokeStep, TextStep>;

  static Heights HeightsOf(std::span<const TwipPoint> points, double reach);
  static void DrawStroke(const StrokeStep& step, std::int32_t top, std::int32_t bottom,
                         PrintSurface& surface);
  static void DrawFill(const FillStep& step, std::int32_t top, std::int32_t bottom, PrintSurface& surface);
  /// Takes operations of every map; what is drawn next comes after what was added before.
  paint::OperationList& Plain();

  std::vector<Step> steps_;
  TextMeter& meter_;
};

}  // namespace zerbal::print
