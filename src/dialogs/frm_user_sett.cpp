#include "dialogs/frm_user_sett.h"

#include "ui_frm_user_sett.h"

namespace zerbal::dialogs {

frmUserSett::frmUserSett(const Placement& placement, settings::SaveFlags& flags)
    : PlacedDialog(placement, "UserSettings"),
      ui_(std::make_unique<Ui::frmUserSett>()),
      ini_(placement.ini),
      flags_(flags) {
  ui_->setupUi(this);
  ui_->chkMWinSave->setChecked(flags_.mainWindow);
  ui_->chkWinSave->setChecked(flags_.windows);
  ui_->chkMnuSave->setChecked(flags_.menuEntries);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &frmUserSett::Confirm);
  connect(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmUserSett::~frmUserSett() = default;

void frmUserSett::Confirm() {
  const auto store = [this](const char* section, const QCheckBox* box, bool& flag) {
    // A failed write has shown its box; the switch holds for this run all the same.
    ini_.Write(section, "Save", box->isChecked() ? "1" : "0");
    flag = box->isChecked();
  };
  store("MainWindow", ui_->chkMWinSave, flags_.mainWindow);
  store("Windows", ui_->chkWinSave, flags_.windows);
  store("MenuEntryChecked", ui_->chkMnuSave, flags_.menuEntries);
  accept();
}

}  // namespace zerbal::dialogs
