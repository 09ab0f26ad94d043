// The regions that a user can show, and the world.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "settings/ini_file.h"

namespace zerbal::data {

/// The meridian in the middle of the world view: the values of settings::kWorldCentre.
enum class WorldCentre { kGreenwich, kWest75, kChosen };

struct WorldCentreRule {
  WorldCentre centre;
  const char* caption;                ///< in the map settings
  std::optional<float> geoLongitude;  ///< nothing when the user chooses it
};

/// In the order of WorldCentre.
inline constexpr std::array kWorldCentreRules = {
    WorldCentreRule{WorldCentre::kGreenwich, "East 0°", 0.0F},
    WorldCentreRule{WorldCentre::kWest75, "West 75°", -75.0F},
    WorldCentreRule{WorldCentre::kChosen, "", std::nullopt},
};
constexpr const WorldCentreRule& RuleOf(WorldCentre centre) {
  return kWorldCentreRules[static_cast<std::size_t>(centre)];
}

/// A region's bounds in the map frame (degrees): longitude 0..360 from 180 W eastwards, latitude 0..180 from
/// the North Pole downwards. The east bound may be below the west bound: the region then runs through 360.
struct Region {
  std::string code;
  std::string name;
  double fromLon = 0;
  double fromLat = 0;
  double toLon = 0;
  double toLat = 0;
};

/// Row 0 is the world view; rows 1..RegionCount() are the regions in display order.
struct RegionTable {
  std::vector<Region> rows;
  WorldCentre centreWorld{settings::kWorldCentre.byDefault};
  float centreWorldAtLon = 0;  ///< of WorldCentre::kChosen: geographic longitude, -180..180

  int RegionCount() const { return rows.empty() ? 0 : static_cast<int>(rows.size()) - 1; }
  /// Fills row 0: 350 degrees around the centre, pole to pole.
  void ComputeWorldRow();
};

/// Loads rows 1..RegionCount from zbldata.mdb; there is no row at all when the table is empty. Throws
/// OverflowError beyond 32767 regions.
RegionTable LoadRegions(const std::filesystem::path& zbldata);

/// Reads the centre of the world and computes row 0. Missing keys are written with the default. False when
/// that fails. Throws jet::EngineError when no region has been loaded: there is no row 0 then.
bool ReadRegionSettings(settings::IniFile& ini, RegionTable& regions);

/// Chooses the centre of the world in the settings file and in the table, and computes row 0. `geoLongitude`
/// counts for WorldCentre::kChosen.
void ChooseWorldCentre(settings::IniFile& ini, RegionTable& regions, WorldCentre centre, double geoLongitude);

}  // namespace zerbal::data
