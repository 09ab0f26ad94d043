// Counters of the program are 16-bit signed integers, by its own definition; one more than they can hold is
// an error that ends the program, like the engine's.
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
