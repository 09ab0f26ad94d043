#include "zerbal-map/page_colours.h"

#include <algorithm>

#include "print/contrast.h"
#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {
namespace {

using data::ColourCode;
using data::Rgb;

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kDarkMap{16, 22, 29};
constexpr Rgb kLightMap{245, 247, 248};
// What WCAG 2 demands of text: at least, and better.
constexpr double kTextContrast = 4.5;
constexpr double kGoodTextContrast = 7;

bool IsDark(Rgb rgb) {
  return print::TextColourOn(rgb) == kWhite;
}

/// A background and what happens to colours on it.
struct Scheme {
  Rgb background;
  bool own;  ///< of the data: its colours stay

  Rgb Line(Rgb rgb) const { return own ? rgb : print::Mixed(rgb, background, 0.4); }
  Rgb Text(Rgb rgb, double contrast = kTextContrast) const {
    return own ? rgb : Readable(rgb, background, contrast);
  }
};

/// The brightest colour of the same hue and saturation.
Rgb Brightest(Rgb rgb) {
  const int most = std::max({rgb.red, rgb.green, rgb.blue});
  return most == 0 ? kWhite
                   : data::ClampRgb(rgb.red * 255 / most, rgb.green * 255 / most, rgb.blue * 255 / most);
}

std::string Property(const char* name, Rgb rgb) {
  return std::string("--") + name + ":" + ColourText(rgb) + ";";
}

std::string Styles(const Page& page, const Scheme& scheme) {
  const auto& colours = page.colours;
  std::string text = ":root{" + Property("map", scheme.background) +
                     Property("coast", scheme.Line(colours[ColourCode::kCoast])) +
                     Property("river", scheme.Line(colours[ColourCode::kRiver])) +
                     Property("boundary", scheme.Line(colours[ColourCode::kIBound])) +
                     Property("centre", scheme.Line(colours[ColourCode::kCentre])) +
                     Property("airport", scheme.Text(colours[ColourCode::kApAll])) +
                     Property("destination", scheme.Text(colours[ColourCode::kApDest], kGoodTextContrast)) +
                     Property("aircraft", scheme.Text(colours[ColourCode::kAcSymb])) + "}\n";
  const auto& services = page.contents.services;
  for (std::size_t i = 0; i < services.size(); ++i)
    text += ".s" + std::to_string(i) + "{" + Property("colour", scheme.Text(services[i].rgb)) + "}\n";
  return text + ".airport{--colour:var(--airport)}\n.destination{--colour:var(--destination)}\n";
}

}  // namespace

Rgb Readable(Rgb colour, Rgb background, double contrast) {
  constexpr int kSteps = 50;
  const bool dark = IsDark(background);
  const Rgb ends[] = {dark ? Brightest(colour) : kBlack, dark ? kWhite : kBlack};
  Rgb mixed = colour;
  for (const Rgb end : ends) {
    const Rgb start = mixed;
    for (int step = 1; step <= kSteps && print::ContrastOf(mixed, background) < contrast; ++step)
      mixed = print::Mixed(start, end, static_cast<double>(step) / kSteps);
  }
  return mixed;
}

std::string ColourStyles(const Page& page) {
  const Rgb own = page.colours[ColourCode::kMapBg];
  const bool dark = IsDark(own);
  const Scheme onLight = dark ? Scheme{kLightMap, false} : Scheme{own, true};
  const Scheme onDark = dark ? Scheme{own, true} : Scheme{kDarkMap, false};
  return Styles(page, onLight) + "@media (prefers-color-scheme: dark) {\n" + Styles(page, onDark) + "}\n";
}

}  // namespace zerbal::mapcommand
