// The program under the driver: the real start-up, windows and drawing, with a random source that scripts can
// lead and a recorder beside the painter.
#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>
#include <vector>

#include "app/frm_map.h"
#include "app/program.h"
#include "map/recorder.h"

namespace zerbal::drive {

class DrivenProgram {
 public:
  DrivenProgram();
  ~DrivenProgram();

  /// Before Start: the seed that takes the place of the clock's.
  void Seed(std::uint32_t seed);
  /// The next values of the uniform generator.
  void PrepareRandom(const std::vector<float>& values);

  /// Runs the start-up; true when the main window is shown.
  bool Start();
  bool Running() const;

  // Only while it runs.
  app::Program& State();
  QWidget& MainWindow();
  app::frmMap& MapWindow();
  /// What the last complete redraw drew, and what was drawn on it since.
  const std::vector<map::Operation>& Operations() const;
  int Draws() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace zerbal::drive
