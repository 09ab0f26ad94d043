// Counts of table rows and list entries are at most 32767. They are checked where they are filled.
#pragma once

#include <stdexcept>

namespace zerbal::data {

/// A counter would exceed 32767. Ends the program, as jet::EngineError does.
class OverflowError : public std::runtime_error {
 public:
  OverflowError() : std::runtime_error("Overflow: more than 32767 entries.") {}
};

inline constexpr int kLargestCount = 32767;

inline void CountUp(int& counter) {
  if (counter == kLargestCount)
    throw OverflowError();
  ++counter;
}

}  // namespace zerbal::data
