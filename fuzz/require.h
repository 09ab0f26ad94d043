// The condition checks of fuzz targets.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace zerbal::fuzz {

/// Aborts the process with `what` on standard error when `condition` is false.
inline void Require(bool condition, const char* what) {
  if (condition)
    return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::abort();
}

}  // namespace zerbal::fuzz
