#include "print/text_meter.h"

#include <QFontMetricsF>
#include <QImage>
#include <cmath>

#include "base/utf8.h"

namespace zerbal::print {
namespace {

/// Nothing when a letter is not drawn from prepared pictures.
std::optional<int> PreparedWidth(paint::GlyphSet& glyphs, std::string_view text) {
  int width = 0;
  while (!text.empty()) {
    const paint::GlyphSet::Glyph& glyph = glyphs.Of(base::TakeUtf8(text));
    if (!glyph.known)
      return std::nullopt;
    width += glyph.advance;
  }
  return width;
}

}  // namespace

TextSize TextMeter::Measure(std::string_view text, const map::TextFont& font) {
  const QImage device(1, 1, QImage::Format_RGB32);
  const QFontMetricsF metrics(paint::DeviceFont(font, scale_, device));
  const std::optional<int> prepared = PreparedWidth(prepared_.Glyphs(font, scale_), text);
  const double width =
      prepared
          ? *prepared
          : metrics.horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  const auto twips = [this](double pixels) {
    return static_cast<std::int32_t>(std::ceil(pixels * kTwipsPerPixel / scale_.Ratio()));
  };
  return {twips(width), twips(std::ceil(metrics.ascent()) + metrics.descent())};
}

}  // namespace zerbal::print
