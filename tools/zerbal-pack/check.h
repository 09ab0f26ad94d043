// Looks through a folder of data as the program would read it, and says in plain words what is wrong.
#pragma once

#include <filesystem>

#include "zerbal-pack/check_report.h"

namespace zerbal::pack {

/// Checks `folder`, which holds app_data and app_map.
CheckReport CheckFolder(const std::filesystem::path& folder);

}  // namespace zerbal::pack
