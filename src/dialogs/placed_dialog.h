// The base class of all dialogs: they open where they were closed, or centred over the main window.
#pragma once

#include <QDialog>

#include "dialogs/guarded.h"
#include "settings/ini_file.h"

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
  settings::IniFile& Ini() const { return placement_.ini; }
  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void Place();
  /// Takes the preferred size of its contents, limited to the screen.
  void FitContents();
  /// False when there is no position to restore.
  bool RestorePosition();
  void RememberPosition();
  /// Centres the frame, of the given size, over the frame of the main window.
  void Centre(QSize frame);
  void CentreOnceFramed();

  Placement placement_;
  settings::PairSetting position_;
  bool placed_ = false;
  bool awaitsFrame_ = false;  ///< centred with an estimated frame
};

}  // namespace zerbal::dialogs
