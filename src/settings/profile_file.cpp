#include "settings/profile_file.h"

#include <exception>
#include <optional>

#include "base/file_replacement.h"
#include "settings/profile_text.h"

namespace zerbal::settings {
namespace {

std::string Cut(std::string_view text, std::size_t size) {
  return std::string(text.substr(0, size > 0 ? size - 1 : 0));
}

std::string_view WithoutTrailingSpaces(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

std::string ReadProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t size) {
  try {
    if (const auto bytes = base::ReadFile(file)) {
      if (const auto value = FindProfileValue(*bytes, section, key))
        return Cut(*value, size);
    }
  } catch (const std::exception&) {
    // A file that does not fit into memory cannot be read.
  }
  return Cut(WithoutTrailingSpaces(fallback), size);
}

bool WriteProfileString(const std::filesystem::path& file, std::string_view section, std::string_view key,
                        std::string_view value, base::FileSteps& steps) {
  try {
    return base::ChangeFile(
        file, [&](const std::string& old) { return WithProfileValue(old, section, key, value); }, steps);
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace zerbal::settings
