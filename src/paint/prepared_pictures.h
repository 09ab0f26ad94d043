// Markers and letters, drawn once and kept: a redraw only copies them to their places. They depend on no
// position and no database, so that they may outlive a redraw.
#pragma once

#include <QFont>
#include <QRawFont>
#include <QString>
#include <array>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/coordinates.h"
#include "map/surface.h"
#include "paint/mask.h"

namespace zerbal::paint {

/// The family at its size in points, at 96 dots an inch times the ratio.
QFont DeviceFont(const map::TextFont& font, const PixelScale& scale, const QPaintDevice& device);

/// The letters of one font at one size. Letters stand on whole pixels, without kerning.
class GlyphSet {
 public:
  struct Glyph {
    Mask mask;  ///< its reference pixel is on the base line
    int advance = 0;
    bool known = false;  ///< the font has it and it can stand alone
  };

  GlyphSet(const QFont& font, double pixelSize);

  /// Pixels from the top of a text's box to its base line.
  int Ascent() const { return ascent_; }
  const Glyph& Of(char32_t character);

 private:
  Glyph Draw(char32_t character) const;

  QRawFont font_;
  int ascent_ = 0;
  std::array<std::unique_ptr<Glyph>, 128> ascii_;
  std::unordered_map<char32_t, Glyph> others_;
};

class PreparedPictures {
 public:
  /// A filled disc with an outline of one logical pixel. Its reference pixel is that of its centre position.
  const Mask& Disc(std::int32_t radius, const PixelScale& scale);
  GlyphSet& Glyphs(const map::TextFont& font, const PixelScale& scale);

 private:
  std::map<std::pair<std::int32_t, double>, Mask> discs_;
  struct FontEntry {
    map::TextFont font;
    double ratio;
    std::unique_ptr<GlyphSet> glyphs;
  };
  std::vector<FontEntry> fonts_;  ///< a handful: two fonts, and what was chosen before
};

}  // namespace zerbal::paint
