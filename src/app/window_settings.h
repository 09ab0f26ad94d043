// What the settings file remembers of the main window: state, position, size and the check marks.
#pragma once

#include "data/display_options.h"
#include "settings/ini_file.h"

namespace zerbal::app {

/// The values of settings::kMainWindowState.
enum class FrameState { kNormal = 0, kMinimised = 1, kMaximised = 2 };

/// Position of the outer frame and size of the inside, in the window system's logical pixels.
struct FramePlacement {
  FrameState state = FrameState::kNormal;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const FramePlacement&) const = default;
};

/// Position and size are as stored, whatever can be shown of them; `current` has their defaults.
FramePlacement ReadFramePlacement(settings::IniFile& ini, const FramePlacement& current);
/// With the part of its size that a window can have: a side is a 16-bit number in window systems, and the map
/// is kept as a picture, here of up to 1 GiB. `pixelRatio` is the number of pixels per logical pixel.
FramePlacement Showable(FramePlacement placement, double pixelRatio);
/// Minimised and maximised leave the stored position and size alone.
void SaveFramePlacement(settings::IniFile& ini, const FramePlacement& placement);

/// Unless `saved`, the file is not used and the result has the defaults.
data::DisplayOptions ReadDisplayOptions(settings::IniFile& ini, bool saved);
void SaveDisplayOptions(settings::IniFile& ini, const data::DisplayOptions& options);

}  // namespace zerbal::app
