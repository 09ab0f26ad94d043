// Colours that can be told from the background.
#pragma once

#include "data/rgb.h"

namespace zerbal::print {

/// From 1 (equal) to 21 (black and white), by the relative luminance of both colours.
double ContrastOf(data::Rgb colour, data::Rgb background);

/// `colour`, mixed with as little of black or white as its contrast with `background` needs; black or white
/// when even these have less.
data::Rgb WithContrast(data::Rgb colour, data::Rgb background, double least);

/// Black on light backgrounds, white on dark ones.
data::Rgb TextColourOn(data::Rgb background);

/// `part` of `other`, 0 to 1, in a colour.
data::Rgb Mixed(data::Rgb colour, data::Rgb other, double part);

}  // namespace zerbal::print
