// Everything that the running program holds, built by start-up step by step and owned by it. Windows and
// operations are given the members that they read and write, never the whole.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "data/databases.h"
#include "data/flight_finder.h"
#include "data/random_source.h"
#include "data/reference_tables.h"
#include "map/criteria.h"
#include "map/draw_map.h"
#include "map/viewport.h"
#include "settings/ini_values.h"
#include "settings/message_boxes.h"
#include "settings/save_flags.h"

namespace zerbal::app {

/// Seconds since midnight, as the start-up's wait reads them.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual double SecondsSinceMidnight() = 0;
};

/// What the program takes from outside itself; tests and the script driver supply their own.
struct Environment {
  std::filesystem::path appPath;  ///< the working directory at start
  Clock& clock;
  data::RandomSource& random;
  settings::MessageBoxes& boxes;
};

struct Program {
  explicit Program(const Environment& environment);

  Environment environment;
  settings::IniValues iniValues;
  settings::IniFile iniFile;  ///< appPath / "zerbal.ini"
  data::DataFiles files;
  bool riverAvailable = false;
  bool boundaryAvailable = false;

  std::optional<data::Databases> databases;  ///< open from OpenDatabases to CloseDatabases
  data::ReferenceTables tables;
  settings::SaveFlags saveFlags;
  map::Viewport viewport;
  map::DisplayOptions display;
  map::AirportCriteria allAirportCriteria;
  map::AirportCriteria destinationCriteria;
  map::FlightSelection flights;
  data::FlightFinderState finder;
};

}  // namespace zerbal::app
