#include "settings/ini_values.h"

#include <cstddef>

#include "base/code_page_1252.h"
#include "settings/profile_file.h"

namespace zerbal::settings {
namespace {

/// Asked as the default; a key holding just this character behaves as missing.
constexpr char kMissing[] = "\xFF";
constexpr std::size_t kBufferSize = 2000;

}  // namespace

std::optional<std::string> IniValues::ReadIniValue(const std::filesystem::path& file,
                                                   std::string_view section, std::string_view key,
                                                   std::optional<std::string_view> fallback) {
  const std::string answer = ReadProfileString(file, base::ToCodePage1252(section), base::ToCodePage1252(key),
                                               kMissing, kBufferSize);
  if (answer != kMissing)
    return base::FromCodePage1252(answer);
  if (!fallback)
    return std::nullopt;
  if (boxes_ != nullptr && !WriteIniValue(file, section, key, *fallback))
    return std::nullopt;
  return std::string(*fallback);
}

bool IniValues::WriteIniValue(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view value) {
  if (WriteProfileString(file, base::ToCodePage1252(section), base::ToCodePage1252(key),
                         base::ToCodePage1252(value)))
    return true;
  std::string text = "Error during the writing in the file '";
  text.append(file.string()).append("'.").append(NL);
  text.append("Section = '").append(section).append("', ");
  text.append("Entry = '").append(key).append("', ");
  text.append("Value = '").append(value).append("'");
  boxes_->Show(BoxIcon::kExclamation, text);
  return false;
}

}  // namespace zerbal::settings
