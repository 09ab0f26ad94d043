// The files of a small world that the monkey corrupts, below the world's folder.
#pragma once

#include <filesystem>

#include "support/settings_file.h"
#include "support/small_world.h"

namespace zerbal::monkey {

using test::kDatabaseFiles;
using test::kScheduleFile;
using test::kSettingsFile;

/// The folder with intact copies of all files.
inline const std::filesystem::path kIntactCopies = "intact";

}  // namespace zerbal::monkey
