// Halos of letters: the letters made thicker, drawn below them.
#pragma once

#include <QImage>
#include <map>
#include <tuple>

#include "paint/picture_band.h"
#include "paint/prepared_pictures.h"

namespace zerbal::print {

/// The mask with everything within `radius` pixels of it.
paint::Mask Thickened(const paint::Mask& mask, double radius);

/// Keeps the halos of letters; they depend on font and scale alone.
class Halos {
 public:
  /// `prepared` must outlive the halos.
  Halos(paint::PreparedPictures& prepared, double scale) : prepared_(prepared), scale_(scale) {}

  /// Draws into the rows of a band what lies there of the halo of a text. Returns false and draws nothing
  /// when a letter is not drawn from prepared pictures.
  bool Draw(QImage& rows, const paint::PictureBand& band, TwipPoint topLeft, std::string_view text,
            const map::TextFont& font, data::Rgb colour);

 private:
  const paint::Mask& Of(paint::GlyphSet& glyphs, const map::TextFont& font, char32_t letter);

  paint::PreparedPictures& prepared_;
  PixelScale scale_;
  std::map<std::tuple<std::string, int, char32_t>, paint::Mask> masks_;
};

}  // namespace zerbal::print
