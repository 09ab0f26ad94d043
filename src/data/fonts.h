// The fonts of the map.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

#include "settings/ini_file.h"

namespace zerbal::data {

/// In overview mode and in detail mode.
enum class FontCode { kLoRes, kHiRes };

/// What is the same for all databases.
struct FontRule {
  FontCode font;
  const char* code;  ///< of its row in the database
  int fallbackSize;  ///< in place of a size that is not allowed
};

/// In the order of FontCode.
inline constexpr std::array kFontRules = {
    FontRule{FontCode::kLoRes, "LORES", 7},
    FontRule{FontCode::kHiRes, "HIRES", 8},
};

/// In place of a font that is not installed.
inline constexpr char kFallbackFont[] = "Arial";

struct Font {
  std::string name;   ///< family
  int size = 0;       ///< points
  std::string entry;  ///< key in settings::kFonts
};

struct FontTable {
  std::array<Font, kFontRules.size()> rows;  ///< in the order of kFontRules
  const Font& operator[](FontCode font) const { return rows[static_cast<std::size_t>(font)]; }
  Font& operator[](FontCode font) { return rows[static_cast<std::size_t>(font)]; }
};

/// Loads the fonts from zbldata.mdb. Throws LoadError, which lists all codes that are missing.
FontTable LoadFonts(const std::filesystem::path& zbldata);

/// settings::kFonts: name and size of each row; then CheckFonts. A missing key is written with the font of
/// the table. False when that fails.
bool ReadFontSettings(settings::IniFile& ini, FontTable& fonts, std::span<const std::string> installedFonts);
void WriteFontSetting(settings::IniFile& ini, const Font& font);

/// Replaces a name that is not installed (letter case does not matter) and a size that is not allowed.
void CheckFonts(FontTable& fonts, std::span<const std::string> installedFonts);

}  // namespace zerbal::data
