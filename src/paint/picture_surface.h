// The surface on a picture in memory: what the map window draws on. Lines, markers and letters, which make up
// nearly all of a map, go straight into the pixels; a QPainter draws the rest.
#pragma once

#include <QImage>
#include <optional>

#include "paint/painter_surface.h"
#include "paint/pixel_canvas.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {

/// `picture` has format RGB32 and the device pixel ratio 1 while it is drawn on; `scale` is the number of its
/// pixels a logical pixel. Picture and prepared pictures must outlive the surface.
/// Drawing on an empty picture does nothing.
class PictureSurface final : public map::Surface {
 public:
  PictureSurface(QImage& picture, double scale, PreparedPictures& prepared);
  ~PictureSurface() override;

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override;
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override;
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override;

 private:
  /// A line of more than one logical pixel: a part of a symbol.
  void Stroke(TwipPoint from, TwipPoint to, std::uint32_t pixel, int width);
  PainterSurface& Rest();
  GlyphSet& Glyphs(const map::TextFont& font);

  QImage& picture_;
  PixelScale scale_;
  PreparedPictures& prepared_;
  PixelCanvas canvas_;
  map::TextFont font_;  ///< of glyphs_
  GlyphSet* glyphs_ = nullptr;
  // Made when first needed: most redraws have no use for them.
  std::optional<QPainter> painter_;
  std::optional<PainterSurface> rest_;
};

}  // namespace zerbal::paint
