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
    : PlacedDialog(placement, "HelpRevision") {
  Ui::frmHelpRev ui;
  ui.setupUi(this);
  const std::pair<const char*, QLineEdit*> rows[] = {{"RevZBLAll", ui.txtZBLAll},
                                                     {"RevSchdMain", ui.txtSchdMain},
                                                     {"RevSchdFSrv", ui.txtSchdFSrv},
                                                     {"RevStemAprt", ui.txtStemAprt},
                                                     {"RevZBLData", ui.txtZBLData}};
  constexpr char kUnknown[] = "Unknown";
  for (const auto& [key, box] : rows) {
    const auto value = values.ReadIniValue(revisionFile, "RevZBL", key, kUnknown);
    box->setText(QString::fromStdString(value.value_or(kUnknown)));
    box->setCursorPosition(0);
  }
  ui.cmdOK->setFocus();
  connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpMous::frmHelpMous(const Placement& placement) : PlacedDialog(placement, "HelpUseOfMouse") {
  Ui::frmHelpMous ui;
  ui.setupUi(this);
  connect(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpInfo::frmHelpInfo(const Placement& placement) : PlacedDialog(placement, "HelpInfo") {
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
