#include "dialogs/help_dialogs.h"

#include <QImageReader>
#include <array>

#include "ui_frm_help_info.h"
#include "ui_frm_help_mous.h"
#include "ui_frm_help_rev.h"

/// Resources of a static library are linked only when they are used. The macro must be in the global
/// namespace.
static void InitResources() {
  Q_INIT_RESOURCE(dialogs);
}

namespace zerbal::dialogs {
namespace {

constexpr int kLogoSize = 96;  // logical pixels

/// Read each time: a QIcon would keep each of its pictures in the program-wide cache.
QPixmap Logo(qreal pixelRatio) {
  QImageReader reader(":/dialogs/logo.svg");
  reader.setScaledSize((QSizeF(kLogoSize, kLogoSize) * pixelRatio).toSize());
  QPixmap logo = QPixmap::fromImage(reader.read());
  logo.setDevicePixelRatio(pixelRatio);
  return logo;
}

}  // namespace

frmHelpRev::frmHelpRev(const Placement& placement, settings::MessageBoxes& messages,
                       const std::filesystem::path& revisionFile)
    : PlacedDialog(placement, settings::kHelpRevisionPosition) {
  Ui::frmHelpRev ui;
  ui.setupUi(this);
  settings::IniFile revisions(revisionFile, messages);
  const std::array boxes{ui.txtZBLAll, ui.txtSchdMain, ui.txtSchdFSrv, ui.txtStemAprt, ui.txtZBLData};
  static_assert(boxes.size() == settings::kRevisionKeys.size());
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const auto value =
        revisions.Read(settings::kRevisions, settings::kRevisionKeys[i], settings::kUnknownRevision);
    boxes[i]->setText(QString::fromStdString(value.value_or(settings::kUnknownRevision)));
    boxes[i]->setCursorPosition(0);
  }
  ui.cmdOK->setFocus();
  ConnectGuarded(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpMous::frmHelpMous(const Placement& placement) : PlacedDialog(placement, settings::kHelpMousePosition) {
  Ui::frmHelpMous ui;
  ui.setupUi(this);
  ConnectGuarded(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpInfo::frmHelpInfo(const Placement& placement) : PlacedDialog(placement, settings::kHelpInfoPosition) {
  InitResources();
  Ui::frmHelpInfo ui;
  ui.setupUi(this);
  ui.imgLogo->setPixmap(Logo(devicePixelRatioF()));
  ui.imgLogo->setAccessibleName(settings::kProgramTitle);
  ui.lblTit->setText(settings::kProgramTitle);
  ui.lblVers->setText(QStringLiteral("Version: ") + ZERBAL_VERSION);
  ConnectGuarded(ui.cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace zerbal::dialogs
