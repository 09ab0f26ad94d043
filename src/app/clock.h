// The time of day.
#pragma once

namespace zerbal::app {

inline constexpr float kSecondsADay = 86400;

/// Tests replace it.
class Clock {
 public:
  virtual ~Clock() = default;
  /// 0 <= seconds < kSecondsADay, local time.
  virtual float SecondsSinceMidnight() = 0;
};

/// The computer's clock.
class SystemClock final : public Clock {
 public:
  float SecondsSinceMidnight() override;
};

}  // namespace zerbal::app
