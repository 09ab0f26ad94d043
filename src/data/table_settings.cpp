#include "data/table_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/numbers.h"
#include "jet/error.h"
#include "jet/format/text.h"
#include "settings/value_text.h"

namespace zerbal::data {
namespace {

constexpr char kFallbackFont[] = "Arial";
constexpr std::int16_t kSmallestFont = 6;  // points
constexpr std::int16_t kLargestFont = 14;
constexpr std::array<std::int16_t, kFontCount> kFallbackSizes = {7, 8};

Rgb ParseColour(std::string_view text) {
  const auto fields = settings::SplitList(text, 3, ",");
  return ClampRgb(base::LeadingInt16(fields[1]), base::LeadingInt16(fields[2]),
                  base::LeadingInt16(fields[3]));
}

bool ReadColour(settings::IniFile& ini, std::string_view section, std::string_view key, Rgb& rgb) {
  const auto value = ini.Read(section, key, ColourText(rgb));
  if (value)
    rgb = ParseColour(*value);
  return value.has_value();
}

bool ReadFont(settings::IniFile& ini, Font& font) {
  const auto value = ini.Read("Fonts", font.entry, FontText(font));
  if (!value)
    return false;
  const auto fields = settings::SplitList(*value, 2, ",");
  font.name = fields[1];
  font.size = base::LeadingInt16(fields[2]);
  return true;
}

}  // namespace

std::string ColourText(const Rgb& rgb) {
  std::string text = std::to_string(rgb.red);
  text.append(",").append(std::to_string(rgb.green));
  text.append(",").append(std::to_string(rgb.blue));
  return text;
}

std::string FontText(const Font& font) {
  return font.name + "," + std::to_string(font.size);
}

bool ReadFontSettings(settings::IniFile& ini, FontTable& fonts, std::span<const std::string> installedFonts) {
  const auto read = [&](Font& font) { return ReadFont(ini, font); };
  if (!std::all_of(fonts.rows.begin(), fonts.rows.end(), read))
    return false;
  CheckFonts(fonts, installedFonts);
  return true;
}

void CheckFonts(FontTable& fonts, std::span<const std::string> installedFonts) {
  for (std::size_t i = 0; i < fonts.rows.size(); ++i) {
    Font& font = fonts.rows[i];
    const auto isFont = [&](const std::string& name) { return jet::EqualsIgnoringCase(name, font.name); };
    if (std::none_of(installedFonts.begin(), installedFonts.end(), isFont))
      font.name = kFallbackFont;
    if (font.size < kSmallestFont || font.size > kLargestFont)
      font.size = kFallbackSizes[i];
  }
}

bool ReadColourSettings(settings::IniFile& ini, ColourTable& colours) {
  return std::all_of(colours.rows.begin(), colours.rows.end(),
                     [&](Colour& colour) { return ReadColour(ini, "Colors", colour.entry, colour.rgb); });
}

bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services) {
  return std::all_of(services.begin(), services.end(), [&](FlightService& service) {
    return ReadColour(ini, "FlightColors", service.key, service.rgb);
  });
}

bool ReadRegionSettings(settings::IniFile& ini, RegionTable& regions) {
  const auto centre = ini.Read("Region", "CentreWorld", "1");
  if (!centre)
    return false;
  const auto longitude = ini.Read("Region", "CentreWorldAtLON", "0");
  if (!longitude)
    return false;
  if (regions.rows.empty())
    throw jet::EngineError("zbldata.mdb", "reg", "there is no region; at least one is needed");
  const bool known = *centre == "0" || *centre == "1" || *centre == "2";
  regions.centreWorld = known ? *centre : "1";
  regions.centreWorldAtLon = static_cast<float>(std::clamp(base::LeadingNumber(*longitude), -180.0, 180.0));
  regions.ComputeWorldRow();
  return true;
}

void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder) {
  const auto howMany = ini.Read("Program", "RandomFlitHowMany", "2");
  finder.howMany = howMany && base::LeadingInt16(*howMany) == 1 ? HowMany::kOneFlight : HowMany::kRoundTrip;
  // A read that fails or a value that is neither counts as "1".
  const auto isChecked = [&](std::string_view key) { return ini.Read("Program", key, "1") != "0"; };
  finder.searchOrigin = isChecked("SeleDestCheckDest");
  finder.searchStopovers = isChecked("SeleDestCheckStop");
  finder.searchDestination = isChecked("SeleDestCheckArr");
}

}  // namespace zerbal::data
