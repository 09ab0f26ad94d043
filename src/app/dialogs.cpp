#include "app/dialogs.h"

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

namespace zerbal::app {
namespace {

using dialogs::frmDeli;

template <class Dialog, class... Parts>
bool Accepted(Parts&&... parts) {
  Dialog dialog(std::forward<Parts>(parts)...);
  return dialog.exec() == QDialog::Accepted;
}

/// Where the numbers of the installed data stand, or will be made: beside the other data.
std::filesystem::path RevisionFile(const data::DataFiles& files) {
  constexpr char kName[] = "zblrev.ini";
  const std::filesystem::path folder = files.zbldata.parent_path();
  return base::FindFile(folder, kName).value_or(folder / kName);
}

dialogs::FinderContext Finder(Program& program) {
  return {program.services, program.databases->schedule,     program.databases->destinations,
          program.finder,   program.flights.selectedFlights, program.environment.boxes};
}

}  // namespace

bool ProgramDialogs::Confirmed(DialogKind kind, const dialogs::Placement& placement) {
  Program& program = program_;
  settings::MessageBoxes& boxes = program.environment.boxes;
  switch (kind) {
    case DialogKind::kUserSettings:
      return Accepted<dialogs::frmUserSett>(placement, program.saveFlags);
    case DialogKind::kMapSettings:
      return Accepted<dialogs::frmMapSett>(placement, program.style.regions, program.style.fonts,
                                           QFontDatabase::families(), boxes);
    case DialogKind::kColourSettings:
      return Accepted<dialogs::frmColoSett>(placement, program.style.colours, program.services);
    case DialogKind::kDelimitAllAirports:
      return Accepted<frmDeli>(placement, frmDeli::Layer::kAllAirports, program.allAirportCriteria, boxes);
    case DialogKind::kDelimitDestinations:
      return Accepted<frmDeli>(placement, frmDeli::Layer::kDestinations, program.destinationCriteria, boxes);
    case DialogKind::kRandomFlights:
      return Accepted<dialogs::frmRandFlit>(placement, Finder(program), program.environment.random);
    case DialogKind::kSelectFlights:
      return Accepted<dialogs::frmSeleFlit>(placement, Finder(program));
    case DialogKind::kSelectDestination:
      return Accepted<dialogs::frmSeleDest>(placement, Finder(program));
    case DialogKind::kHelpRevision:
      return Accepted<dialogs::frmHelpRev>(placement, boxes, RevisionFile(program.files));
    case DialogKind::kHelpMouse:
      return Accepted<dialogs::frmHelpMous>(placement);
    case DialogKind::kHelpInfo:
      return Accepted<dialogs::frmHelpInfo>(placement);
  }
  return false;
}

}  // namespace zerbal::app
