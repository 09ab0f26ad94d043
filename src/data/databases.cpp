#include "data/databases.h"

#include <utility>

#include "base/find_file.h"
#include "jet/database.h"
#include "jet/recordset.h"

namespace zerbal::data {
FoundFiles FindDataFiles(const std::filesystem::path& folder) {
  FoundFiles found;
  const auto require = [&](const char* name) -> std::filesystem::path {
    const auto file = base::FindFile(folder, name);
    if (!file)
      found.missing.push_back(folder / name);
    return file.value_or(std::filesystem::path());
  };
  found.files.zbldata = require("app_data/zbldata.mdb");
  found.files.qavdata = require("app_data/qavdata.mdb");
  found.files.allaprt = require("app_data/allaprt.mdb");
  found.files.coast = require("app_map/coast.mdb");
  found.files.river = base::FindFile(folder, "app_map/river.mdb");
  found.files.ibound = base::FindFile(folder, "app_map/ibound.mdb");
  return found;
}

ScheduleFile OpenSchedule(const std::filesystem::path& file) {
  const jet::Database database = jet::Database::Open(file);
  jet::Recordset services = database.OpenTable("fsrv");
  Airports destinations(database, "dest");
  // The parts of a braced list are made in their order.
  return {Schedule(std::move(services), database.OpenTable("flit")), std::move(destinations)};
}

Databases OpenDatabases(const DataFiles& files) {
  ScheduleFile schedule = OpenSchedule(files.qavdata);
  return {std::move(schedule.schedule), std::move(schedule.destinations),
          Airports(jet::Database::Open(files.allaprt), "allaprt"),
          BaseMap(files.coast, files.river, files.ibound)};
}

}  // namespace zerbal::data
