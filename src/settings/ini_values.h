// Reading and writing single values of the settings file, with the defaults that fill it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "settings/message_boxes.h"

namespace zerbal::settings {

/// Single values of sectioned settings files. Texts are UTF-8 here and code page 1252 in the file (a
/// character that the code page lacks is written as "?").
class IniValues {
 public:
  /// For reading only: nothing may be written, and missing keys stay missing.
  IniValues() = default;
  /// The file fills itself with every key on first use. `boxes` outlives this.
  explicit IniValues(MessageBoxes& boxes) : boxes_(&boxes) {}

  /// The value of a key. A missing key has the value `fallback` when one is given, which is written back
  /// unless this is for reading only; nullopt when the key is missing and there is no fallback, or writing it
  /// failed (the box has been shown).
  std::optional<std::string> ReadIniValue(const std::filesystem::path& file, std::string_view section,
                                          std::string_view key,
                                          std::optional<std::string_view> fallback = std::nullopt);

  /// Writes one value. On failure shows the box that names file, section, key and value, and returns false.
  bool WriteIniValue(const std::filesystem::path& file, std::string_view section, std::string_view key,
                     std::string_view value);

 private:
  MessageBoxes* boxes_ = nullptr;  ///< null when only for reading
};

/// One settings file, so that callers need not carry its name about.
class IniFile {
 public:
  IniFile(std::filesystem::path file, IniValues& values) : file_(std::move(file)), values_(values) {}

  std::optional<std::string> Read(std::string_view section, std::string_view key,
                                  std::optional<std::string_view> fallback = std::nullopt) {
    return values_.ReadIniValue(file_, section, key, fallback);
  }
  bool Write(std::string_view section, std::string_view key, std::string_view value) {
    return values_.WriteIniValue(file_, section, key, value);
  }
  const std::filesystem::path& Path() const { return file_; }

 private:
  std::filesystem::path file_;
  IniValues& values_;
};

}  // namespace zerbal::settings
