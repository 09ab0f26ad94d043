// The program under test: the real start-up, windows and drawing, with a random source that scripts control
// and a recorder of the drawing operations.
#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "app/frm_map.h"
#include "app/program_state.h"
#include "map/recorder.h"

namespace zerbal::drive {

class DrivenProgram {
 public:
  DrivenProgram();
  ~DrivenProgram();

  /// Replaces the seed that the clock gives. Call it before Start.
  void Seed(std::uint32_t seed);
  /// The next values of the uniform generator, each in [0, 1). After them the generator continues.
  void QueueRandom(const std::vector<float>& values);

  /// Runs the start-up. Returns true when the main window is shown.
  bool Start();
  bool Running() const;

  // Only while the program runs.
  app::ProgramState& State();
  QWidget& MainWindow();
  app::frmMap& MapWindow();
  /// The operations of the last complete redraw and those drawn on it since.
  const std::vector<map::Operation>& Operations() const;
  /// The point of the airport drawn last since Start.
  std::optional<TwipPoint> LastAirport() const;
  /// Complete redraws since Start.
  int Draws() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace zerbal::drive
