// Counts of table rows and list entries are 16-bit signed integers. Counting beyond 32767 throws an error
// that ends the program as an engine error does.
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace zerbal::data {

/// A 16-bit counter would have to go beyond 32767.
class OverflowError : public std::runtime_error {
 public:
  OverflowError() : std::runtime_error("Overflow: more than 32767 entries.") {}
};

inline void CountUp(std::int16_t& counter) {
  if (counter == std::numeric_limits<std::int16_t>::max())
    throw OverflowError();
  ++counter;
}

}  // namespace zerbal::data
