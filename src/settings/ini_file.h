// Reads and writes the settings of the catalogue in a settings file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "settings/catalogue.h"
#include "settings/message_boxes.h"

namespace zerbal::settings {

/// Which groups of settings are saved.
struct SaveFlags {
  bool mainWindow = false;   ///< state, position and size of the main window
  bool windows = false;      ///< positions of the dialogs
  bool menuEntries = false;  ///< check marks of the menu entries
};

/// One settings file. Texts are UTF-8 here and code page 1252 in the file; a character that the code page
/// lacks is written as "?".
class IniFile {
 public:
  /// For reading only: missing keys are not written.
  explicit IniFile(std::filesystem::path file) : file_(std::move(file)) {}
  /// A failed write shows a box that names file, section, key and value. `boxes` outlives this.
  IniFile(std::filesystem::path file, MessageBoxes& boxes) : file_(std::move(file)), boxes_(&boxes) {}

  /// The value of a setting. A missing key is written with `byDefault`; nullopt when that fails.
  template <typename Setting>
  std::optional<typename Setting::Value> Read(const Setting& setting,
                                              const typename Setting::Value& byDefault) {
    return ValueOf(setting, ReadIniValue(setting.key.section, setting.key.name, setting.TextOf(byDefault)));
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
    return ReadIniValue(family.section, key, byDefault);
  }
  /// The value of a setting; nullopt when its key is missing. Writes nothing.
  template <typename Setting>
  std::optional<typename Setting::Value> Find(const Setting& setting) {
    return ValueOf(setting, ReadIniValue(setting.key.section, setting.key.name));
  }

  template <typename Setting>
  void Write(const Setting& setting, const typename Setting::Value& value) {
    WriteIniValue(setting.key.section, setting.key.name, setting.TextOf(value));
  }
  void Write(const SettingFamily& family, std::string_view key, std::string_view value) {
    WriteIniValue(family.section, key, value);
  }

 private:
  template <typename Setting>
  static std::optional<typename Setting::Value> ValueOf(const Setting& setting,
                                                        const std::optional<std::string>& text) {
    return text ? std::optional(setting.ValueOf(*text)) : std::nullopt;
  }
  std::optional<std::string> ReadIniValue(std::string_view section, std::string_view key,
                                          std::optional<std::string_view> byDefault = std::nullopt);
  bool WriteIniValue(std::string_view section, std::string_view key, std::string_view value);

  std::filesystem::path file_;
  MessageBoxes* boxes_ = nullptr;  ///< null when only for reading
};

}  // namespace zerbal::settings
