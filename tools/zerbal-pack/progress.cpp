#include "zerbal-pack/progress.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <ostream>

namespace zerbal::pack {

namespace {

constexpr int kBarWidth = 40;  // characters

}  // namespace

ProgressBar::~ProgressBar() {
  if (!line_.empty())
    out_ << "\r" << std::setw(static_cast<int>(line_.size())) << ""
         << "\r" << std::flush;
}

void ProgressBar::Show(double done, const std::string& what) {
  if (!shown_)
    return;
  const double part = std::clamp(done, 0.0, 1.0);
  const auto filled = static_cast<std::size_t>(std::floor(part * kBarWidth));
  const std::string percent = std::to_string(static_cast<int>(std::floor(part * 100)));
  std::string line = "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') + "] ";
  line.append(3 - std::min<std::size_t>(percent.size(), 3), ' ').append(percent).append("% ").append(what);
  if (line == line_)
    return;
  const std::size_t rest = line_.size() > line.size() ? line_.size() - line.size() : 0;
  out_ << "\r" << line << std::string(rest, ' ') << std::flush;
  line_ = line;
}

}  // namespace zerbal::pack
