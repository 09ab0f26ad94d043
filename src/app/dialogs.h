// How commands open the program's dialogs. Only the implementation knows their classes, so that commands are
// tested without them.
#pragma once

#include <QString>
#include <filesystem>
#include <optional>

#include "app/program_state.h"
#include "dialogs/finder_dialog.h"

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
  /// Shows the dialog over the main window until it is closed. True when the user accepted it.
  virtual bool ShowModal(DialogKind kind, QWidget& mainWindow) = 0;
  /// Asks for the file that the map is saved in. It ends in the suffix of a format. nullopt when the user
  /// aborts.
  virtual std::optional<std::filesystem::path> AskMapFile(QWidget& mainWindow) = 0;
};

/// The real ones.
class ProgramDialogs final : public Dialogs {
 public:
  /// What the dialogs read and change; all of it outlives this.
  struct Subjects {
    SettingsFile& settingsFile;
    settings::MessageBoxes& boxes;
    data::RandomSource& random;
    const data::DataFiles& files;
    const std::optional<data::Databases>& databases;  ///< open whenever a dialog is shown
    MapState& map;
    Delimitations& delimitations;
    data::FlightFinderState& finder;
  };
  explicit ProgramDialogs(const Subjects& subjects) : subjects_(subjects) {}
  bool ShowModal(DialogKind kind, QWidget& mainWindow) override;
  /// Suggests the file of the last time.
  std::optional<std::filesystem::path> AskMapFile(QWidget& mainWindow) override;

 private:
  dialogs::FinderContext Finder() const;

  Subjects subjects_;
  QString mapFile_ = "map.png";
};

}  // namespace zerbal::app
