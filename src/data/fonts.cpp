#include "data/fonts.h"

#include <algorithm>

#include "base/case_folding.h"
#include "base/numbers.h"
#include "data/table_access.h"
#include "settings/profile_text.h"

namespace zerbal::data {
namespace {

std::string FontText(const Font& font) {
  return font.name + "," + std::to_string(font.size);
}

bool ReadFont(settings::IniFile& ini, Font& font) {
  const auto value = ini.Read(settings::kFonts, font.entry, FontText(font));
  if (!value)
    return false;
  const auto fields = settings::SplitList(*value, 2, ",");
  font.name = fields[1];
  font.size = base::LeadingInt16(fields[2]);
  return true;
}

}  // namespace

FontTable LoadFonts(const std::filesystem::path& zbldata) {
  FontTable fonts;
  jet::Recordset fon = OpenWithIndex(jet::Database::Open(zbldata), "fon", "foncode");
  LoadByCode(fon, kFontRules, "Fonts are missing in the table for:", [&](std::size_t row) {
    fonts.rows[row] = {fon["Fon_Name"].AsText(), fon["Fon_Size"].AsInteger(), fon["Fon_Entry"].AsText()};
  });
  return fonts;
}

bool ReadFontSettings(settings::IniFile& ini, FontTable& fonts, std::span<const std::string> installedFonts) {
  const auto read = [&](Font& font) { return ReadFont(ini, font); };
  if (!std::all_of(fonts.rows.begin(), fonts.rows.end(), read))
    return false;
  CheckFonts(fonts, installedFonts);
  return true;
}

void WriteFontSetting(settings::IniFile& ini, const Font& font) {
  ini.Write(settings::kFonts, font.entry, FontText(font));
}

void CheckFonts(FontTable& fonts, std::span<const std::string> installedFonts) {
  for (const FontRule& rule : kFontRules) {
    Font& font = fonts[rule.font];
    const auto isFont = [&](const std::string& name) {
      return base::EqualsIgnoringEuropeanCase(name, font.name);
    };
    if (std::none_of(installedFonts.begin(), installedFonts.end(), isFont))
      font.name = kFallbackFont;
    if (font.size < settings::kSmallestFontSize || font.size > settings::kLargestFontSize)
      font.size = rule.fallbackSize;
  }
}

}  // namespace zerbal::data
