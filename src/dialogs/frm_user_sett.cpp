#include "dialogs/frm_user_sett.h"

#include "ui_frm_user_sett.h"

namespace zerbal::dialogs {

frmUserSett::frmUserSett(const Placement& placement, settings::SaveFlags& flags)
    : PlacedDialog(placement, settings::kUserSettingsPosition),
      ui_(std::make_unique<Ui::frmUserSett>()),
      flags_(flags) {
  ui_->setupUi(this);
  ui_->chkMWinSave->setChecked(flags_.mainWindow);
  ui_->chkWinSave->setChecked(flags_.windows);
  ui_->chkMnuSave->setChecked(flags_.menuEntries);
  ConnectGuarded(ui_->cmdOK, &QPushButton::clicked, this, &frmUserSett::Confirm);
  ConnectGuarded(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmUserSett::~frmUserSett() = default;

void frmUserSett::Confirm() {
  const auto store = [this](const settings::SwitchSetting& setting, const QCheckBox* box, bool& flag) {
    // The switch applies to this run even if the write fails.
    Ini().Write(setting, box->isChecked());
    flag = box->isChecked();
  };
  store(settings::kSaveMainWindow, ui_->chkMWinSave, flags_.mainWindow);
  store(settings::kSaveWindows, ui_->chkWinSave, flags_.windows);
  store(settings::kSaveMenuEntries, ui_->chkMnuSave, flags_.menuEntries);
  accept();
}

}  // namespace zerbal::dialogs
