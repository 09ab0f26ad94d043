// What the settings file remembers of the main window: state, position, size and the check marks.
#pragma once

#include "data/display_options.h"
#include "settings/ini_values.h"
#include "settings/save_flags.h"

namespace zerbal::app {

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

// Every read writes the value that holds without it when the key is missing. What cannot be read, and what is
// none of the allowed values, counts as said for each.

/// Key "Save" of a section: "1" is true, anything else false.
bool ReadSwitch(settings::IniFile& ini, const char* section, bool byDefault);

/// Section "MainWindow". A state other than 0, 1, 2 is normal; `current` stands in for position and size.
FramePlacement ReadFramePlacement(settings::IniFile& ini, const FramePlacement& current);
/// Minimised and maximised leave the stored position and size alone.
void SaveFramePlacement(settings::IniFile& ini, const FramePlacement& placement);

/// Section "MenuEntryChecked". The file is not touched, and the result is as designed, unless `saved`.
data::DisplayOptions ReadDisplayOptions(settings::IniFile& ini, bool saved);
void SaveDisplayOptions(settings::IniFile& ini, const data::DisplayOptions& options);

}  // namespace zerbal::app
