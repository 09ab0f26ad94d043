#include "settings/ini_file.h"

#include <cstddef>

#include "base/code_page_1252.h"
#include "settings/profile_file.h"

namespace zerbal::settings {
namespace {

/// The fallback that is asked for; a key with just this character is treated as missing.
constexpr char kMissing[] = "\xFF";
constexpr std::size_t kBufferSize = 2000;

}  // namespace

std::optional<std::string> IniFile::ReadIniValue(std::string_view section, std::string_view key,
                                                 std::optional<std::string_view> byDefault) {
  const std::string answer = ReadProfileString(file_, base::ToCodePage1252(section),
                                               base::ToCodePage1252(key), kMissing, kBufferSize);
  if (answer != kMissing)
    return base::FromCodePage1252(answer);
  if (!byDefault || (boxes_ != nullptr && !WriteIniValue(section, key, *byDefault)))
    return std::nullopt;
  return std::string(*byDefault);
}

bool IniFile::WriteIniValue(std::string_view section, std::string_view key, std::string_view value) {
  if (WriteProfileString(file_, base::ToCodePage1252(section), base::ToCodePage1252(key),
                         base::ToCodePage1252(value)))
    return true;
  std::string text = "Error during the writing in the file '";
  text.append(file_.string()).append("'.").append(NL);
  text.append("Section = '").append(section).append("', ");
  text.append("Entry = '").append(key).append("', ");
  text.append("Value = '").append(value).append("'");
  boxes_->Show(BoxIcon::kExclamation, text);
  return false;
}

}  // namespace zerbal::settings
