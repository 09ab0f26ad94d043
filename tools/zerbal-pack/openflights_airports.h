// The list of airports of OpenFlights.
#pragma once

#include <filesystem>
#include <string_view>

#include "zerbal-pack/airport_sources.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

/// How OpenFlights writes its files.
inline constexpr CsvForm kOpenFlightsForm{.backslashEscapes = true, .lenient = true};

/// The text of a field; empty for \N, which stands for no value.
std::string_view OpenFlightsText(const CsvRecord& record, std::size_t column);

bool IsOpenFlightsAirport(const CsvRecord& record);

/// Adds the airports that have a code, without runways, which the list does not have. Rows that cannot be
/// used are reported as errors.
void ReadOpenFlightsAirports(const std::filesystem::path& file, AirportList& list, Problems& problems);

/// Adds to list.ids only the airports that list.table knows by one of their codes.
void ReadOpenFlightsIds(const std::filesystem::path& file, AirportList& list, Problems& problems);

}  // namespace zerbal::pack
