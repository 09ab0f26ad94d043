// Loading the reference tables from the databases at start-up. What a user can mend has its own message box
// and the answer false; everything else is the engine's error and is not caught here.
#pragma once

#include <array>
#include <filesystem>

#include "data/reference_tables.h"
#include "jet/recordset.h"
#include "settings/message_boxes.h"

namespace zerbal::data {

/// What the rows of ColourTable and FontTable are found by, in their order.
inline constexpr std::array<const char*, kColourCount> kColourCodes = {
    "MAPBG", "ZOOM", "CENTRE", "COAST", "RIVER", "IBOUND", "APALL", "APDEST", "ACSYMB"};
inline constexpr std::array<const char*, kFontCount> kFontCodes = {"LORES", "HIRES"};

/// Loads ColourTable from table `col` of zbldata.mdb. When codes are missing shows one critical box that
/// lists them and returns false. Components beyond 0..255 are limited.
bool LoadColours(const std::filesystem::path& zbldata, ColourTable& colours, settings::MessageBoxes& boxes);

/// The same for FontTable and table `fon`.
bool LoadFonts(const std::filesystem::path& zbldata, FontTable& fonts, settings::MessageBoxes& boxes);

/// Loads rows 1..RegionCount from table `reg`; leaves `regions.rows` empty when the table is.
/// Throws OverflowError beyond 32767 rows.
void LoadRegions(const std::filesystem::path& zbldata, RegionTable& regions);

/// Loads FlightServiceTable from the open recordset. False, with a critical box, when there is no service.
/// Throws jet::ConversionError for a colour component outside 0..255, OverflowError beyond 32767 services.
bool LoadFlightServices(jet::Recordset& fsrv, FlightServiceTable& services, settings::MessageBoxes& boxes);

/// Fills the whole of `tables`: the grid's bands, and the tables above in their order. False as soon as one
/// of them has shown a box.
bool LoadReferenceTables(const std::filesystem::path& zbldata, jet::Recordset& fsrv, ReferenceTables& tables,
                         settings::MessageBoxes& boxes);

}  // namespace zerbal::data
