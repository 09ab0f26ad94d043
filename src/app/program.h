// Everything that the running program holds, built by start-up step by step and owned by it. Windows and
// operations are given the members that they read and write, never the whole.
#pragma once

#include <filesystem>
#include <optional>

#include "app/clock.h"
#include "app/random_generator.h"
#include "data/airport_criteria.h"
#include "data/databases.h"
#include "data/display_options.h"
#include "data/flight_finder.h"
#include "data/flight_selection.h"
#include "data/flight_services.h"
#include "data/map_style.h"
#include "map/surface.h"
#include "map/viewport.h"
#include "settings/ini_file.h"
#include "settings/message_boxes.h"
#include "settings/save_flags.h"

namespace zerbal::app {

/// What the program takes from outside itself; tests and the script driver supply their own. All of it
/// outlives the program.
struct Environment {
  std::filesystem::path appPath;  ///< the working directory at start, with a separator at its end
  Clock& clock;
  RandomGenerator& random;
  settings::MessageBoxes& boxes;
  map::Surface* mapObserver =
      nullptr;  ///< is given everything that is drawn on the map, from the first redraw
};

struct Program {
  explicit Program(const Environment& outside);
  // The viewport refers to the bands beside it.
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  Environment environment;
  settings::IniFile iniFile;  ///< "zerbal.ini" in the working directory
  data::DataFiles files;
  bool riverAvailable = false;
  bool boundaryAvailable = false;

  std::optional<data::Databases> databases;  ///< open from OpenDatabases to CloseDatabases
  data::MapStyle style;
  data::FlightServiceTable services;
  settings::SaveFlags saveFlags;
  map::Viewport viewport;
  data::DisplayOptions display;
  data::AirportCriteria allAirportCriteria;
  data::AirportCriteria destinationCriteria;
  data::FlightSelection flights;
  data::FlightFinderState finder;
};

/// The path with one separator at its end.
std::filesystem::path WithSeparator(const std::filesystem::path& folder);

}  // namespace zerbal::app
