// Counts of table rows and list entries are at most 32767. They are checked where they are filled.
#pragma once

#include "base/error.h"

namespace zerbal::data {

/// A counter would exceed 32767. Thrown by CountUp; ends the program as an engine error does.
class OverflowError : public base::Error {
 public:
  OverflowError() : Error("Overflow: more than 32767 entries.") {}
};

inline constexpr int kLargestCount = 32767;

inline void CountUp(int& counter) {
  if (counter == kLargestCount)
    throw OverflowError();
  ++counter;
}

}  // namespace zerbal::data
