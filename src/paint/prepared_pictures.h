// Masks of markers and letters, made once and reused by later redraws. They depend on radius, font and ratio
// only, not on any data.
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
#include "paint/ink.h"

namespace zerbal::paint {

/// The font at 96 dots per inch times the ratio.
QFont DeviceFont(const map::TextFont& font, const PixelScale& scale, const QPaintDevice& device);

/// The letters of one font at one size. Letters are placed on whole pixels, without kerning.
class GlyphSet {
 public:
  struct Glyph {
    Mask mask;  ///< reference pixel on the base line
    int advance = 0;
    bool known = false;  ///< in the font, and not joined or combined with other letters
  };

  GlyphSet(const QFont& font, double pixelSize);

  /// Pixels from the top of a text to its base line.
  int Ascent() const { return ascent_; }
  const Glyph& Of(char32_t character) {
    if (character < ascii_.size() && ascii_[character]) [[likely]]
      return *ascii_[character];
    return Make(character);
  }

 private:
  const Glyph& Make(char32_t character);
  Glyph Draw(char32_t character) const;

  QRawFont font_;
  int ascent_ = 0;
  std::array<std::unique_ptr<Glyph>, 128> ascii_;
  std::unordered_map<char32_t, Glyph> others_;
};

class PreparedPictures {
 public:
  /// A filled disc with an outline of one logical pixel. The reference pixel is the centre.
  const Mask& Disc(std::int32_t radius, const PixelScale& scale);
  GlyphSet& Glyphs(const map::TextFont& font, const PixelScale& scale);

 private:
  std::map<std::pair<std::int32_t, double>, Mask> discs_;
  struct FontEntry {
    map::TextFont font;
    double ratio;
    std::unique_ptr<GlyphSet> glyphs;
  };
  std::vector<FontEntry> fonts_;  ///< few: the two fonts of the map and those chosen before
};

}  // namespace zerbal::paint
