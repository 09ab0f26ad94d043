// What the operating systems do with folders in different ways. Failures are
// std::filesystem::filesystem_error.
#pragma once

#include <filesystem>

namespace zerbal::pack {

/// Creates a folder whose name begins with `prefix`, with the permissions of any new folder.
std::filesystem::path MakeWorkFolder(const std::filesystem::path& prefix);

/// Exchanges two existing folders; atomically where the system supports that.
void ExchangeFolders(const std::filesystem::path& a, const std::filesystem::path& b);

/// Exchanges them in three steps, and undoes the first one when the second fails.
void ExchangeInSteps(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace zerbal::pack
