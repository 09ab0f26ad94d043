// The files of a monkey's world, below its folder.
#pragma once

#include <array>
#include <filesystem>

namespace zerbal::monkey {

inline const std::filesystem::path kSettingsFile = "zerbal.ini";
inline const std::array<std::filesystem::path, 6> kDatabaseFiles = {
    "app_data/zbldata.mdb", "app_data/qavdata.mdb", "app_data/allaprt.mdb",
    "app_map/coast.mdb",    "app_map/river.mdb",    "app_map/ibound.mdb"};
inline const std::filesystem::path& kScheduleFile = kDatabaseFiles[1];
/// Whole copies of all of them.
inline const std::filesystem::path kPristine = "pristine";

}  // namespace zerbal::monkey
