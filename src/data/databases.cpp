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

Databases OpenDatabases(const DataFiles& files) {
  const jet::Database schedule = jet::Database::Open(files.qavdata);
  jet::Recordset services = schedule.OpenTable("fsrv");
  Airports destinations(schedule, "dest");
  // The parts of a braced list are made in their order.
  return {Schedule(std::move(services), schedule.OpenTable("flit")), std::move(destinations),
          Airports(jet::Database::Open(files.allaprt), "allaprt"),
          BaseMap(files.coast, files.river, files.ibound)};
}

}  // namespace zerbal::data
