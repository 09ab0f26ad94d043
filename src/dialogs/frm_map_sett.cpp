#include "dialogs/frm_map_sett.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "ui_frm_map_sett.h"

namespace zerbal::dialogs {
namespace {

constexpr int kWest = 0;
constexpr int kEast = 1;

}  // namespace

frmMapSett::frmMapSett(const Placement& placement, data::RegionTable& regions, data::FontTable& fonts,
                       const QStringList& installedFonts, settings::MessageBoxes& boxes)
    : PlacedDialog(placement, settings::kMapSettingsPosition),
      ui_(std::make_unique<Ui::frmMapSett>()),
      regions_(regions),
      fonts_(fonts),
      boxes_(boxes) {
  ui_->setupUi(this);
  FillCentre();
  fontRows_ = {FontRow{data::FontCode::kLoRes, ui_->cboFontLoRes, ui_->cboSizeLoRes, ui_->lblFontLoRes},
               FontRow{data::FontCode::kHiRes, ui_->cboFontHiRes, ui_->cboSizeHiRes, ui_->lblFontHiRes}};
  for (const FontRow& row : fontRows_)
    FillFont(row, installedFonts);
  ConnectGuarded(ui_->cmdOK, &QPushButton::clicked, this, &frmMapSett::Confirm);
  ConnectGuarded(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmMapSett::~frmMapSett() = default;

void frmMapSett::FillCentre() {
  ui_->lblCentGrw->setText(RuleOf(data::WorldCentre::kGreenwich).caption);
  ui_->lblCentCar->setText(RuleOf(data::WorldCentre::kWest75).caption);
  ui_->cboCentOth->addItems({"West", "East"});
  ui_->cboCentOth->setCurrentIndex(kEast);
  if (regions_.centreWorld == data::WorldCentre::kGreenwich) {
    ui_->optCentGrw->setChecked(true);
  } else if (regions_.centreWorld == data::WorldCentre::kWest75) {
    ui_->optCentCar->setChecked(true);
  } else {
    ui_->optCentOth->setChecked(true);
    const float centre = regions_.centreWorldAtLon;
    ui_->txtCentOth->setText(QString::fromStdString(base::DecimalText(std::abs(centre))));
    ui_->cboCentOth->setCurrentIndex(centre < 0 ? kWest : kEast);
  }
}

void frmMapSett::FillFont(const FontRow& row, const QStringList& installedFonts) {
  const data::Font& font = fonts_[row.code];
  row.family->addItems(installedFonts);
  int family = row.family->findText(QString::fromStdString(font.name), Qt::MatchFixedString);
  if (family < 0)
    family = row.family->findText(data::kFallbackFont, Qt::MatchFixedString);
  row.family->setCurrentIndex(std::max(family, 0));
  for (int size = settings::kSmallestFontSize; size <= settings::kLargestFontSize; ++size)
    row.size->addItem(QString::number(size));
  row.size->setCurrentText(QString::number(font.size));
  UpdatePreview(row);
  for (QComboBox* combo : {row.family, row.size})
    ConnectGuarded(combo, &QComboBox::currentTextChanged, this, [row] { UpdatePreview(row); });
}

void frmMapSett::UpdatePreview(const FontRow& row) {
  row.preview->setFont(QFont(row.family->currentText(), row.size->currentText().toInt()));
}

double frmMapSett::TypedMeridian() const {
  // Neither sign nor point can be typed, but a stored fraction remains until it is overwritten.
  const QString typed = ui_->txtCentOth->text().trimmed();
  return typed.startsWith('-') || typed.startsWith('+') ? 0 : base::LeadingNumber(typed.toStdString());
}

void frmMapSett::StoreCentre() {
  const auto centre = ui_->optCentGrw->isChecked()   ? data::WorldCentre::kGreenwich
                      : ui_->optCentCar->isChecked() ? data::WorldCentre::kWest75
                                                     : data::WorldCentre::kChosen;
  const double meridian = TypedMeridian();
  const bool west = ui_->cboCentOth->currentIndex() == kWest && meridian != 0;
  data::ChooseWorldCentre(Ini(), regions_, centre, west ? -meridian : meridian);
}

void frmMapSett::StoreFont(const FontRow& row) {
  data::Font& font = fonts_[row.code];
  font.name = row.family->currentText().toStdString();
  font.size = base::LeadingInt16(row.size->currentText().toStdString());
  data::WriteFontSetting(Ini(), font);
}

void frmMapSett::Confirm() {
  if (ui_->optCentOth->isChecked() && TypedMeridian() > settings::kWorldCentreLongitude.most) {
    boxes_.Show(settings::BoxIcon::kExclamation, "The value cannot be larger than 180");
    ui_->txtCentOth->AskAgain();
    return;
  }
  StoreCentre();
  for (const FontRow& row : fontRows_)
    StoreFont(row);
  accept();
}

}  // namespace zerbal::dialogs
