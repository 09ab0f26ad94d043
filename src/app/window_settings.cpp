#include "app/window_settings.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

#include "app/commands.h"
#include "base/numbers.h"
#include "settings/value_text.h"

namespace zerbal::app {
namespace {

constexpr char kMainWindow[] = "MainWindow";
constexpr char kMenuEntries[] = "MenuEntryChecked";

const char* SwitchText(bool value) {
  return value ? "1" : "0";
}

bool ReadSwitchKey(settings::IniFile& ini, const char* section, const char* key, bool byDefault) {
  return ini.Read(section, key, SwitchText(byDefault)) == "1";
}

std::string PairText(int first, int second) {
  return std::to_string(first) + "," + std::to_string(second);
}

std::pair<int, int> ReadPair(settings::IniFile& ini, const char* key, int first, int second) {
  const auto value = ini.Read(kMainWindow, key, PairText(first, second));
  if (!value)
    return {first, second};
  const auto fields = settings::SplitList(*value, 2, ",");
  return {base::LeadingInt32(fields[1]), base::LeadingInt32(fields[2])};
}

FrameState ReadState(settings::IniFile& ini) {
  const auto value = ini.Read(kMainWindow, "State", "0");
  switch (base::LeadingInt32(value.value_or("0"))) {
    case 1:
      return FrameState::kMinimised;
    case 2:
      return FrameState::kMaximised;
    default:
      return FrameState::kNormal;
  }
}

}  // namespace

bool ReadSwitch(settings::IniFile& ini, const char* section, bool byDefault) {
  return ReadSwitchKey(ini, section, "Save", byDefault);
}

FramePlacement ReadFramePlacement(settings::IniFile& ini, const FramePlacement& current) {
  FramePlacement placement;
  placement.state = ReadState(ini);
  std::tie(placement.left, placement.top) = ReadPair(ini, "Position", current.left, current.top);
  std::tie(placement.height, placement.width) = ReadPair(ini, "Size", current.height, current.width);
  return placement;
}

FramePlacement Showable(FramePlacement placement, double pixelRatio) {
  constexpr double kLongestSide = 32767;
  constexpr double kMostPixels = 1 << 28;  // of 4 bytes each
  const auto longestSide = static_cast<int>(kLongestSide / pixelRatio);
  placement.width = std::clamp(placement.width, 1, longestSide);
  const auto mostRows = static_cast<int>(kMostPixels / (pixelRatio * pixelRatio * placement.width));
  placement.height = std::clamp(placement.height, 1, std::min(longestSide, mostRows));
  return placement;
}

void SaveFramePlacement(settings::IniFile& ini, const FramePlacement& placement) {
  ini.Write(kMainWindow, "State", std::to_string(static_cast<int>(placement.state)));
  if (placement.state != FrameState::kNormal)
    return;
  ini.Write(kMainWindow, "Position", PairText(placement.left, placement.top));
  ini.Write(kMainWindow, "Size", PairText(placement.height, placement.width));
}

data::DisplayOptions ReadDisplayOptions(settings::IniFile& ini, bool saved) {
  data::DisplayOptions options;
  if (!saved)
    return options;
  ForEachOption([&](const Command& command) {
    bool& option = options.*command.option;
    option = ReadSwitchKey(ini, kMenuEntries, command.settingKey, option);
  });
  return options;
}

void SaveDisplayOptions(settings::IniFile& ini, const data::DisplayOptions& options) {
  ForEachOption([&](const Command& command) {
    ini.Write(kMenuEntries, command.settingKey, SwitchText(options.*command.option));
  });
}

}  // namespace zerbal::app
