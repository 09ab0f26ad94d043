#include "print/halo.h"

#include <algorithm>
#include <cmath>

#include "base/utf8.h"
#include "paint/pixel_canvas.h"
#include "print/blend.h"
#include "print/print_surface.h"

namespace zerbal::print {
namespace {

/// Of a pixel at a distance from a whole pixel of the mask.
std::uint8_t CoverageAt(double distance, double radius) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(radius + 0.5 - distance, 0.0, 1.0) * 255));
}

void Raise(std::uint8_t& pixel, int coverage) {
  pixel = std::max(pixel, static_cast<std::uint8_t>(coverage));
}

void Blend(QImage& rows, const paint::Mask& mask, PixelPoint place, std::uint32_t colour) {
  const int left = std::max(place.x + mask.left, 0);
  const int right = std::min(place.x + mask.left + mask.width, rows.width());
  const int top = std::max(place.y + mask.top, 0);
  const int bottom = std::min(place.y + mask.top + mask.height, rows.height());
  for (int y = top; y < bottom; ++y) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(rows.scanLine(y));
    const std::uint8_t* coverage =
        mask.coverage.data() + std::ptrdiff_t{y - place.y - mask.top} * mask.width - place.x - mask.left;
    for (int x = left; x < right; ++x) {
      if (coverage[x] != 0)
        pixels[x] = Blended(pixels[x], colour, coverage[x]);
    }
  }
}

}  // namespace

paint::Mask Thickened(const paint::Mask& mask, double radius) {
  const int reach = static_cast<int>(std::ceil(radius));
  if (mask.width == 0)
    return mask;
  paint::Mask result{
      mask.left - reach, mask.top - reach, mask.width + 2 * reach, mask.height + 2 * reach, {}};
  result.coverage.assign(static_cast<std::size_t>(result.width * result.height), 0);
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) {
      const int share = CoverageAt(std::hypot(dx, dy), radius);
      if (share == 0)
        continue;
      const std::uint8_t* from = mask.coverage.data();
      for (int y = 0; y < mask.height; ++y) {
        std::uint8_t* to =
            result.coverage.data() + std::ptrdiff_t{y + reach + dy} * result.width + reach + dx;
        for (int x = 0; x < mask.width; ++x, ++from)
          Raise(to[x], *from * share / 255);
      }
    }
  }
  return result;
}

const paint::Mask& Halos::Of(paint::GlyphSet& glyphs, const map::TextFont& font, char32_t letter) {
  const auto [place, isNew] = masks_.try_emplace({font.name, font.size, letter});
  if (isNew)
    place->second = Thickened(glyphs.Of(letter).mask, kHaloReach * scale_.Ratio());
  return place->second;
}

bool Halos::Draw(QImage& rows, const paint::PictureBand& band, TwipPoint topLeft, std::string_view text,
                 const map::TextFont& font, data::Rgb colour) {
  paint::GlyphSet& glyphs = prepared_.Glyphs(font, scale_);
  for (std::string_view rest = text; !rest.empty();) {
    if (!glyphs.Of(base::TakeUtf8(rest)).known)
      return false;
  }
  PixelPoint place = scale_.ToPixelPoint(topLeft);
  place.y += glyphs.Ascent() - band.top;
  while (!text.empty() && place.x < rows.width()) {
    const char32_t letter = base::TakeUtf8(text);
    Blend(rows, Of(glyphs, font, letter), place, paint::PixelCanvas::Pixel(colour));
    place.x += glyphs.Of(letter).advance;
  }
  return true;
}

}  // namespace zerbal::print
