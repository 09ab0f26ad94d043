// The names of what is in a folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zerbal::base {

/// In UTF-8, without "." and "..", in no order; empty when the folder cannot be read. Throws std::bad_alloc,
/// with which the iterators of std::filesystem end the program.
std::vector<std::string> NamesInFolder(const std::filesystem::path& folder);

}  // namespace zerbal::base
