// What the sources for Windows share. Only they include it.
#pragma once

#include <filesystem>
#include <string>

#include <windows.h>
#undef WriteProfileString  // a name of the project

namespace zerbal::base {

/// The error number of POSIX for what GetLastError() says.
int LastErrno();

/// The path as Windows' calls take it. A long one becomes absolute and gets the prefix that lifts the limit
/// of 260 characters.
std::wstring SystemPath(const std::filesystem::path& path);

/// Opens a file or folder for sharing with everybody, as POSIX does. INVALID_HANDLE_VALUE for a failure.
HANDLE OpenShared(const std::filesystem::path& path, DWORD access, DWORD creation);

}  // namespace zerbal::base
