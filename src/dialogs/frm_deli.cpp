#include "dialogs/frm_deli.h"

#include "ui_frm_deli.h"

namespace zerbal::dialogs {

frmDeli::frmDeli(const Placement& placement, Layer layer, data::AirportCriteria& set,
                 settings::MessageBoxes& boxes)
    : PlacedDialog(placement, layer == Layer::kAllAirports ? settings::kDelimitAllAirportsPosition
                                                           : settings::kDelimitDestinationsPosition),
      ui_(std::make_unique<Ui::frmDeli>()),
      set_(set),
      boxes_(boxes) {
  ui_->setupUi(this);
  const bool all = layer == Layer::kAllAirports;
  setObjectName(all ? "frmDeliAprt" : "frmDeliDest");
  setWindowTitle(all ? "Delimitation for all airports" : "Delimitation for QAV destinations");
  CollectGroups();
  Fill();
  for (const Group& group : groups_) {
    ConnectGroup(group);
    EnableGroup(group);
  }
  ConnectGuarded(ui_->chkILS, &QCheckBox::toggled, this, &frmDeli::EnableIls);
  EnableIls();
  ConnectGuarded(ui_->cmdOK, &QPushButton::clicked, this, &frmDeli::Confirm);
  ConnectGuarded(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmDeli::~frmDeli() = default;

void frmDeli::CollectGroups() {
  groups_ = {
      Group{.active = ui_->chkElev,
            .limits = {ui_->optElevZw, ui_->optElevGr, ui_->optElevKl},
            .from = ui_->txtElevZwVon,
            .to = ui_->txtElevZwBis,
            .atLeast = ui_->txtElevGr,
            .atMost = ui_->txtElevKl,
            .besideLimit = {{{ui_->txtElevZwVon, ui_->lblElevZwAnd, ui_->txtElevZwBis, ui_->lblElevZwUnit},
                             {ui_->txtElevGr, ui_->lblElevGrUnit},
                             {ui_->txtElevKl, ui_->lblElevKlUnit}}}},
      Group{.active = ui_->chkRwyAnz,
            .limits = {ui_->optRwyAnzZw, ui_->optRwyAnzGr, ui_->optRwyAnzKl},
            .from = ui_->txtRwyAnzZwVon,
            .to = ui_->txtRwyAnzZwBis,
            .atLeast = ui_->txtRwyAnzGr,
            .atMost = ui_->txtRwyAnzKl,
            .besideLimit = {{{ui_->txtRwyAnzZwVon, ui_->lblRwyAnzZwAnd, ui_->txtRwyAnzZwBis,
                              ui_->lblRwyAnzZwUnit},
                             {ui_->txtRwyAnzGr, ui_->lblRwyAnzGrUnit},
                             {ui_->txtRwyAnzKl, ui_->lblRwyAnzKlUnit}}}},
      Group{.active = ui_->chkRwyLen,
            .limits = {ui_->optRwyLenZw, ui_->optRwyLenGr, ui_->optRwyLenKl},
            .from = ui_->txtRwyLenZwVon,
            .to = ui_->txtRwyLenZwBis,
            .atLeast = ui_->txtRwyLenGr,
            .atMost = ui_->txtRwyLenKl,
            .besideLimit = {{{ui_->txtRwyLenZwVon, ui_->lblRwyLenZwAnd, ui_->txtRwyLenZwBis,
                              ui_->lblRwyLenZwUnit},
                             {ui_->txtRwyLenGr, ui_->lblRwyLenGrUnit},
                             {ui_->txtRwyLenKl, ui_->lblRwyLenKlUnit}}}},
  };
}

void frmDeli::Fill() {
  for (std::size_t n = 0; n < groups_.size(); ++n) {
    const Group& group = groups_[n];
    const data::NumericCriterion& criterion = set_.numeric[n];
    group.active->setChecked(criterion.active);
    group.limits[static_cast<std::size_t>(criterion.limit)]->setChecked(true);
    group.from->SetNumber(criterion.from);
    group.to->SetNumber(criterion.to);
    group.atLeast->SetNumber(criterion.atLeast);
    group.atMost->SetNumber(criterion.atMost);
  }
  ui_->chkILS->setChecked(set_.ilsActive);
  (set_.withIls ? ui_->optILSMit : ui_->optILSOhne)->setChecked(true);
}

void frmDeli::ConnectGroup(const Group& group) {
  const auto enable = [group] { EnableGroup(group); };
  ConnectGuarded(group.active, &QCheckBox::toggled, this, enable);
  for (QRadioButton* limit : group.limits)
    ConnectGuarded(limit, &QRadioButton::toggled, this, enable);
}

void frmDeli::EnableGroup(const Group& group) {
  const bool active = group.active->isChecked();
  for (std::size_t n = 0; n < group.limits.size(); ++n) {
    group.limits[n]->setEnabled(active);
    for (QWidget* control : group.besideLimit[n])
      control->setEnabled(active && group.limits[n]->isChecked());
  }
}

void frmDeli::EnableIls() {
  ui_->optILSMit->setEnabled(ui_->chkILS->isChecked());
  ui_->optILSOhne->setEnabled(ui_->chkILS->isChecked());
}

void frmDeli::AskAgain(const Group& group) {
  if (group.from->isEnabled())
    group.from->AskAgain();
  else if (!group.active->isChecked())
    group.active->setFocus();
  else
    group.limits[0]->setFocus();
}

void frmDeli::Confirm() {
  // Every pair is checked, selected or not, because every number is stored.
  for (const Group& group : groups_) {
    if (group.from->Number() > group.to->Number()) {
      boxes_.Show(settings::BoxIcon::kExclamation, "The from-value cannot be larger than the to-value");
      AskAgain(group);
      return;
    }
  }
  for (std::size_t n = 0; n < groups_.size(); ++n) {
    const Group& group = groups_[n];
    const auto limit = group.limits[0]->isChecked()   ? data::Limit::kBetween
                       : group.limits[1]->isChecked() ? data::Limit::kAtLeast
                                                      : data::Limit::kAtMost;
    set_.numeric[n] = {group.active->isChecked(), limit,
                       group.from->Number(),      group.to->Number(),
                       group.atLeast->Number(),   group.atMost->Number()};
  }
  set_.ilsActive = ui_->chkILS->isChecked();
  set_.withIls = ui_->optILSMit->isChecked();
  accept();
}

}  // namespace zerbal::dialogs
