// No value, in a std::variant.
#pragma once

namespace zerbal::base {

/// Copied by functions of its own on purpose: libstdc++ 12 takes a variant of trivial types, strings and
/// vectors for one that always has a value, and destroys a value that is not there when memory runs out in a
/// copy. std::monostate is such a trivial type.
struct Null {
  Null() = default;
  Null(const Null&) noexcept {}
  Null& operator=(const Null&) noexcept { return *this; }
  bool operator==(const Null&) const = default;
};

}  // namespace zerbal::base
