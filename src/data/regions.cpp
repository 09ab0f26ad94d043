#include "data/regions.h"

#include "base/coordinates.h"
#include "data/error.h"
#include "data/table_access.h"
#include "jet/error.h"

namespace zerbal::data {

void RegionTable::ComputeWorldRow() {
  constexpr double kSpan = 350;
  const float centre = RuleOf(centreWorld).geoLongitude.value_or(centreWorldAtLon);
  double from = ToMapLon(centre) - kSpan / 2;
  if (from < 0)
    from += 360;
  double to = from + kSpan;
  if (to > 360)
    to -= 360;
  Region& world = rows.at(0);
  world.fromLon = from;
  world.fromLat = 0;
  world.toLon = to;
  world.toLat = 180;
}

RegionTable LoadRegions(const std::filesystem::path& zbldata) {
  RegionTable regions;
  jet::Recordset reg = OpenWithIndex(jet::Database::Open(zbldata), "reg", "sort");
  int count = 0;
  for (reg.MoveFirst(); !reg.Eof(); reg.MoveNext()) {
    if (count == 0)
      regions.rows.emplace_back();  // row 0, the world
    CountUp(count);
    regions.rows.push_back({reg["Reg"].AsText(), reg["Reg_Name"].AsText(), reg["Reg_FromLon"].AsDouble(),
                            reg["Reg_FromLat"].AsDouble(), reg["Reg_ToLon"].AsDouble(),
                            reg["Reg_ToLat"].AsDouble()});
  }
  return regions;
}

bool ReadRegionSettings(settings::IniFile& ini, RegionTable& regions) {
  const auto centre = ini.Read(settings::kWorldCentre);
  if (!centre)
    return false;
  const auto longitude = ini.Read(settings::kWorldCentreLongitude);
  if (!longitude)
    return false;
  if (regions.rows.empty())
    throw jet::EngineError("zbldata.mdb", "reg", "there is no region; at least one is needed");
  regions.centreWorld = static_cast<WorldCentre>(*centre);
  regions.centreWorldAtLon = static_cast<float>(*longitude);
  regions.ComputeWorldRow();
  return true;
}

void ChooseWorldCentre(settings::IniFile& ini, RegionTable& regions, WorldCentre centre,
                       double geoLongitude) {
  regions.centreWorld = centre;
  ini.Write(settings::kWorldCentre, static_cast<int>(centre));
  if (centre == WorldCentre::kChosen) {
    regions.centreWorldAtLon = static_cast<float>(geoLongitude);
    ini.Write(settings::kWorldCentreLongitude, geoLongitude);
  }
  regions.ComputeWorldRow();
}

}  // namespace zerbal::data
