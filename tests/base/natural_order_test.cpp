#include "base/natural_order.h"

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(NaturalLess, OrdersNumbersByTheirValue) {
  const std::vector<std::string> sorted = {"",      "07",     "7",    "7A",    "10",  "QV", "QV1",
                                           "QV1/2", "QV1/10", "QV99", "QV101", "QVA", "QVB"};
  for (std::size_t a = 0; a < sorted.size(); ++a) {
    for (std::size_t b = 0; b < sorted.size(); ++b) {
      EXPECT_EQ(NaturalLess(sorted[a], sorted[b]), a < b) << sorted[a] << " " << sorted[b];
    }
  }
}

}  // namespace
}  // namespace zerbal::base
