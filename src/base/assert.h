// Assertions: conditions that hold unless the program itself has a defect, whatever users, files and the
// system do. Everything else that can go wrong is an error.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace zerbal::base {

/// Prints the condition and its place to standard error and aborts.
[[noreturn]] inline void FailAssertion(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, condition);
  std::abort();
}

}  // namespace zerbal::base

/// Ends the program unless `condition` is true. Without ZERBAL_ASSERTIONS, an option of the build, the
/// condition is compiled but not evaluated.
#ifdef ZERBAL_ASSERTIONS
#define ZERBAL_ASSERT(condition) \
  ((condition) ? static_cast<void>(0) : ::zerbal::base::FailAssertion(#condition, __FILE__, __LINE__))
#else
#define ZERBAL_ASSERT(condition) static_cast<void>(sizeof((condition) ? 1 : 0))
#endif
