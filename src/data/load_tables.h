// Loading the reference tables from the databases at start-up. Errors of the engine are not caught here.
#pragma once

#include <array>
#include <filesystem>

#include "data/reference_tables.h"
#include "data/schedule.h"

namespace zerbal::data {

/// What the rows of ColourTable and FontTable are found by, in their order.
inline constexpr std::array<const char*, kColourCount> kColourCodes = {
    "MAPBG", "ZOOM", "CENTRE", "COAST", "RIVER", "IBOUND", "APALL", "APDEST", "ACSYMB"};
inline constexpr std::array<const char*, kFontCount> kFontCodes = {"LORES", "HIRES"};

/// Loads table `col` of zbldata.mdb. Components beyond 0..255 are limited. Throws LoadError, which lists all
/// codes that are missing.
ColourTable LoadColours(const std::filesystem::path& zbldata);

/// Loads table `fon` of zbldata.mdb. Throws LoadError as LoadColours does.
FontTable LoadFonts(const std::filesystem::path& zbldata);

/// Loads rows 1..RegionCount from table `reg` of zbldata.mdb; there is no row at all when the table is empty.
/// Throws OverflowError beyond 32767 rows.
RegionTable LoadRegions(const std::filesystem::path& zbldata);

/// Loads colours, fonts, regions and services, in this order, and adds the bands of the grid.
ReferenceTables LoadReferenceTables(const std::filesystem::path& zbldata, const Schedule& schedule);

}  // namespace zerbal::data
