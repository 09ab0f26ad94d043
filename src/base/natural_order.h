// The order in which people expect flight numbers.
#pragma once

#include <algorithm>
#include <string_view>

namespace zerbal::base {

/// Whether a number stands at the start of `text`.
inline bool StartsWithDigit(std::string_view text) {
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

/// Takes the digits at the start of `text` off it. The result has no leading zeros.
inline std::string_view TakeDigits(std::string_view& text) {
  std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

/// Digits count as the number that they form: QV99 comes before QV101. Other characters are in byte order.
inline bool NaturalLess(std::string_view a, std::string_view b) {
  const std::string_view wholeA = a, wholeB = b;
  while (!a.empty() && !b.empty()) {
    if (StartsWithDigit(a) && StartsWithDigit(b)) {
      const std::string_view digitsOfA = TakeDigits(a), digitsOfB = TakeDigits(b);
      if (digitsOfA != digitsOfB)
        return digitsOfA.size() != digitsOfB.size() ? digitsOfA.size() < digitsOfB.size()
                                                    : digitsOfA < digitsOfB;
    } else if (a.front() != b.front()) {
      return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front());
    } else {
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.empty() != b.empty())
    return a.empty();
  return wholeA < wholeB;  // 7 and 07 are different texts
}

}  // namespace zerbal::base
