// Random decisions that a seed repeats. They use only arithmetic whose result does not depend on the standard
// library.
#pragma once

#include <QString>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>

namespace zerbal::monkey {

class RandomChoice {
 public:
  explicit RandomChoice(std::uint64_t seed) : generator_(seed) {}

  /// 0 <= result < count; 0 when `count` is 0 or less.
  int Below(int count) {
    return count <= 0 ? 0 : static_cast<int>(generator_() % static_cast<std::uint64_t>(count));
  }
  int Between(int lowest, int highest) { return lowest + Below(highest - lowest + 1); }
  bool OneIn(int count) { return Below(count) == 0; }
  /// A length from 1 to `longest`; each order of magnitude is equally likely.
  int Length(int longest) {
    const double part = Below(100001) / 100000.0;
    return static_cast<int>(std::lround(std::pow(static_cast<double>(longest), part)));
  }
  template <class List>
  auto& ElementOf(List& list) {
    return *std::next(std::begin(list), Below(static_cast<int>(std::size(list))));
  }

  /// A text to type or paste: mostly numbers near a limit, sometimes other text.
  QString Text() {
    static const QString kTexts[] = {"",
                                     "0",
                                     "7",
                                     "42",
                                     "359",
                                     "-1",
                                     "32767",
                                     "32768",
                                     "99999",
                                     "2147483647",
                                     "2147483648",
                                     "9999999999",
                                     "1.5",
                                     "1e9",
                                     "Oslo",
                                     "O",
                                     " ",
                                     "\u00e6\u00f8\u00e5",
                                     "\u4e2d\u6587",
                                     "a&b",
                                     "%1 %s %n",
                                     "0x10"};
    if (OneIn(40))
      return QString(Between(100, 5000), QChar('9'));
    return ElementOf(kTexts);
  }

 private:
  std::mt19937_64 generator_;
};

}  // namespace zerbal::monkey
