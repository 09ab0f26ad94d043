// Runs sessions of the program, each in a process of its own, and checks how they end.
#pragma once

#include <cstdint>

namespace zerbal::monkey {

/// Runs `program --session` until `actions` actions are done. Returns false at the first session that ends in
/// a way that is not allowed.
bool RunSessions(const char* program, std::uint32_t seed, int actions);

}  // namespace zerbal::monkey
