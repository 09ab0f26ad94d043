// Sectioned settings files: `[section]` lines and `key=value` lines, in single-byte text. These two routines
// are the only readers and writers of such files; they work on bytes and know nothing of what the values
// mean.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace zerbal::base {
class FileSteps;
}

namespace zerbal::settings {

/// The value of `key` in `section`, at most `size` - 1 characters of it; `fallback` without its trailing
/// spaces, cut likewise, when file, section or key is missing. Names match without regard to ASCII letter
/// case. A pair of quotation marks around the value is removed. Never changes anything and never throws.
std::string ReadProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t size);

/// Replaces the key's line, or adds the key (and the section), keeping every other byte of the file. The file
/// is replaced as a whole or not at all; a missing file is created. False when it could not be written.
bool WriteProfileString(const std::filesystem::path& file, std::string_view section, std::string_view key,
                        std::string_view value);

/// The same with other file calls.
bool WriteProfileString(const std::filesystem::path& file, std::string_view section, std::string_view key,
                        std::string_view value, base::FileSteps& steps);

}  // namespace zerbal::settings
