// The generator of random tests. Each test has a fixed seed, so that all runs are equal. The environment
// variable ZERBAL_TEST_SEED replaces the seeds of all tests.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace zerbal::test {

/// The number in ZERBAL_TEST_SEED, or `fixed` when the variable is missing or empty.
inline std::uint32_t TestSeed(std::uint32_t fixed) {
  const char* value = std::getenv("ZERBAL_TEST_SEED");
  return value == nullptr || *value == '\0' ? fixed : static_cast<std::uint32_t>(std::stoul(value));
}

/// Prints its seed, and adds it to every failure during its lifetime.
class TestRandom : public std::mt19937 {
 public:
  explicit TestRandom(std::uint32_t fixedSeed, const char* file = __builtin_FILE(),
                      int line = __builtin_LINE())
      : std::mt19937(TestSeed(fixedSeed)), trace_(file, line, SeedText(fixedSeed)) {
    std::cout << SeedText(fixedSeed) << std::endl;
  }

 private:
  static std::string SeedText(std::uint32_t fixedSeed) {
    return "ZERBAL_TEST_SEED=" + std::to_string(TestSeed(fixedSeed));
  }

  testing::ScopedTrace trace_;
};

}  // namespace zerbal::test
