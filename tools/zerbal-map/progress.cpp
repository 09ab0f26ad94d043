#include "zerbal-map/progress.h"

#include <cmath>
#include <iomanip>
#include <ostream>
#include <utility>

namespace zerbal::mapcommand {
namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

ProgressLine::ProgressLine(std::ostream& out, bool shown, Clock clock)
    : out_(out), shown_(shown), clock_(std::move(clock)), next_(clock_() + kPatience) {}

ProgressLine::~ProgressLine() {
  if (!line_.empty())
    out_ << '\r' << std::setw(static_cast<int>(line_.size())) << "" << '\r' << std::flush;
}

void ProgressLine::Show(std::optional<double> done) {
  if (!shown_)
    return;
  const Time now = clock_();
  if (now < next_)
    return;
  next_ = now + kInterval;
  std::string line = "Drawing the map ...";
  if (done)
    line += ' ' + std::to_string(std::lround(*done * 100)) + " %";
  if (line == line_)
    return;
  line_ = line;
  out_ << '\r' << line_ << std::flush;
}

}  // namespace zerbal::mapcommand
