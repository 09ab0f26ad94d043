#include "app/command_table.h"

#include <array>

#include "app/commands.h"

namespace zerbal::app {
namespace {

using data::DisplayOptions;

constexpr Command kSeparator;

constexpr Command OptionEntry(const char* name, const char* caption, bool DisplayOptions::*option,
                              const settings::SwitchSetting& setting, const char* checkBox = nullptr) {
  return {name, caption, option, checkBox, nullptr, nullptr, &setting};
}
constexpr Command Delimitation(const char* name, const char* caption, DialogKind dialog,
                               const char* checkBox) {
  return {.name = name, .caption = caption, .action = dialog, .rightClick = checkBox};
}

constexpr std::array kFile = {
    Command{"mnuFileUserSett", "&User settings...", DialogKind::kUserSettings},
    Command{"mnuFileMapSett", "&Map settings...", DialogKind::kMapSettings},
    Command{"mnuFileColoSett", "&Color settings...", DialogKind::kColourSettings},
    kSeparator,
    Command{.name = "mnuFileQuit", .caption = "&Quit", .action = &Commands::Quit, .keys = "Ctrl+Q"},
};

constexpr Command ZoomCommand(const char* name, const char* caption, void (Commands::*operation)(),
                              const char* button, const char* picture, const char* keys = "") {
  return {.name = name,
          .caption = caption,
          .action = operation,
          .button = button,
          .picture = picture,
          .keys = keys};
}

constexpr std::array kZoom = {
    ZoomCommand("mnuZoomIn", "Zoom in", &Commands::ZoomIn, "cmdZoomIn", ":/app/zoom_in.svg",
                "Ctrl++; Ctrl+="),
    ZoomCommand("mnuZoomIn2", "Zoom in (more)", &Commands::ZoomInMore, "cmdZoomIn2", ":/app/zoom_in_2.svg"),
    ZoomCommand("mnuZoomReset", "Reset zoom", &Commands::ZoomReset, "cmdZoomReset", ":/app/zoom_reset.svg",
                "Ctrl+0"),
    ZoomCommand("mnuZoomOut2", "Zoom out (more)", &Commands::ZoomOutMore, "cmdZoomOut2",
                ":/app/zoom_out_2.svg"),
    ZoomCommand("mnuZoomOut", "Zoom out", &Commands::ZoomOut, "cmdZoomOut", ":/app/zoom_out.svg", "Ctrl+-"),
};

constexpr std::array kViews = {
    OptionEntry("mnuViewCentr", "Centre of map", &DisplayOptions::centreOfMap, settings::kViewCentreOfMap),
    OptionEntry("mnuViewRiver", "Rivers", &DisplayOptions::rivers, settings::kViewRivers),
    OptionEntry("mnuViewIBound", "Int. boundaries", &DisplayOptions::boundaries, settings::kViewBoundaries),
    kSeparator,
    OptionEntry("mnuViewAprt", "All airports", &DisplayOptions::allAirports, settings::kViewAllAirports,
                "chkAprt"),
    OptionEntry("mnuViewDest", "QAV destinations", &DisplayOptions::destinations, settings::kViewDestinations,
                "chkDest"),
    kSeparator,
    Delimitation("mnuViewAprtDeli", "Delimitation for all airports...", DialogKind::kDelimitAllAirports,
                 "chkAprt"),
    Delimitation("mnuViewDestDeli", "Delimitation for QAV destinations...", DialogKind::kDelimitDestinations,
                 "chkDest"),
};

constexpr std::array kRegion = {
    Command{"mnuRegWorld", "World", &Commands::ShowRegion},
};
constexpr Command kRegionPart{.name = "mnuRegPart", .action = &Commands::ShowRegion, .keys = "Ctrl+%1"};

constexpr std::array kFlights = {
    OptionEntry("mnuFlitAprt", "Show airports", &DisplayOptions::flightAirports, settings::kShowAirports),
    OptionEntry("mnuFlitFlNr", "Show flightnumbers", &DisplayOptions::flightNumbers,
                settings::kShowFlightNumbers),
    OptionEntry("mnuFlitLegNr", "Show legnumbers for flights", &DisplayOptions::legNumbers,
                settings::kShowLegNumbers),
    OptionEntry("mnuFlitSymb", "Show aircraft symbols", &DisplayOptions::aircraftSymbols,
                settings::kShowAircraftSymbols),
    kSeparator,
    Command{"mnuFlitNone", "Clear all flights", &Commands::ClearAllFlights},
    Command{"mnuFlitSele", "Show selected flights", &Commands::ShowSelectedFlights},
    kSeparator,
    Command{"mnuFlitRandFlit", "Random flight(s)...", DialogKind::kRandomFlights, "cmdRandFlit",
            ":/app/random_flights.svg"},
    Command{"mnuFlitSeleFlit", "Select flight(s)...", DialogKind::kSelectFlights, "cmdSeleFlit",
            ":/app/select_flights.svg"},
    Command{"mnuFlitSeleDest", "Select destination...", DialogKind::kSelectDestination, "cmdSeleDest",
            ":/app/select_destination.svg"},
    kSeparator,
    Command{"mnuFlitFSrv(0)", "Show all flights", &Commands::ShowAllFlights},
};
constexpr Command kFlightService{"mnuFlitFSrv", "", &Commands::ToggleService};

constexpr std::array kHelp = {
    Command{"mnuHelpRev", "&Revision number...", DialogKind::kHelpRevision},
    Command{.name = "mnuHelpMous",
            .caption = "&Using the mouse...",
            .action = DialogKind::kHelpMouse,
            .keys = "F1"},
    Command{"mnuHelpInfo", "&Info...", DialogKind::kHelpInfo},
};

constexpr std::array kMenus = {
    MenuDescription{"mnuFile", "&File", kFile},
    MenuDescription{"mnuZoom", "&Zoom", kZoom},
    MenuDescription{"mnuView", "&Views", kViews},
    MenuDescription{"mnuReg", "&Region", kRegion, kRegionPart},
    MenuDescription{"mnuFlit", "&Flights", kFlights, kFlightService, "mnuPop"},
    MenuDescription{"mnuHelp", "&?", kHelp},
};

constexpr std::array kWindowCommands = {
    Command{.caption = "Save map...",
            .action = &Commands::SaveMap,
            .button = "cmdSaveMap",
            .picture = ":/app/save_map.svg",
            .keys = "Ctrl+S"},
    Command{.caption = "Copy map", .action = &Commands::CopyMap, .keys = "Ctrl+C"},
};

}  // namespace

std::span<const MenuDescription> MenuTable() {
  return kMenus;
}

std::span<const Command> WindowCommands() {
  return kWindowCommands;
}

void ForEachOption(const std::function<void(const Command&)>& visit) {
  for (const MenuDescription& menu : kMenus) {
    for (const Command& command : menu.commands) {
      if (command.Option() != nullptr)
        visit(command);
    }
  }
}

}  // namespace zerbal::app
