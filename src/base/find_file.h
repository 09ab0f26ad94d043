// Files by their name without regard to letter case.
#pragma once

#include <filesystem>
#include <optional>

namespace zerbal::base {

/// The file `relativeName` below `folder`. Each part of the name (not of `folder`) is looked up as spelled
/// first, then without regard to ASCII letter case; among several the first in byte order. nullopt when there
/// is none, or when it is a folder. Never throws.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder,
                                              const std::filesystem::path& relativeName);

}  // namespace zerbal::base
