// What `zerbal-pack build` needs for a folder with little content.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "pack/pack_fixture.h"
#include "zerbal-pack/build.h"

namespace zerbal::pack::test {

/// A map of one short line.
inline std::vector<TableSize> OneTableMap(const std::filesystem::path& parent,
                                          const std::function<void(double)>&) {
  WritePoints(parent / "app_map" / "coast.mdb", {"wcl"});
  return {};
}

/// Makes the folder `sources`: the schedule of the folder `schedule`, and the rest of the sample data. The
/// destinations are all airports.
inline void CopySmallSources(const std::filesystem::path& schedule, const std::filesystem::path& sources) {
  std::filesystem::create_directory(sources);
  for (const char* file : {"colours.csv", "fonts.csv", "regions.csv", "zblrev.ini"})
    std::filesystem::copy_file(kPackFolder / file, sources / file);
  for (const char* file : {"services.csv", "destinations.csv", "flights.csv"})
    std::filesystem::copy_file(schedule / file, sources / file);
  std::filesystem::copy_file(schedule / "destinations.csv", sources / "airports.csv");
}

}  // namespace zerbal::pack::test
