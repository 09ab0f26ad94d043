#include "paint/draw_log.h"

#include <gtest/gtest.h>

#include "support/captured_log.h"

namespace zerbal::paint {
namespace {

using test::CapturedLog;
using Lines = std::vector<std::string>;

TEST(DrawLog, IsOffByDefault) {
  const CapturedLog log;
  LogDrawError("coast: a page is cut off");
  EXPECT_EQ(CapturedLog::Lines(), Lines{});
}

TEST(DrawLog, LogsOneLinePerErrorWhenARuleEnablesIt) {
  const CapturedLog log("zerbal.draw=true");
  LogDrawError("coast: a page is cut off");
  LogDrawError("rivers: \"quoted\"");
  EXPECT_EQ(CapturedLog::Lines(), (Lines{"coast: a page is cut off", "rivers: \"quoted\""}));
}

}  // namespace
}  // namespace zerbal::paint
