// How the main window opens the program's dialogs. Only the implementation knows their classes, so that the
// commands can be tested without them.
#pragma once

#include "app/program.h"
#include "dialogs/placed_dialog.h"

namespace zerbal::app {

enum class DialogKind {
  kUserSettings,
  kMapSettings,
  kColourSettings,
  kDelimitAllAirports,
  kDelimitDestinations,
  kRandomFlights,
  kSelectFlights,
  kSelectDestination,
  kHelpRevision,
  kHelpMouse,
  kHelpInfo
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Shows the dialog modally; true when the user confirmed it.
  virtual bool Confirmed(DialogKind kind, const dialogs::Placement& placement) = 0;
};

/// The real ones.
class ProgramDialogs final : public Dialogs {
 public:
  /// `program` outlives this.
  explicit ProgramDialogs(Program& program) : program_(program) {}
  bool Confirmed(DialogKind kind, const dialogs::Placement& placement) override;

 private:
  Program& program_;
};

}  // namespace zerbal::app
