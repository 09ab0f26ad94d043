// Checks a folder of data against what the program reads from it.
#pragma once

#include <filesystem>

#include "zerbal-pack/check_report.h"

namespace zerbal::pack {

/// Checks `folder`, which holds app_data and app_map.
CheckReport CheckFolder(const std::filesystem::path& folder);

}  // namespace zerbal::pack
