#include "dialogs/frm_colo_sett.h"

#include <QSignalBlocker>
#include <algorithm>

#include "paint/colour.h"
#include "ui_frm_colo_sett.h"

namespace zerbal::dialogs {

frmColoSett::frmColoSett(const Placement& placement, data::ColourTable& colours,
                         data::FlightServiceTable& services)
    : PlacedDialog(placement, settings::kColourSettingsPosition),
      ui_(std::make_unique<Ui::frmColoSett>()),
      colours_(colours),
      services_(services) {
  ui_->setupUi(this);
  for (const data::ColourRule& rule : data::kColourRules)
    ui_->cboSelObj->addItem(rule.caption);
  for (const data::Colour& colour : colours_.rows)
    working_.push_back(colour.rgb);
  for (const data::FlightService& service : services_) {
    ui_->cboSelObj->addItem(QString::fromStdString(service.displayText));
    working_.push_back(service.rgb);
  }
  sample_ = std::make_unique<ColourSample>(*ui_->picMap, services_);
  // The sample map scrolls only vertically, so the frame is wide enough for all names.
  ui_->picAll->setMinimumWidth(std::max(ui_->picAll->minimumWidth(), ui_->picMap->sizeHint().width()));
  for (std::size_t entry = 0; entry < working_.size(); ++entry)
    sample_->SetColour(entry, working_[entry]);

  ConnectGuarded(ui_->cboSelObj, &QComboBox::currentIndexChanged, this, &frmColoSett::ShowObject);
  for (QScrollBar* bar : {ui_->hsbRed, ui_->hsbGre, ui_->hsbBlu})
    ConnectGuarded(bar, &QScrollBar::valueChanged, this, &frmColoSett::TakeColour);
  ConnectGuarded(ui_->vsbMap, &QScrollBar::valueChanged, this,
                 [this](int value) { ui_->picMap->move(0, -value); });
  ConnectGuarded(ui_->cmdOK, &QPushButton::clicked, this, &frmColoSett::Confirm);
  ConnectGuarded(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
  ShowObject();
}

frmColoSett::~frmColoSett() = default;

void frmColoSett::resizeEvent(QResizeEvent* event) {
  PlacedDialog::resizeEvent(event);
  FitSample();
}

void frmColoSett::showEvent(QShowEvent* event) {
  PlacedDialog::showEvent(event);
  FitSample();
}

/// Gives the sample map the width of the frame, and the scroll bar its range.
void frmColoSett::FitSample() {
  const QRect frame = ui_->picAll->contentsRect();
  const QSize wanted = ui_->picMap->layout()->sizeHint();
  ui_->picMap->resize(std::max(wanted.width(), frame.width()), std::max(wanted.height(), frame.height()));
  const int hidden = ui_->picMap->height() - frame.height();
  ui_->vsbMap->setPageStep(frame.height());
  ui_->vsbMap->setSingleStep(fontMetrics().lineSpacing());
  ui_->vsbMap->setRange(0, hidden);
  ui_->vsbMap->setEnabled(hidden > 0);
}

void frmColoSett::ShowObject() {
  current_ = static_cast<std::size_t>(std::max(ui_->cboSelObj->currentIndex(), 0));
  const data::Rgb rgb = working_[current_];
  {
    const QSignalBlocker red(ui_->hsbRed);
    const QSignalBlocker green(ui_->hsbGre);
    const QSignalBlocker blue(ui_->hsbBlu);
    ui_->hsbRed->setValue(rgb.red);
    ui_->hsbGre->setValue(rgb.green);
    ui_->hsbBlu->setValue(rgb.blue);
  }
  TakeColour();
}

/// Gives the current entry the colour of the scroll bars.
void frmColoSett::TakeColour() {
  const data::Rgb rgb{static_cast<std::uint8_t>(ui_->hsbRed->value()),
                      static_cast<std::uint8_t>(ui_->hsbGre->value()),
                      static_cast<std::uint8_t>(ui_->hsbBlu->value())};
  working_[current_] = rgb;
  ui_->lblRedVal->setNum(rgb.red);
  ui_->lblGreVal->setNum(rgb.green);
  ui_->lblBluVal->setNum(rgb.blue);
  ui_->shpSelCol->SetColour(paint::ToQColor(rgb));
  sample_->SetColour(current_, rgb);
}

void frmColoSett::Confirm() {
  for (std::size_t i = 0; i < colours_.rows.size(); ++i)
    colours_.rows[i].rgb = working_[i];
  for (std::size_t i = 0; i < services_.size(); ++i)
    services_[i].rgb = working_[colours_.rows.size() + i];
  data::WriteColourSettings(Ini(), colours_);
  data::WriteFlightColourSettings(Ini(), services_);
  accept();
}

}  // namespace zerbal::dialogs
