// What a terminal shows while a map is drawn.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace zerbal::mapcommand {

/// One line that overwrites itself and disappears at the end. It appears when drawing has taken a second.
class ProgressLine {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Clock = std::function<Time()>;

  /// Without `shown`, nothing is written: to files and pipes.
  ProgressLine(std::ostream& out, bool shown, Clock clock = std::chrono::steady_clock::now);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// `done` is 0 to 1; nullopt when that is not known. To be called often.
  void Show(std::optional<double> done);

 private:
  std::ostream& out_;
  bool shown_;
  Clock clock_;
  Time next_;  ///< when the line is written again at the earliest
  std::string line_;
};

}  // namespace zerbal::mapcommand
