// A bar that shows how far a long piece of work has come.
#pragma once

#include <iosfwd>
#include <string>

namespace zerbal::pack {

/// Draws itself again on the same line; silent when it is not shown. The line is gone when the bar is
/// destroyed.
class ProgressBar {
 public:
  ProgressBar(std::ostream& out, bool shown) : out_(out), shown_(shown) {}
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `done` from 0 to 1.
  void Show(double done, const std::string& what);

 private:
  std::ostream& out_;
  bool shown_;
  std::string line_;  ///< as it stands on the screen
};

}  // namespace zerbal::pack
