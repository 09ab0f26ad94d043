// The surface on a picture in memory: what the map window draws on. Lines, markers and letters, which make up
// nearly all of a map, go straight into the pixels; a QPainter draws the rest.
#pragma once

#include <QImage>
#include <optional>

#include "map/painter_surface.h"
#include "map/pixel_canvas.h"
#include "map/prepared_pictures.h"

namespace zerbal::map {

/// `picture` has format RGB32 and the device pixel ratio 1 while it is drawn on; `scale` is the number of its
/// pixels a logical pixel. Picture and prepared pictures must outlive the surface.
class PictureSurface final : public Surface {
 public:
  PictureSurface(QImage& picture, double scale, PreparedPictures& prepared);
  ~PictureSurface() override;

  void BeginLayer(Layer) override {}
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const Point> points, const Pen& pen) override;
  void Rectangle(Point corner1, Point corner2, const Pen& pen) override;
  void Circle(Point centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(Point topLeft, std::string_view text, data::Rgb colour, const TextFont& font) override;

 private:
  /// A line of more than one logical pixel: a part of a symbol.
  void Stroke(Point from, Point to, std::uint32_t pixel, int width);
  PainterSurface& Rest();
  GlyphSet& Glyphs(const TextFont& font);

  QImage& picture_;
  PixelScale scale_;
  PreparedPictures& prepared_;
  PixelCanvas canvas_;
  TextFont font_;  ///< of glyphs_
  GlyphSet* glyphs_ = nullptr;
  // Made when first needed: most redraws have no use for them.
  std::optional<QPainter> painter_;
  std::optional<PainterSurface> rest_;
};

}  // namespace zerbal::map
