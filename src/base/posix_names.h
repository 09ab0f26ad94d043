// Names of POSIX that Windows lacks, for code that is the same on both.
#pragma once

#ifdef _WIN32
#include <fcntl.h>
#include <sys/types.h>

using uid_t = int;
using gid_t = int;

// Flags of open(). file_steps_windows.cpp evaluates the first one; the others are what Windows always does.
inline constexpr int O_DIRECTORY = 0x1000000;
inline constexpr int O_CLOEXEC = 0;
inline constexpr int O_NOCTTY = 0;
inline constexpr int O_NONBLOCK = 0;
#endif
