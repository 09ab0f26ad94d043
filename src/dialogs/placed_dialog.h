// What all dialogs share: they open where they were closed, or centred over the main window.
#pragma once

#include <QDialog>

#include "settings/ini_values.h"
#include "settings/save_flags.h"

namespace zerbal::dialogs {

/// What a dialog needs to place itself; all of it outlives the dialog.
struct Placement {
  QWidget& mainWindow;
  settings::IniFile& ini;
  const settings::SaveFlags& flags;
};

/// A modal dialog that restores its position from the settings file before it is shown, and writes it there
/// whenever it closes, if positions are saved. A dialog's "confirmed" answer is QDialog::Accepted.
class PlacedDialog : public QDialog {
  Q_OBJECT

 public:
  PlacedDialog(const Placement& placement, const settings::PairSetting& position);

  void done(int result) override;
  void setVisible(bool visible) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  /// Takes the size that its contents ask for, as far as the screen has room for it.
  void FitContents();
  /// False when there is none to restore.
  bool RestorePosition();
  void RememberPosition();
  /// Moves the frame, of the given size, into the middle of the main window's frame.
  void Centre(QSize frame);
  void CentreOnceFramed();

  Placement placement_;
  settings::PairSetting position_;
  bool placed_ = false;
  bool awaitsFrame_ = false;  ///< stands in the middle by a guess of its frame
};

}  // namespace zerbal::dialogs
