// The map of the small world with all its layers.
#pragma once

#include <filesystem>
#include <string>

#include "data/databases.h"
#include "data/map_style.h"
#include "map/draw_map.h"
#include "support/everything_shown.h"

namespace zerbal::test {

class AllLayers {
 public:
  explicit AllLayers(const std::filesystem::path& folder)
      : files_(data::FindDataFiles(folder).files),
        databases_(data::OpenDatabases(files_)),
        style_(data::LoadMapStyle(files_.zbldata)),
        services_(databases_.schedule.LoadServices()),
        viewport_(data::kGridBands) {
    for (data::FlightService& service : services_)
      service.displayFlag = true;
    style_.regions.ComputeWorldRow();
    viewport_.SetSize(9600, 6000);
  }

  void Draw(const std::string& region, map::Surface& surface) {
    for (const data::Region& row : style_.regions.rows) {
      if (row.code == region)
        viewport_.SelectRegion(row);
    }
    viewport_.ComputeViewport();
    map::DrawMap(
        {viewport_, options_, style_, services_, databases_, criteria_, criteria_, flights_, CountError},
        surface);
  }

  static inline int errors = 0;

 private:
  static void CountError(const std::string&) { ++errors; }

  data::DataFiles files_;
  data::Databases databases_;
  data::MapStyle style_;
  data::FlightServiceTable services_;
  map::Viewport viewport_;
  data::DisplayOptions options_ = kEverythingShown;
  data::AirportCriteria criteria_;
  data::FlightSelection flights_;
};

}  // namespace zerbal::test
