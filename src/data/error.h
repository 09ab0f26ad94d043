// Errors of the data: missing rows, and more rows than counters hold.
#pragma once

#include "base/error.h"

namespace zerbal::data {

/// The databases can be read, but rows are missing. what() is the message for the user, with settings::NL as
/// line break.
class LoadError : public base::Error {
 public:
  using base::Error::Error;
};

/// A counter would exceed 32767. Thrown by CountUp; ends the program as an engine error does.
class OverflowError : public base::Error {
 public:
  OverflowError() : Error("Overflow: more than 32767 entries.") {}
};

inline constexpr int kLargestCount =
    32767;  ///< of table rows and list entries; checked where they are counted

inline void CountUp(int& counter) {
  if (counter == kLargestCount)
    throw OverflowError();
  ++counter;
}

}  // namespace zerbal::data
