#include "app/dialogs.h"

#include <QFile>
#include <QFontDatabase>

#include "base/find_file.h"
#include "dialogs/frm_colo_sett.h"
#include "dialogs/frm_deli.h"
#include "dialogs/frm_map_sett.h"
#include "dialogs/frm_rand_flit.h"
#include "dialogs/frm_sele_dest.h"
#include "dialogs/frm_sele_flit.h"
#include "dialogs/frm_user_sett.h"
#include "dialogs/help_dialogs.h"
#include "dialogs/map_file_dialog.h"

namespace zerbal::app {
namespace {

using dialogs::frmDeli;

template <class Dialog, class... Parts>
bool Accepted(Parts&&... parts) {
  Dialog dialog(std::forward<Parts>(parts)...);
  return dialog.exec() == QDialog::Accepted;
}

/// The file of the revision numbers, which need not exist. It is in the folder of the other data.
std::filesystem::path RevisionFile(const data::DataFiles& files) {
  constexpr char kName[] = "zblrev.ini";
  const std::filesystem::path folder = files.zbldata.parent_path();
  return base::FindFile(folder, kName).value_or(folder / kName);
}

}  // namespace

dialogs::FinderContext ProgramDialogs::Finder() const {
  const data::Databases& databases = *subjects_.databases;
  return {subjects_.map.services,
          databases.schedule,
          databases.destinations,
          subjects_.finder,
          subjects_.map.flights.selectedFlights,
          subjects_.boxes};
}

bool ProgramDialogs::ShowModal(DialogKind kind, QWidget& mainWindow) {
  auto& [settingsFile, boxes, random, files, databases, map, delimitations, finder] = subjects_;
  const dialogs::Placement placement{mainWindow, settingsFile.ini, settingsFile.saveFlags};
  switch (kind) {
    case DialogKind::kUserSettings:
      return Accepted<dialogs::frmUserSett>(placement, settingsFile.saveFlags);
    case DialogKind::kMapSettings:
      return Accepted<dialogs::frmMapSett>(placement, map.style.regions, map.style.fonts,
                                           QFontDatabase::families(), boxes);
    case DialogKind::kColourSettings:
      return Accepted<dialogs::frmColoSett>(placement, map.style.colours, map.services);
    case DialogKind::kDelimitAllAirports:
      return Accepted<frmDeli>(placement, frmDeli::Layer::kAllAirports, delimitations.allAirports, boxes);
    case DialogKind::kDelimitDestinations:
      return Accepted<frmDeli>(placement, frmDeli::Layer::kDestinations, delimitations.destinations, boxes);
    case DialogKind::kRandomFlights:
      return Accepted<dialogs::frmRandFlit>(placement, Finder(), random);
    case DialogKind::kSelectFlights:
      return Accepted<dialogs::frmSeleFlit>(placement, Finder());
    case DialogKind::kSelectDestination:
      return Accepted<dialogs::frmSeleDest>(placement, Finder());
    case DialogKind::kHelpRevision:
      return Accepted<dialogs::frmHelpRev>(placement, boxes, RevisionFile(files));
    case DialogKind::kHelpMouse:
      return Accepted<dialogs::frmHelpMous>(placement);
    case DialogKind::kHelpInfo:
      return Accepted<dialogs::frmHelpInfo>(placement);
  }
  return false;
}

std::optional<std::filesystem::path> ProgramDialogs::AskMapFile(QWidget& mainWindow) {
  const auto chosen = dialogs::AskMapFile(mainWindow, mapFile_);
  if (!chosen)
    return std::nullopt;
  mapFile_ = *chosen;
  return std::filesystem::path(QFile::encodeName(*chosen).toStdString());
}

}  // namespace zerbal::app
