// A progress bar.
#pragma once

#include <iosfwd>
#include <string>

namespace zerbal::pack {

/// Overwrites its own line of the terminal; prints nothing when it is not shown. The destructor clears the
/// line.
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
  std::string line_;  ///< as shown
};

}  // namespace zerbal::pack
