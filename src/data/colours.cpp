#include "data/colours.h"

#include <algorithm>

#include "base/numbers.h"
#include "data/load_by_code.h"
#include "settings/value_text.h"

namespace zerbal::data {
namespace {

std::string ColourText(Rgb rgb) {
  std::string text = std::to_string(rgb.red);
  text.append(",").append(std::to_string(rgb.green));
  text.append(",").append(std::to_string(rgb.blue));
  return text;
}

Rgb ParseColour(std::string_view text) {
  const auto fields = settings::SplitList(text, 3, ",");
  return ClampRgb(base::LeadingInt16(fields[1]), base::LeadingInt16(fields[2]),
                  base::LeadingInt16(fields[3]));
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
    return ReadColourSetting(ini, settings::kColours, colour.entry, colour.rgb);
  });
}

void WriteColourSettings(settings::IniFile& ini, const ColourTable& colours) {
  for (const Colour& colour : colours.rows)
    WriteColourSetting(ini, settings::kColours, colour.entry, colour.rgb);
}

bool ReadColourSetting(settings::IniFile& ini, const settings::SettingFamily& family, std::string_view key,
                       Rgb& rgb) {
  const auto value = ini.Read(family, key, ColourText(rgb));
  if (value)
    rgb = ParseColour(*value);
  return value.has_value();
}

void WriteColourSetting(settings::IniFile& ini, const settings::SettingFamily& family, std::string_view key,
                        Rgb rgb) {
  ini.Write(family, key, ColourText(rgb));
}

}  // namespace zerbal::data
