#include "print/print_style.h"

#include <algorithm>

#include "base/case_folding.h"
#include "print/contrast.h"

namespace zerbal::print {
namespace {

using data::ColourCode;
using data::Rgb;

constexpr int kLegendSize = 8;  ///< points
constexpr int kTitleSize = 16;
/// Of frequencies with the background, when no style says more.
constexpr double kFrequencyContrast[kMostFlightSteps] = {1.6, 2.6, 5, 10};

struct MapColour {
  ColourCode code;
  Rgb PrintStyle::*colour;
};
constexpr MapColour kMapColours[] = {
    {ColourCode::kMapBg, &PrintStyle::background},   {ColourCode::kCentre, &PrintStyle::centre},
    {ColourCode::kCoast, &PrintStyle::coast},        {ColourCode::kRiver, &PrintStyle::river},
    {ColourCode::kIBound, &PrintStyle::boundary},    {ColourCode::kApAll, &PrintStyle::airport},
    {ColourCode::kApDest, &PrintStyle::destination}, {ColourCode::kAcSymb, &PrintStyle::symbol},
};

}  // namespace

PrintStyle StyleOf(const data::MapStyle& map) {
  PrintStyle style;
  for (const MapColour& one : kMapColours)
    style.*one.colour = map.colours[one.code];
  DeriveColours(style);
  const std::string& family = map.fonts[data::FontCode::kLoRes].name;
  style.legend = {.name = family, .size = kLegendSize};
  style.title = {.name = family, .size = kTitleSize};
  return style;
}

void DeriveColours(PrintStyle& style) {
  style.text = TextColourOn(style.background);
  style.box = style.background;
  style.frame = Mixed(style.background, style.text, 0.5);
  style.graticule = Mixed(style.background, style.text, 0.3);
  constexpr Rgb kBlue{60, 130, 200};
  for (std::size_t i = 0; i < kMostFlightSteps; ++i)
    style.frequency[i] = WithContrast(Mixed(style.background, kBlue, (i + 1.0) / kMostFlightSteps),
                                      style.background, kFrequencyContrast[i]);
}

void CheckFonts(PrintStyle& style, std::span<const std::string> installedFonts) {
  const auto check = [&](map::TextFont& font) {
    const auto isFont = [&](const std::string& name) {
      return base::EqualsIgnoringEuropeanCase(name, font.name);
    };
    if (std::none_of(installedFonts.begin(), installedFonts.end(), isFont))
      font.name = data::kFallbackFont;
  };
  if (style.label)
    check(*style.label);
  check(style.legend);
  check(style.title);
}

void ApplyStyle(const PrintStyle& style, data::MapStyle& map, data::FlightServiceTable& services) {
  for (const MapColour& one : kMapColours)
    map.colours.rows[static_cast<std::size_t>(one.code)].rgb = style.*one.colour;
  if (style.label)
    for (data::Font& font : map.fonts.rows) {
      font.name = style.label->name;
      font.size = style.label->size;
    }
  for (data::FlightService& service : services) {
    const auto own = style.services.find(base::LowerAscii(service.key));
    service.rgb = WithContrast(own == style.services.end() ? service.rgb : own->second, style.background,
                               style.contrast);
  }
}

}  // namespace zerbal::print
