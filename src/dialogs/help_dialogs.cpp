#include "dialogs/help_dialogs.h"

#include <QImageReader>

#include "ui_frm_help_info.h"
#include "ui_frm_help_mous.h"
#include "ui_frm_help_rev.h"

/// Resources of a static library are linked only when somebody asks for them; the macro wants the global
/// namespace.
static void InitResources() {
  Q_INIT_RESOURCE(dialogs);
}

namespace zerbal::dialogs {
namespace {

constexpr int kLogoSize = 96;  // logical pixels

/// Read anew each time: an icon would keep every picture it ever gave in the program-wide cache.
QPixmap Logo(qreal pixelRatio) {
  QImageReader reader(":/dialogs/logo.svg");
  reader.setScaledSize((QSizeF(kLogoSize, kLogoSize) * pixelRatio).toSize());
  QPixmap logo = QPixmap::fromImage(reader.read());
  logo.setDevicePixelRatio(pixelRatio);
  return logo;
}

}  // namespace

frmHelpRev::frmHelpRev(const Placement& placement, settings::IniValues& values,
                       const std::filesystem::path& revisionFile)
    : PlacedDialog(placement, settings::kHelpRevisionPosition) {
  Ui::frmHelpRev ui;
  ui.setupUi(this);
  settings::IniFile revisions(revisionFile, values);
  const std::pair<settings::TextSetting, QLineEdit*> rows[] = {
      {settings::kRevisionOfAll, ui.txtZBLAll},
      {settings::kRevisionOfSchedule, ui.txtSchdMain},
      {settings::kRevisionOfServices, ui.txtSchdFSrv},
      {settings::kRevisionOfAirports, ui.txtStemAprt},
      {settings::kRevisionOfData, ui.txtZBLData}};
  for (const auto& [setting, box] : rows) {
    const auto value = revisions.Read(setting);
    box->setText(QString::fromStdString(value.value_or(setting.byDefault)));
    box->setCursorPosition(0);
  }
  ui.cmdOK->setFocus();
  connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpMous::frmHelpMous(const Placement& placement) : PlacedDialog(placement, settings::kHelpMousePosition) {
  Ui::frmHelpMous ui;
  ui.setupUi(this);
  connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpInfo::frmHelpInfo(const Placement& placement) : PlacedDialog(placement, settings::kHelpInfoPosition) {
  InitResources();
  Ui::frmHelpInfo ui;
  ui.setupUi(this);
  ui.imgLogo->setPixmap(Logo(devicePixelRatioF()));
  ui.imgLogo->setAccessibleName(settings::kProgramTitle);
  ui.lblTit->setText(settings::kProgramTitle);
  ui.lblVers->setText(QStringLiteral("Version: ") + ZERBAL_VERSION);
  connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace zerbal::dialogs
