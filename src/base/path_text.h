// Paths in UTF-8. `path::string` gives UTF-8 everywhere, but the constructor from a string does not take it
// on Windows.
#pragma once

#include <filesystem>
#include <string_view>

namespace zerbal::base {

inline std::filesystem::path PathOf(std::string_view text) {
  const auto* first = reinterpret_cast<const char8_t*>(text.data());
  return {first, first + text.size()};
}

}  // namespace zerbal::base
