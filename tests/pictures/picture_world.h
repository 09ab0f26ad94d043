// The world that the reference pictures show.
#pragma once

#include <filesystem>

namespace zerbal::test {

/// Writes the small world with rough coasts, aircraft symbols that are easy to see, fonts of known names, and
/// flights of the service FAN from one airport in all directions, in the Gulf of Guinea. Its folder
/// kOlderFolder has the same before some flights of FAN were added and others were dropped.
void WritePictureWorlds(const std::filesystem::path& folder);
inline constexpr const char* kOlderFolder = "older";

}  // namespace zerbal::test
