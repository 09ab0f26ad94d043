#include "data/colours.h"

#include <algorithm>

#include "base/numbers.h"
#include "data/table_access.h"
#include "settings/profile_text.h"

namespace zerbal::data {
namespace {

std::string ColourText(Rgb rgb) {
  return std::to_string(rgb.red) + "," + std::to_string(rgb.green) + "," + std::to_string(rgb.blue);
}

/// The setting is "red,green,blue"; components are limited to 0..255, and a text that is no number is 0.
bool ReadColour(settings::IniFile& ini, const settings::SettingFamily& family, const std::string& key,
                Rgb& rgb) {
  const auto value = ini.Read(family, key, ColourText(rgb));
  if (!value)
    return false;
  const auto fields = settings::SplitList(*value, 3, ",");
  rgb = ClampRgb(base::LeadingInt16(fields[1]), base::LeadingInt16(fields[2]), base::LeadingInt16(fields[3]));
  return true;
}

}  // namespace

ColourTable LoadColours(const std::filesystem::path& zbldata) {
  ColourTable colours;
  jet::Recordset col = OpenWithIndex(jet::Database::Open(zbldata), "col", "colcode");
  LoadByCode(col, kColourRules, "Colors are missing in the table for:", [&](std::size_t row) {
    colours.rows[row] = {
        ClampRgb(col["Col_R"].AsInteger(), col["Col_G"].AsInteger(), col["Col_B"].AsInteger()),
        col["Col_Entry"].AsText()};
  });
  return colours;
}

bool ReadColourSettings(settings::IniFile& ini, ColourTable& colours) {
  return std::all_of(colours.rows.begin(), colours.rows.end(), [&](Colour& colour) {
    return ReadColour(ini, settings::kColours, colour.entry, colour.rgb);
  });
}

void WriteColourSettings(settings::IniFile& ini, const ColourTable& colours) {
  for (const Colour& colour : colours.rows)
    ini.Write(settings::kColours, colour.entry, ColourText(colour.rgb));
}

bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services) {
  return std::all_of(services.begin(), services.end(), [&](FlightService& service) {
    return ReadColour(ini, settings::kFlightColours, service.key, service.rgb);
  });
}

void WriteFlightColourSettings(settings::IniFile& ini, const FlightServiceTable& services) {
  for (const FlightService& service : services)
    ini.Write(settings::kFlightColours, service.key, ColourText(service.rgb));
}

}  // namespace zerbal::data
