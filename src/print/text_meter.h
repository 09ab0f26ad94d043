// The sizes of texts.
#pragma once

#include "paint/prepared_pictures.h"
#include "print/print_surface.h"

namespace zerbal::print {

/// Measures texts as they are drawn with `scale` device pixels per logical pixel.
class TextMeter {
 public:
  explicit TextMeter(double scale) : scale_(scale) {}

  TextSize Measure(std::string_view text, const map::TextFont& font);

 private:
  PixelScale scale_;
  paint::PreparedPictures prepared_;
};

}  // namespace zerbal::print
