// Reads and writes single values of the settings file, and writes the defaults of missing keys.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "settings/catalogue.h"
#include "settings/message_boxes.h"

namespace zerbal::settings {

/// Single values of sectioned settings files. Texts are UTF-8 here and code page 1252 in the file; a
/// character that the code page lacks is written as "?".
class IniValues {
 public:
  /// For reading only: nothing may be written, and missing keys stay missing.
  IniValues() = default;
  /// Missing keys are written with their defaults. `boxes` outlives this.
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

/// The settings of the catalogue in one file.
class IniFile {
 public:
  IniFile(std::filesystem::path file, IniValues& values) : file_(std::move(file)), values_(values) {}

  /// The value of a setting. A missing key is written with `byDefault`; nullopt when that fails.
  template <typename Setting>
  std::optional<typename Setting::Value> Read(const Setting& setting,
                                              const typename Setting::Value& byDefault) {
    return ValueOf(setting, Text(setting.key.section, setting.key.name, setting.TextOf(byDefault)));
  }
  template <typename Setting>
  std::optional<typename Setting::Value> Read(const Setting& setting) {
    return Read(setting, setting.byDefault);
  }
  bool Read(const SwitchSetting& setting) {
    return Read(setting, setting.byDefault).value_or(setting.otherwise);
  }
  std::optional<std::string> Read(const SettingFamily& family, std::string_view key,
                                  std::string_view byDefault) {
    return Text(family.section, key, byDefault);
  }
  /// The value of a setting; nullopt when its key is missing. Writes nothing.
  template <typename Setting>
  std::optional<typename Setting::Value> Find(const Setting& setting) {
    return ValueOf(setting, Text(setting.key.section, setting.key.name));
  }

  // A write that fails has shown its box.
  template <typename Setting>
  void Write(const Setting& setting, const typename Setting::Value& value) {
    values_.WriteIniValue(file_, setting.key.section, setting.key.name, setting.TextOf(value));
  }
  void Write(const SettingFamily& family, std::string_view key, std::string_view value) {
    values_.WriteIniValue(file_, family.section, key, value);
  }
  const std::filesystem::path& Path() const { return file_; }

 private:
  template <typename Setting>
  static std::optional<typename Setting::Value> ValueOf(const Setting& setting,
                                                        const std::optional<std::string>& text) {
    return text ? std::optional(setting.ValueOf(*text)) : std::nullopt;
  }
  std::optional<std::string> Text(std::string_view section, std::string_view key,
                                  std::optional<std::string_view> byDefault = std::nullopt) {
    return values_.ReadIniValue(file_, section, key, byDefault);
  }

  std::filesystem::path file_;
  IniValues& values_;
};

}  // namespace zerbal::settings
