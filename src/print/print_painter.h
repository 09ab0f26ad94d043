// A surface for maps for print: another surface of the map for its operations, and a QPainter for the rest.
#pragma once

#include <QPainter>
#include <functional>

#include "paint/picture_surface.h"
#include "print/area_fill.h"
#include "print/halo.h"
#include "print/print_surface.h"
#include "print/text_meter.h"

namespace zerbal::print {

/// Draws with a QPainter on any device. It is asked for when it is needed first.
class PrintPainter : public PrintSurface {
 public:
  /// `base` draws what every map has. `aside` is the distance in device pixels from a point to the middle of
  /// a line through it.
  PrintPainter(map::Surface& base, std::function<QPainter&()> painter, double scale, double aside,
               TextMeter& meter)
      : base_(base), painter_(std::move(painter)), scale_(scale), aside_(aside), meter_(meter) {}

  void BeginLayer(map::Layer layer) override { base_.BeginLayer(layer); }
  void Clear(data::Rgb colour) override { base_.Clear(colour); }
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override {
    base_.Polyline(points, pen);
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override {
    base_.Rectangle(corner1, corner2, pen);
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override {
    base_.Circle(centre, radius, colour, fill);
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override {
    base_.Text(topLeft, text, colour, font);
  }

  void BeginPrintLayer(PrintLayer) override {}
  void Fill(std::span<const Ring> rings, data::Rgb colour) override;
  void Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) override;
  void StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) override;
  TextSize Measure(std::string_view text, const map::TextFont& font) override {
    return meter_.Measure(text, font);
  }

 protected:
  virtual void DrawHalo(TwipPoint topLeft, std::string_view text, const map::TextFont& font,
                        data::Rgb colour);
  /// The middle of a line through a point.
  QPointF At(TwipPoint point) const;

 private:
  map::Surface& base_;
  std::function<QPainter&()> painter_;
  PixelScale scale_;
  double aside_;
  TextMeter& meter_;
};

/// Draws on a band of a picture of format RGB32, as PictureSurface does.
class PrintPicture final : public PrintPainter {
 public:
  struct Tools {
    paint::PreparedPictures prepared;
    Halos halos;
    TextMeter meter;
    explicit Tools(double scale) : halos(prepared, scale), meter(scale) {}
  };

  PrintPicture(QImage& rows, paint::PictureBand band, double scale, Tools& tools);

  void Fill(std::span<const Ring> rings, data::Rgb colour) override;
  /// Draws the same pieces as every band does.
  void Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) override;

 private:
  void DrawHalo(TwipPoint topLeft, std::string_view text, const map::TextFont& font,
                data::Rgb colour) override;

  QImage& rows_;
  paint::PictureBand band_;
  Tools& tools_;
  paint::PictureSurface surface_;
  std::optional<paint::BandPainter> painter_;
  std::optional<AreaFill> fill_;
};

}  // namespace zerbal::print
