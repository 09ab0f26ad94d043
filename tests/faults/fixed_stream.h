// A stream into memory that it has from the start. Other streams count as written what they had no memory
// for.
#pragma once

#include <array>
#include <ostream>
#include <streambuf>
#include <string>

namespace zerbal::test {

class FixedStream : private std::streambuf, public std::ostream {
 public:
  FixedStream() : std::ostream(this) { Clear(); }

  void Clear() {
    std::ostream::clear();
    setp(bytes_.data(), bytes_.data() + bytes_.size());
  }
  std::string Text() const { return {pbase(), pptr()}; }

 private:
  std::array<char, 1U << 16U> bytes_;
};

}  // namespace zerbal::test
