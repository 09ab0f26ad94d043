// Life after life of the program, each a process of its own, watched from outside.
#pragma once

#include <cstdint>

namespace zerbal::monkey {

/// Runs `program --life` until `actions` actions were done. False at the first life that ends as none may.
bool PlayLives(const char* program, std::uint32_t seed, int actions);

}  // namespace zerbal::monkey
