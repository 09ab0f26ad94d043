#include "app/window_settings.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "app/command_table.h"

namespace zerbal::app {

FramePlacement ReadFramePlacement(settings::IniFile& ini, const FramePlacement& current) {
  using settings::kMainWindowState;
  FramePlacement placement;
  placement.state = static_cast<FrameState>(ini.Read(kMainWindowState).value_or(kMainWindowState.byDefault));
  const std::pair position{current.left, current.top};
  const std::pair size{current.height, current.width};
  std::tie(placement.left, placement.top) =
      ini.Read(settings::kMainWindowPosition, position).value_or(position);
  std::tie(placement.height, placement.width) = ini.Read(settings::kMainWindowSize, size).value_or(size);
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
  ini.Write(settings::kMainWindowState, static_cast<int>(placement.state));
  if (placement.state != FrameState::kNormal)
    return;
  ini.Write(settings::kMainWindowPosition, {placement.left, placement.top});
  ini.Write(settings::kMainWindowSize, {placement.height, placement.width});
}

data::DisplayOptions ReadDisplayOptions(settings::IniFile& ini, bool saved) {
  data::DisplayOptions options;
  if (!saved)
    return options;
  ForEachOption([&](const Command& command) { options.*command.Option() = ini.Read(*command.setting); });
  return options;
}

void SaveDisplayOptions(settings::IniFile& ini, const data::DisplayOptions& options) {
  ForEachOption([&](const Command& command) { ini.Write(*command.setting, options.*command.Option()); });
}

}  // namespace zerbal::app
