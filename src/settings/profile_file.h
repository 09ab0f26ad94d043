// Sectioned settings files: `[section]` lines and `key=value` lines, in single-byte text. Only these
// functions read and write such files. They work on bytes and do not interpret values.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/file_steps.h"

namespace zerbal::settings {

/// The value of `key` in `section`, at most `size` - 1 characters of it; `fallback` without its trailing
/// spaces, cut in the same way, when file, section or key is missing. Names match without regard to ASCII
/// letter case. A pair of quotation marks around the value is removed. Does not throw.
std::string ReadProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t size);

/// Replaces the key's line, or adds the key (and the section), keeping every other byte of the file. The file
/// is replaced as a whole or not at all; a missing file is created. False when it could not be written.
bool WriteProfileString(const std::filesystem::path& file, std::string_view section, std::string_view key,
                        std::string_view value, base::FileSteps& steps = base::SystemFileSteps());

}  // namespace zerbal::settings
