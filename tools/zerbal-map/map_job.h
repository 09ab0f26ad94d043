// One map to be drawn: data, view and contents, as the options say.
#pragma once

#include <optional>

#include "data/databases.h"
#include "data/flight.h"
#include "data/map_style.h"
#include "map/draw_map.h"
#include "map/flight_comparison.h"
#include "map/shown_flights.h"
#include "zerbal-map/options.h"
#include "zerbal-map/page.h"
#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

class MapJob {
 public:
  /// Opens the data. Throws UsageError for a value that the data does not know (region, service, flight,
  /// airport), another base::Error when the data cannot be used. Writes nothing.
  explicit MapJob(const Options& options);

  /// Draws the map as the map window does; the surface's area has the options' logical size.
  void Draw(map::Surface& surface);
  /// The same with the options for print.
  void DrawForPrint(print::PrintSurface& surface);

  /// What Draw shows of flights and airports, as map data. Without a view, or with the world, nothing is left
  /// out, not even what the widest view does not show.
  Routes GatherRoutes() const;

  /// What Draw shows, for a page. With the world, flights that the widest view does not show are in it too.
  Page GatherPage() const;

 private:
  void LoadTables();
  void ReadSettings();
  void ReadStyle();
  void ChooseView();
  void ChooseFlights();
  void ShowServices();
  void CompareFlights();
  bool IsShownOfDropped(const data::Flight& flight) const;
  map::MapScene Scene() const;
  print::PrintScene ForPrint(const map::MapScene& scene) const;
  map::FlightExtent Extent() const;  ///< the widest view does not show all of the world

  const Options options_;
  std::optional<data::Databases> databases_;
  data::MapStyle style_;
  data::FlightServiceTable services_;
  print::PrintStyle printStyle_;
  std::optional<map::Viewport> viewport_;
  std::string place_;  ///< name of the region; empty for bounds
  data::FlightSelection flights_;
  std::optional<std::string> touching_;  ///< as in the table
  std::optional<data::ScheduleFile> oldSchedule_;
  std::optional<map::FlightComparison> comparison_;
};

}  // namespace zerbal::mapcommand
