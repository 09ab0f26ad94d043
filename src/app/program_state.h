// What the windows, commands and dialogs of the running program share. RunningProgram owns it; each of them
// receives the parts that it reads and changes.
#pragma once

#include <filesystem>
#include <optional>

#include "app/clock.h"
#include "app/random_generator.h"
#include "data/airport_criteria.h"
#include "data/databases.h"
#include "data/display_options.h"
#include "data/flight.h"
#include "data/flight_finder.h"
#include "data/map_style.h"
#include "map/surface.h"
#include "map/viewport.h"
#include "settings/ini_file.h"
#include "settings/message_boxes.h"

namespace zerbal::app {

/// What the program takes from outside itself; tests and the script driver supply their own. All of it
/// outlives the program.
struct Environment {
  std::filesystem::path appPath;  ///< the working directory at start, with a separator at its end
  Clock& clock;
  RandomGenerator& random;
  settings::MessageBoxes& boxes;
  map::Surface* mapObserver = nullptr;  ///< receives everything that is drawn on the map
};

/// The settings file and what the program remembers in it.
struct SettingsFile {
  SettingsFile(const std::filesystem::path& appPath, settings::MessageBoxes& boxes);

  settings::IniFile ini;  ///< "zerbal.ini" in `appPath`
  settings::SaveFlags saveFlags;
};

/// What the map shows. Commands change it.
struct MapState {
  map::Viewport viewport{data::kGridBands};
  data::MapStyle style;
  data::FlightServiceTable services;
  data::DisplayOptions display;
  data::FlightSelection flights;
};

/// Which airports the two airport layers show.
struct Delimitations {
  data::AirportCriteria allAirports;
  data::AirportCriteria destinations;
};

struct ProgramState {
  ProgramState(const std::filesystem::path& appPath, settings::MessageBoxes& boxes)
      : settingsFile(appPath, boxes) {}

  SettingsFile settingsFile;
  data::DataFiles files;
  std::optional<data::Databases> databases;  ///< from the start until the main window is closed
  MapState map;
  Delimitations delimitations;
  data::FlightFinderState finder;
};

/// The path with one separator at its end.
std::filesystem::path WithSeparator(const std::filesystem::path& folder);

}  // namespace zerbal::app
