// Draws on a QImage, for the map window. Lines, markers and letters, nearly all of a map, are written
// directly into the pixels; a QPainter draws the rest.
#pragma once

#include <QImage>
#include <optional>

#include "paint/label.h"
#include "paint/line_run.h"
#include "paint/painter_surface.h"
#include "paint/picture_band.h"
#include "paint/pixel_canvas.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {

/// `picture` has format RGB32 and the device pixel ratio 1; `scale` is the number of its pixels per logical
/// pixel. Picture and prepared pictures must outlive the surface. Drawing on an empty picture does nothing.
/// With a band, `picture` holds as many rows of a larger picture as it is high, with the same pixels as
/// there.
class PictureSurface final : public map::Surface {
 public:
  PictureSurface(QImage& picture, double scale, PreparedPictures& prepared)
      : PictureSurface(picture, {0, picture.height()}, scale, prepared) {}
  PictureSurface(QImage& picture, PictureBand band, double scale, PreparedPictures& prepared);
  ~PictureSurface() override;

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override;
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override;
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override;

 private:
  void ThinRun(std::span<const TwipPoint> points, std::uint32_t pixel);
  /// Of a run with points far away.
  void ThinParts(std::span<const TwipPoint> points, std::uint32_t pixel);
  /// A line wider than one logical pixel: part of a symbol.
  void Stroke(TwipPoint from, TwipPoint to, std::uint32_t pixel, int width);
  PainterSurface& Rest();
  GlyphSet& Glyphs(const map::TextFont& font);

  QImage& picture_;
  PictureBand band_;
  PixelScale scale_;
  int lineWidth_;  ///< of one logical pixel, in whole pixels
  int softWidth_;  ///< the same in 256ths, not less
  PreparedPictures& prepared_;
  LineRun run_;
  PixelCanvas canvas_;
  map::TextFont font_;  ///< of glyphs_
  GlyphSet* glyphs_ = nullptr;
  Label label_;
  // Created on first use; most redraws do not need them.
  std::optional<BandPainter> painter_;
  std::optional<PainterSurface> rest_;
};

}  // namespace zerbal::paint
