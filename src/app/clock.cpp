#include "app/clock.h"

#include <QTime>
#include <algorithm>
#include <cmath>

namespace zerbal::app {

float SystemClock::SecondsSinceMidnight() {
  // The last milliseconds of a day would round up to the next day in single precision.
  const auto seconds = static_cast<float>(QTime::currentTime().msecsSinceStartOfDay() / 1000.0);
  return std::min(seconds, std::nextafter(kSecondsADay, 0.0F));
}

}  // namespace zerbal::app
